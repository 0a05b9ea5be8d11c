#include <algorithm>
#include <map>
#include <optional>
#include <utility>
#include <vector>

#include "controls/character.h"
#include "controls/rtf.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {
namespace {

constexpr std::string_view kSignature = "{\\rtf";
constexpr int kDefaultHalfPoints = 24;
constexpr int kMaxHalfPoints = static_cast<int>(2 * kMaxPoints);
constexpr int kMaxParameter = 99'999'999;
constexpr std::size_t kDocumentDepth = 2;  // its own group inside what stands outside of all

// Groups that begin with these words hold nothing of the text.
constexpr std::string_view kAsides[] = {"stylesheet", "info",   "pict",    "header",  "headerl", "headerr",
                                        "headerf",    "footer", "footerl", "footerr", "footerf", "footnote",
                                        "filetbl",    "revtbl", "fldinst", "xe",      "tc"};

bool IsAsciiLetter(char c) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  const char lower = Lower(c);
  return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

class RtfReader {
 public:
  RtfReader(std::string_view rtf, const CharFormat& base) : rtf_(rtf), base_(base) {}
  StyledText Read();

 private:
  enum class Destination { kText, kFontTable, kColorTable, kSkipped };
  using Parameter = std::optional<int>;
  using Action = void (RtfReader::*)(Parameter);
  struct Word {
    std::string_view name;
    Action action;
  };
  static const Word kWords[];

  // What control words tell of the characters behind them.
  struct Look {
    std::optional<int> font;
    int halfPoints = kDefaultHalfPoints;
    bool bold = false;
    bool italic = false;
    bool underline = false;
    int color = 0;
    bool operator==(const Look&) const = default;
  };
  struct Group {
    Destination destination = Destination::kText;
    Look look;
    int fallbackLength = 1;  // characters that stand in for one beyond the code page
  };

  Group& Now() { return groups_.back(); }
  char Next() { return at_ < rtf_.size() ? rtf_[at_++] : '\0'; }
  void OpenGroup();
  void CloseGroup();
  void Control();
  void ControlWord();
  void HexCharacter();
  void Character(char character);
  void Put(char character);
  void Direct(Destination destination);
  void EndFont();
  void EndColor();

  template <bool Look::*Member>
  void Switch(Parameter on) {
    Now().look.*Member = on != 0;
  }
  template <char Byte>
  void Sign(Parameter) {
    Character(Byte);
  }
  template <TextAlign Align>
  void Aligned(Parameter) {
    if (content_.Text().empty()) content_.SetAlignment(Align);
  }
  template <Destination To>
  void Redirect(Parameter) {
    Direct(To);
  }
  template <int RtfReader::*Channel>
  void SetChannel(Parameter value) {
    this->*Channel = std::clamp(value.value_or(0), 0, 255);
    hasChannel_ = true;
  }
  void NoUnderline(Parameter) { Now().look.underline = false; }
  void Plain(Parameter) { Now().look = Look(); }
  void DefaultFont(Parameter number) { defaultFont_ = number.value_or(0); }
  void Color(Parameter number) { Now().look.color = number.value_or(0); }
  void FallbackLength(Parameter length) { Now().fallbackLength = std::max(length.value_or(1), 0); }
  void Font(Parameter number);
  void Size(Parameter halfPoints);
  void Break(Parameter);
  void Unicode(Parameter code);

  std::string_view rtf_;
  const CharFormat& base_;
  std::size_t at_ = 0;
  std::vector<Group> groups_{Group()};
  std::size_t deeper_ = 0;  // open groups beyond the limit
  int fallback_ = 0;        // characters still to pass over
  bool ended_ = false;

  std::map<int, std::string> fonts_;
  int font_ = 0;  // of the table's entry being read
  std::string fontName_;
  int defaultFont_ = 0;
  std::vector<std::optional<std::int32_t>> colors_;
  int red_ = 0;
  int green_ = 0;
  int blue_ = 0;
  bool hasChannel_ = false;

