#include "controls/styled_text.h"

#include <algorithm>

namespace tessera {

void FormatChange::ApplyTo(CharFormat& format) const {
  if (font) format.font = *font;
  if (size && *size > 0 && *size <= kMaxPoints) format.size = *size;
  if (bold) format.bold = *bold;
  if (italic) format.italic = *italic;
  if (underline) format.underline = *underline;
  if (color) format.color = *color;
}

const CharFormat& StyledText::FormatAt(std::size_t place) const {
  auto run = runs_.begin();
  for (; place >= run->length; ++run) place -= run->length;
  return run->format;
}

void StyledText::Insert(std::size_t place, std::string_view text, const CharFormat& format) {
  if (text.empty()) return;
  place = std::min(place, text_.size());
  const std::size_t run = RunBeginningAt(place);
  text_.insert(place, text);
  runs_.insert(runs_.begin() + static_cast<std::ptrdiff_t>(run), {text.size(), format});
  JoinRuns(run, run + 1);
}

void StyledText::Append(char character, const CharFormat& format) {
  text_.push_back(character);
  if (runs_.empty() || runs_.back().format != format) runs_.push_back({0, format});
  ++runs_.back().length;
}

void StyledText::Erase(std::size_t place, std::size_t count) {
  place = std::min(place, text_.size());
  count = std::min(count, text_.size() - place);
  const std::size_t first = RunBeginningAt(place);
  const std::size_t last = RunBeginningAt(place + count);
  text_.erase(place, count);
  runs_.erase(runs_.begin() + static_cast<std::ptrdiff_t>(first),
              runs_.begin() + static_cast<std::ptrdiff_t>(last));
  JoinRuns(first, first);
}

void StyledText::Change(std::size_t place, std::size_t count, const FormatChange& change) {
  place = std::min(place, text_.size());
  count = std::min(count, text_.size() - place);
  const std::size_t first = RunBeginningAt(place);
  const std::size_t last = RunBeginningAt(place + count);
  for (std::size_t run = first; run < last; ++run) change.ApplyTo(runs_[run].format);
  JoinRuns(first, last);
}

// The run that begins at the place, after one that lay across it was parted there; behind the last run at the
// text's end.
std::size_t StyledText::RunBeginningAt(std::size_t place) {
  std::size_t run = 0;
  for (; run < runs_.size() && place >= runs_[run].length; ++run) place -= runs_[run].length;
  if (place == 0) return run;
  FormatRun rest = runs_[run];
  rest.length -= place;
  runs_[run].length = place;
  runs_.insert(runs_.begin() + static_cast<std::ptrdiff_t>(run + 1), std::move(rest));
  return run + 1;
}

// Joins neighbours of equal format, from the border before run `first` to the border before run `last`.
void StyledText::JoinRuns(std::size_t first, std::size_t last) {
  const std::size_t begin = first == 0 ? 0 : first - 1;
  const std::size_t end = std::min(last + 1, runs_.size());
  std::size_t kept = begin;
  for (std::size_t run = begin + 1; run < end; ++run) {
    if (runs_[run].format == runs_[kept].format) {
      runs_[kept].length += runs_[run].length;
    } else if (++kept != run) {
      runs_[kept] = std::move(runs_[run]);
    }
  }
  if (kept + 1 < end) {
    runs_.erase(runs_.begin() + static_cast<std::ptrdiff_t>(kept + 1),
                runs_.begin() + static_cast<std::ptrdiff_t>(end));
  }
}

}  // namespace tessera
