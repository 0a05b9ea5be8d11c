// The layout of a program inside the executable's file. docs/formats/image.md tells it with an example;
// image_writer.h and image_reader.h are its two users.
//
//   INICIOPROGTS name #FIMNOME package FIMPROGTS name
//
// package: source 0 "#~^", then up to six times: name i "&~^" source i "#~^"; each field encoded by itself.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace tessera {

// A text that the binary does not hold in plain. The reader takes the first marker in the whole file, and the
// file begins with the program that reads: were the markers plain in its data, it would find itself.
template <std::size_t N>
class HiddenText {
 public:
  consteval explicit HiddenText(const char (&text)[N]) {
    for (std::size_t i = 0; i + 1 < N; ++i) hidden_[i] = static_cast<char>(text[i] ^ kMask);
  }
  consteval char At(std::size_t i) const { return static_cast<char>(hidden_[i] ^ kMask); }
  std::string text() const {
    std::string plain;
    for (const char hidden : hidden_) {
      const volatile char kept = hidden;  // or a compiler would fold the plain text into the code
      plain.push_back(static_cast<char>(kept ^ kMask));
    }
    return plain;
  }

 private:
  static constexpr char kMask = 0x5A;
  std::array<char, N - 1> hidden_{};
};

inline constexpr HiddenText kOpeningMarker("INICIOPROGTS");
inline constexpr HiddenText kNameEnd("#FIMNOME");
inline constexpr HiddenText kClosingMarker("FIMPROGTS");

inline constexpr std::string_view kSourceEnd = "#~^";
inline constexpr std::string_view kEditorNameEnd = "&~^";

// The name by which the markers know a program: in upper case, and a name with a point loses its last four
// characters.
std::string MarkerName(std::string_view name);

}  // namespace tessera
