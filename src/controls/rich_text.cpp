#include "controls/rich_text.h"

#include <algorithm>
#include <utility>

#include "controls/character.h"
#include "controls/key_code.h"
#include "controls/rtf.h"
#include "text/one_based.h"

namespace tessera {
namespace {

constexpr char kBreak = '\n';

std::string WithInnerBreaks(std::string_view text) {
  std::string inner;
  inner.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\r' && i + 1 < text.size() && text[i + 1] == kBreak) ++i;
    inner += text[i] == '\r' ? kBreak : text[i];
  }
  return inner;
}

std::string WithProgramBreaks(std::string_view inner) {
  std::string text;
  text.reserve(inner.size());
  for (const char character : inner) {
    if (character == kBreak) {
      text += kCrLf;
    } else {
      text += character;
    }
  }
  return text;
}

std::size_t ProgramLength(std::string_view inner) {
  return inner.size() + static_cast<std::size_t>(std::count(inner.begin(), inner.end(), kBreak));
}

// The place inside that so many of the program's characters stand before; one within a break is before it.
std::size_t InnerPlace(std::string_view inner, std::size_t characters) {
  std::size_t place = 0;
  for (; place < inner.size(); ++place) {
    const std::size_t width = inner[place] == kBreak ? kCrLf.size() : 1;
    if (characters < width) break;
    characters -= width;
  }
  return place;
}

}  // namespace

std::string RichText::Text() const {
  return WithProgramBreaks(content_.Text());
}

void RichText::SetText(std::string_view text) {
  content_.Erase(0, content_.Text().size());
  content_.Insert(0, WithInnerBreaks(text), base_);
  Select(0, 0);
}

std::string RichText::TextRTF() const {
  return WriteRtf(content_);
}

void RichText::SetTextRTF(std::string_view text) {
  if (!IsRtf(text)) return SetText(text);
  content_ = ReadRtf(text, base_);
  Select(0, 0);
}

std::size_t RichText::SelStart() const {
  return ProgramLength(std::string_view(content_.Text()).substr(0, First()));
}

std::size_t RichText::SelLength() const {
  return ProgramLength(std::string_view(content_.Text()).substr(First(), Last() - First()));
}

std::string RichText::SelText() const {
  return WithProgramBreaks(std::string_view(content_.Text()).substr(First(), Last() - First()));
}

void RichText::SetSelStart(std::size_t start) {
  const std::size_t place = InnerPlace(content_.Text(), start);
  Select(place, place);
}

void RichText::SetSelLength(std::size_t length) {
  const std::size_t first = First();
  Select(first, first + InnerPlace(std::string_view(content_.Text()).substr(first), length));
}

const CharFormat& RichText::SelFormat() const {
  if (typing_) return *typing_;
  if (content_.Text().empty()) return base_;
  if (anchor_ != caret_ || caret_ == 0) return content_.FormatAt(First());
  return content_.FormatAt(caret_ - 1);
}

void RichText::SetSelFormat(const FormatChange& change) {
  if (anchor_ != caret_) {
    content_.Change(First(), Last() - First(), change);
    return;
  }
  CharFormat format = SelFormat();
  change.ApplyTo(format);
  typing_ = std::move(format);
}

void RichText::SetFormat(const FormatChange& change) {
  change.ApplyTo(base_);
  if (typing_) change.ApplyTo(*typing_);
  content_.Change(0, content_.Text().size(), change);
}

void RichText::Select(std::size_t anchor, std::size_t caret) {
  anchor_ = std::min(anchor, content_.Text().size());
  caret_ = std::min(caret, content_.Text().size());
  typing_.reset();
  column_.reset();
}

bool RichText::KeyPress(char character) {
  if (!enabled_) return false;
  if (character == key::kEnter) return multiLine_ && Replace({&kBreak, 1});
  return IsPrintable(character) && Replace({&character, 1});
}

bool RichText::Paste(std::string_view text) {
  if (!enabled_) return false;
  std::string inner = WithInnerBreaks(text);
  if (!multiLine_) inner.resize(std::min(inner.find(kBreak), inner.size()));
  return Replace(inner);
}

bool RichText::KeyDown(int code, bool shift, bool ctrl, const TextLayout* layout) {
  if (!enabled_) return false;
  switch (code) {
    case key::kBackspace:
      return anchor_ != caret_ ? Remove(First(), Last()) : caret_ > 0 && Remove(caret_ - 1, caret_);
    case key::kDelete:
      return anchor_ != caret_ ? Remove(First(), Last()) : Remove(caret_, caret_ + 1);
    default:
      break;
  }
  const auto place = Moved(code, shift, ctrl, layout);
  if (!place) return false;
  const std::optional<std::size_t> column = column_;
  Select(shift ? anchor_ : *place, *place);
  const bool byLines =
      code == key::kUp || code == key::kDown || code == key::kPageUp || code == key::kPageDown;
  if (byLines) column_ = column;
  return false;
}

// Puts a text in place of the selection, as much of it as there is room for. It has the format of what it
// replaces, else of the character before it.
bool RichText::Replace(std::string_view text) {
  const std::size_t kept = content_.Text().size() - (Last() - First());
  if (maxLength_ != 0) text = text.substr(0, maxLength_ - std::min(kept, maxLength_));
  if (text.empty()) return false;
  const CharFormat format = SelFormat();
  const std::size_t first = First();
  content_.Erase(first, Last() - first);
  content_.Insert(first, text, format);
  Select(first + text.size(), first + text.size());
  return true;
}

bool RichText::Remove(std::size_t first, std::size_t last) {
  if (first >= content_.Text().size()) return false;
  content_.Erase(first, last - first);
  Select(first, first);
  return true;
}

// Where a key takes the caret; nothing for a key that does not move it.
std::optional<std::size_t> RichText::Moved(int code, bool shift, bool ctrl, const TextLayout* layout) {
  const std::size_t size = content_.Text().size();
  const bool collapse = !shift && anchor_ != caret_;
  const int page = layout == nullptr ? 1 : layout->PageLines();
  switch (code) {
    case key::kLeft:
      return collapse ? First() : caret_ - (caret_ > 0);
    case key::kRight:
      return collapse ? Last() : std::min(caret_ + 1, size);
    case key::kHome:
      return ctrl ? 0 : LineStart(caret_);
    case key::kEnd:
      return ctrl ? size : LineEnd(caret_);
    case key::kUp:
      return ByLines(-1, layout);
    case key::kDown:
      return ByLines(1, layout);
    case key::kPageUp:
      return ByLines(-page, layout);
    case key::kPageDown:
      return ByLines(page, layout);
    default:
      return std::nullopt;
  }
}

std::size_t RichText::ByLines(int lines, const TextLayout* layout) {
  if (layout != nullptr) return layout->MovedByLines(caret_, lines);
  std::size_t start = LineStart(caret_);
  if (!column_) column_ = caret_ - start;
  for (; lines < 0 && start > 0; ++lines) start = LineStart(start - 1);
  for (; lines > 0 && LineEnd(start) < content_.Text().size(); --lines) start = LineEnd(start) + 1;
  return std::min(start + *column_, LineEnd(start));
}

std::size_t RichText::LineStart(std::size_t place) const {
  const std::size_t before = place == 0 ? std::string::npos : content_.Text().rfind(kBreak, place - 1);
  return before == std::string::npos ? 0 : before + 1;
}

std::size_t RichText::LineEnd(std::size_t place) const {
  return std::min(content_.Text().find(kBreak, place), content_.Text().size());
}

}  // namespace tessera
