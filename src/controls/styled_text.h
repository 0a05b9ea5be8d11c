// A text whose characters have formats: bytes of program text, a line break being one line feed, and runs of
// equal format. Places count the characters before them and are clipped to the text.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/text_align.h"

namespace tessera {

inline constexpr double kMaxPoints = 1638;  // the most whose twentieths a 16-bit number holds

struct CharFormat {
  std::string font = "MS Sans Serif";
  double size = 8;  // points
  bool bold = false;
  bool italic = false;
  bool underline = false;
  std::int32_t color = 0;
  bool operator==(const CharFormat&) const = default;
};

// What is told of a format; the rest of it stays. A size that is none, or above kMaxPoints, is not taken.
struct FormatChange {
  std::optional<std::string> font = {};
  std::optional<double> size = {};
  std::optional<bool> bold = {};
  std::optional<bool> italic = {};
  std::optional<bool> underline = {};
  std::optional<std::int32_t> color = {};

  void ApplyTo(CharFormat& format) const;
};

struct FormatRun {
  std::size_t length = 0;
  CharFormat format;
  bool operator==(const FormatRun&) const = default;
};

class StyledText {
 public:
  const std::string& Text() const { return text_; }
  // From the first character on; none is empty, and neighbours differ.
  const std::vector<FormatRun>& Runs() const { return runs_; }
  // The character must exist.
  const CharFormat& FormatAt(std::size_t place) const;

  TextAlign Alignment() const { return alignment_; }
  void SetAlignment(TextAlign alignment) { alignment_ = alignment; }

  void Insert(std::size_t place, std::string_view text, const CharFormat& format);
  void Append(char character, const CharFormat& format);
  void Erase(std::size_t place, std::size_t count);
  void Change(std::size_t place, std::size_t count, const FormatChange& change);

  bool operator==(const StyledText&) const = default;

 private:
  std::size_t RunBeginningAt(std::size_t place);
  void JoinRuns(std::size_t first, std::size_t last);

  std::string text_;
  std::vector<FormatRun> runs_;
  TextAlign alignment_ = TextAlign::kLeft;
};

}  // namespace tessera
