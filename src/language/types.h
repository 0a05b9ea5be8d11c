// The type words of variables.
#pragma once

#include <string_view>

namespace tessera {

inline constexpr std::string_view kTypeString = "String";
inline constexpr std::string_view kTypeInteiro = "Inteiro";
inline constexpr std::string_view kTypeDecimal = "Decimal";

}  // namespace tessera
