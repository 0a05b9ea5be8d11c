// The desktop's dialogs, modal: file, colour, font, printer. Nothing is Cancel.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/host.h"

class QWidget;

namespace tessera {

std::optional<std::string> ShowFileDialog(const FileRequest& request, QWidget* parent);
std::optional<std::int32_t> ShowColourDialog(std::string_view title, QWidget* parent);
std::optional<ChosenFont> ShowFontDialog(std::string_view title, QWidget* parent);
std::optional<std::string> ShowPrinterDialog(std::string_view title, QWidget* parent);

}  // namespace tessera
