// What the tool tells its user: UTF-8 lines, with colour only where a person reads them on a terminal.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace tessera {

// Exit statuses of the tool.
inline constexpr int kDone = 0;
inline constexpr int kRefused = 1;    // the program was refused or abandoned
inline constexpr int kWrongCall = 2;  // wrong call, unreadable or unsuitable file

// Whether a person reads these streams on a terminal, and wants colours there (NO_COLOR).
bool ErrorsAreColoured();
bool OutputIsColoured();

// Whether stderr is a terminal.
bool ErrorsAreRead();

// "tessera: erro: " and the message, on stderr.
void PrintError(std::string_view message);

// "tessera: " and a remark that is no error, on stderr.
void PrintRemark(std::string_view message);

// A number and what it counts, one or many.
std::string Counted(std::uint64_t number, std::string_view one, std::string_view many);

}  // namespace tessera
