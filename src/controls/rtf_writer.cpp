#include <cmath>
#include <map>

#include "controls/rtf.h"

namespace tessera {
namespace {

constexpr std::int32_t kLargestPlainColor = 0xFFFFFF;

std::string Hex(char character) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  const auto code = static_cast<unsigned char>(character);
  return {'\\', '\'', kDigits[code >> 4], kDigits[code & 15]};
}

std::string_view AlignmentWord(TextAlign alignment) {
  switch (alignment) {
    case TextAlign::kRight:
      return "\\qr";
    case TextAlign::kCentre:
      return "\\qc";
    case TextAlign::kLeft:
      break;
  }
  return "\\ql";
}

std::string Escaped(char character) {
  switch (character) {
    case '\n':
      return "\\par\r\n";
    case '\t':
      return "\\tab ";
    case '\\':
    case '{':
    case '}':
      return {'\\', character};
    default:
      return character >= 32 && character < 127 ? std::string(1, character) : Hex(character);
  }
}

std::string FontName(std::string_view name) {
  std::string written;
  for (const char character : name) written += character == ';' ? Hex(character) : Escaped(character);
  return written;
}

// The fonts and colours of a text, each once, in the order of their first use.
class Tables {
 public:
  explicit Tables(const StyledText& text) {
    for (const FormatRun& run : text.Runs()) {
      const CharFormat& format = run.format;
      if (fonts_.try_emplace(format.font, fonts_.size()).second) {
        fontTable_ += "{\\f" + std::to_string(fonts_.size() - 1) + "\\fnil " + FontName(format.font) + ";}";
      }
      const bool plain = format.color >= 0 && format.color <= kLargestPlainColor;
      if (plain && colors_.try_emplace(format.color, colors_.size() + 1).second) {
        colorTable_ += "\\red" + std::to_string(format.color & 255) + "\\green" +
                       std::to_string(format.color >> 8 & 255) + "\\blue" +
                       std::to_string(format.color >> 16) + ";";
      }
    }
  }

  std::string Text() const {
    return "{\\fonttbl" + fontTable_ + "}\r\n{\\colortbl ;" + colorTable_ + "}\r\n";
  }

  std::string Words(const CharFormat& format) const {
    const auto color = colors_.find(format.color);
    std::string words = "\\plain\\f" + std::to_string(fonts_.at(format.font)) + "\\fs" +
                        std::to_string(std::lround(format.size * 2)) + "\\cf" +
                        std::to_string(color == colors_.end() ? 0 : color->second);
    if (format.bold) words += "\\b";
    if (format.italic) words += "\\i";
    if (format.underline) words += "\\ul";
    return words + " ";
  }

 private:
  std::map<std::string, std::size_t> fonts_;
  std::map<std::int32_t, std::size_t> colors_;  // from 1; 0 is the reader's own colour
  std::string fontTable_;
  std::string colorTable_;
};

}  // namespace

std::string WriteRtf(const StyledText& text) {
  const Tables tables(text);
  std::string rtf = "{\\rtf1\\ansi\\ansicpg1252\\deff0" + tables.Text() + "\\uc1\\pard";
  rtf += AlignmentWord(text.Alignment());
  std::size_t place = 0;
  for (const FormatRun& run : text.Runs()) {
    rtf += tables.Words(run.format);
    for (const std::size_t end = place + run.length; place < end; ++place) rtf += Escaped(text.Text()[place]);
  }
  return rtf + "\\par\r\n}\r\n";
}

}  // namespace tessera
