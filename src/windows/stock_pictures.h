// The pictures of the system's own stock, that programs call by name: figures of buttons, backgrounds and
// animations. Each has its pixels, the same for every host, and the vector form that they were painted from.
// A picture is unpacked when it is asked for.
#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "windows/picture.h"

namespace tessera {

enum class StockKind { Figure, Background, Animation };

// What the lookup gives for a name that the list has not got.
inline constexpr std::int32_t kNoStockNumber = 65535;

// The number of a name in its list: the name is found wherever it stands before a "#".
std::int32_t StockNumber(StockKind kind, std::string_view name);

// The picture of a number of the list; an animation's first frame.
PictureRef StockPicture(StockKind kind, std::int32_t number);

// The five pictures of a button's skin: at rest, under the pointer, with the focus, pressed, disabled. Empty
// for a number that the stock has not got.
std::vector<PictureRef> StockSkin(std::int32_t number);

// The frames of an animation in their order.
std::vector<PictureRef> StockFrames(std::int32_t number);

}  // namespace tessera