  StyledText content_;
  std::optional<Look> shownLook_;  // the look that `format_` is made of
  CharFormat format_;
};

// The other words that are known; a word that is not tells nothing.
const RtfReader::Word RtfReader::kWords[] = {
    {"par", &RtfReader::Break},
    {"line", &RtfReader::Break},
    {"sect", &RtfReader::Break},
    {"page", &RtfReader::Break},
    {"row", &RtfReader::Break},
    {"tab", &RtfReader::Sign<'\t'>},
    {"cell", &RtfReader::Sign<'\t'>},
    {"b", &RtfReader::Switch<&RtfReader::Look::bold>},
    {"i", &RtfReader::Switch<&RtfReader::Look::italic>},
    {"ul", &RtfReader::Switch<&RtfReader::Look::underline>},
    {"ulw", &RtfReader::Switch<&RtfReader::Look::underline>},
    {"uld", &RtfReader::Switch<&RtfReader::Look::underline>},
    {"uldb", &RtfReader::Switch<&RtfReader::Look::underline>},
    {"ulnone", &RtfReader::NoUnderline},
    {"f", &RtfReader::Font},
    {"fs", &RtfReader::Size},
    {"cf", &RtfReader::Color},
    {"plain", &RtfReader::Plain},
    {"pard", &RtfReader::Aligned<TextAlign::kLeft>},
    {"ql", &RtfReader::Aligned<TextAlign::kLeft>},
    {"qj", &RtfReader::Aligned<TextAlign::kLeft>},
    {"qr", &RtfReader::Aligned<TextAlign::kRight>},
    {"qc", &RtfReader::Aligned<TextAlign::kCentre>},
    {"u", &RtfReader::Unicode},
    {"uc", &RtfReader::FallbackLength},
    {"deff", &RtfReader::DefaultFont},
    {"lquote", &RtfReader::Sign<'\x91'>},
    {"rquote", &RtfReader::Sign<'\x92'>},
    {"ldblquote", &RtfReader::Sign<'\x93'>},
    {"rdblquote", &RtfReader::Sign<'\x94'>},
    {"bullet", &RtfReader::Sign<'\x95'>},
    {"endash", &RtfReader::Sign<'\x96'>},
    {"emdash", &RtfReader::Sign<'\x97'>},
    {"red", &RtfReader::SetChannel<&RtfReader::red_>},
    {"green", &RtfReader::SetChannel<&RtfReader::green_>},
    {"blue", &RtfReader::SetChannel<&RtfReader::blue_>},
    {"fonttbl", &RtfReader::Redirect<RtfReader::Destination::kFontTable>},
    {"colortbl", &RtfReader::Redirect<RtfReader::Destination::kColorTable>},
};

StyledText RtfReader::Read() {
  while (at_ < rtf_.size() && !ended_) {
    switch (const char character = Next()) {
      case '{':
        OpenGroup();
        break;
      case '}':
        CloseGroup();
        break;
      case '\\':
        Control();
        break;
      case '\r':
      case '\n':
        break;
      default:
        Character(character);
    }
  }
  return std::move(content_);
}

void RtfReader::OpenGroup() {
  fallback_ = 0;
  if (groups_.size() <= kMaxRtfNesting) {
    groups_.push_back(groups_.back());
  } else {
    ++deeper_;
  }
}

void RtfReader::CloseGroup() {
  fallback_ = 0;
  if (deeper_ > 0) {
    --deeper_;
    return;
  }
  if (Now().destination == Destination::kFontTable) EndFont();
  ended_ = groups_.size() <= kDocumentDepth;
  if (!ended_) groups_.pop_back();
}

void RtfReader::Control() {
  if (at_ == rtf_.size()) return;
  if (IsAsciiLetter(rtf_[at_])) return ControlWord();
  switch (const char symbol = Next()) {
    case '\\':
    case '{':
    case '}':
      return Character(symbol);
    case '\'':
      return HexCharacter();
    case '*':
      return Direct(Destination::kSkipped);
    case '~':
      return Character('\xA0');
    case '_':
      return Character('-');
    case '\t':
      return Character('\t');
    case '\r':
    case '\n':
      return Break({});
    default:  // a sign that no text shows, such as the optional hyphen
      return;
  }
}

// Letters, a number perhaps, and a blank that belongs to the word.
void RtfReader::ControlWord() {
  const std::size_t start = at_;
  while (at_ < rtf_.size() && IsAsciiLetter(rtf_[at_])) ++at_;
  const std::string_view name = rtf_.substr(start, at_ - start);
  const bool negative = at_ < rtf_.size() && rtf_[at_] == '-';
  if (negative) ++at_;
  Parameter parameter;
  for (; at_ < rtf_.size() && IsDigit(rtf_[at_]); ++at_) {
    parameter =
        std::min(parameter.value_or(0) * std::int64_t{10} + (rtf_[at_] - '0'), std::int64_t{kMaxParameter});
  }
  if (negative && parameter) parameter = -*parameter;
  if (at_ < rtf_.size() && rtf_[at_] == ' ') ++at_;

  if (name == "bin") {
    at_ += std::min<std::size_t>(static_cast<std::size_t>(std::max(parameter.value_or(0), 0)),
                                 rtf_.size() - at_);
  }
  if (fallback_ > 0) {
    --fallback_;
    return;
  }
  if (Now().destination == Destination::kSkipped) return;
  if (std::find(std::begin(kAsides), std::end(kAsides), name) != std::end(kAsides)) {
    return Direct(Destination::kSkipped);
  }
  const auto word =
      std::find_if(std::begin(kWords), std::end(kWords), [name](const Word& w) { return w.name == name; });
  if (word != std::end(kWords)) (this->*word->action)(parameter);
}

void RtfReader::HexCharacter() {
  if (rtf_.size() - at_ < 2) return;
  const int high = HexDigit(rtf_[at_]);
  const int low = HexDigit(rtf_[at_ + 1]);
  if (high < 0 || low < 0) return;
  at_ += 2;
  const char character = static_cast<char>(high * 16 + low);
  if (Now().destination == Destination::kFontTable) {
    fontName_ += character;  // a ";" told so belongs to the name
  } else {
    Character(character);
  }
}

void RtfReader::Character(char character) {
  if (fallback_ > 0) {
    --fallback_;
    return;
  }
  switch (Now().destination) {
    case Destination::kText:
      Put(character);
      break;
    case Destination::kFontTable:
      if (character == ';') {
        EndFont();
      } else {
        fontName_ += character;
      }
      break;
    case Destination::kColorTable:
      if (character == ';') EndColor();
      break;
    case Destination::kSkipped:
      break;
  }
}

void RtfReader::Put(char character) {
  const Look& look = Now().look;
  if (shownLook_ != look) {
    shownLook_ = look;
    const auto font = fonts_.find(look.font.value_or(defaultFont_));
    format_.font = font == fonts_.end() ? base_.font : font->second;
    format_.size = look.halfPoints / 2.0;
    format_.bold = look.bold;
    format_.italic = look.italic;
    format_.underline = look.underline;
    const auto color = static_cast<std::size_t>(std::max(look.color, 0));
    format_.color = color < colors_.size() ? colors_[color].value_or(base_.color) : base_.color;
  }
  content_.Append(character == '\r' ? '\n' : character, format_);
}

// Sends the group's text elsewhere. The document's own group is never lost so.
void RtfReader::Direct(Destination destination) {
  if (groups_.size() > kDocumentDepth) Now().destination = destination;
}

void RtfReader::EndFont() {
  if (fontName_.empty()) return;
  fonts_[font_] = Trim(fontName_);
  fontName_.clear();
  shownLook_.reset();
}

// An entry that tells no colour stands for the reader's own.
void RtfReader::EndColor() {
  colors_.push_back(hasChannel_ ? std::optional(red_ | green_ << 8 | blue_ << 16) : std::nullopt);
  red_ = green_ = blue_ = 0;
  hasChannel_ = false;
  shownLook_.reset();
}

void RtfReader::Font(Parameter number) {
  if (Now().destination == Destination::kFontTable) {
    font_ = number.value_or(0);
  } else {
    Now().look.font = number.value_or(0);
  }
}

void RtfReader::Size(Parameter halfPoints) {
  const int size = halfPoints.value_or(kDefaultHalfPoints);
  if (size > 0 && size <= kMaxHalfPoints) Now().look.halfPoints = size;
}

void RtfReader::Break(Parameter) {
  Character('\n');
}

// A character by its code, told as a 16-bit number with a sign; one that the code page lacks is read from
// what stands in for it.
void RtfReader::Unicode(Parameter code) {
  if (!code) return;
  const int fallbackLength = Now().fallbackLength;
  const int byte = ByteOfCodePoint(static_cast<char32_t>(*code & 0xFFFF));
  if (byte >= 0) {
    Character(static_cast<char>(byte));
    fallback_ = fallbackLength;
  } else if (fallbackLength == 0) {
    Character('?');
  }
}

}  // namespace

bool IsRtf(std::string_view text) {
  return text.starts_with(kSignature);
}

// OPEN: a document ends each paragraph, and a text parts its lines; so the break at the document's end begins
// no further line.
StyledText ReadRtf(std::string_view rtf, const CharFormat& base) {
  StyledText text = RtfReader(rtf, base).Read();
  if (text.Text().ends_with('\n')) text.Erase(text.Text().size() - 1, 1);
  return text;
}

}  // namespace tessera
