#include "objects/texto.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "controls/key_code.h"
#include "controls/numeric_filter.h"
#include "objects/object_frame.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr ControlPlace kLineSize = {.Width = 120, .Height = 20};
constexpr ControlPlace kLinesSize = {.Width = 240, .Height = 80};
constexpr std::string_view kMultiLine = "MultiLine";
constexpr std::string_view kNumeric = "NUMERICO";
constexpr std::string_view kTxt = ".Txt";
constexpr std::chrono::milliseconds kCopyInterval{5};

std::size_t CountOf(const Value& value) {
  return static_cast<std::size_t>(std::max(value.ToInteger(), 0));
}

Value Txt(const SuffixCall& call) {
  static_cast<Texto&>(call.family).SetText(call.As<TextoControl>(), call.Word());
  return {};
}

Value TextoRtf(const SuffixCall& call) {
  auto& entry = call.As<TextoControl>();
  if (call.arguments.Part(1) != "=") return Quote(entry.State().TextRTF());
  entry.SetTextRTF(call.Text());
  call.family.OnChange(entry);
  return {};
}

// Start, length, font, size, "NEGRITO", colour; without any of them the whole text.
Value Seleciona(const SuffixCall& call) {
  auto& entry = call.As<TextoControl>();
  const std::vector<std::string> values = call.Values();
  if (values.empty()) {
    entry.Select(0, entry.Text().size());
    return {};
  }
  const auto isGiven = [&](ArgumentName name) {
    const std::size_t place = call.form.arguments.PlaceOf(name);
    return place < values.size() && !values[place].empty();
  };
  entry.Select(CountOf(call.Nth("início")), isGiven("tamanho") ? CountOf(call.Nth("tamanho")) : 0);
  FormatChange change;
  if (isGiven("fonte")) {
    change.font = EvalText(call.run, values[call.form.arguments.PlaceOf("fonte")]).ToText();
  }
  if (isGiven("altura")) change.size = call.Nth("altura").ToDouble();
  if (isGiven("negrito") && Upper(call.Nth("negrito").ToText()) == "NEGRITO") change.bold = true;
  if (isGiven("cor")) change.color = call.Nth("cor").ToInteger();
  entry.SetSelFormat(change);
  return {};
}

Value Justifica(const SuffixCall& call) {
  call.As<TextoControl>().SetAlignment(suffix::AlignmentOf(call));
  return {};
}

Value Maximo(const SuffixCall& call) {
  call.As<TextoControl>().SetMaxLength(CountOf(call.Number()));
  return {};
}

Value MargemDireita(const SuffixCall& call) {
  call.As<TextoControl>().SetRightMargin(call.Number().ToInteger());
  return {};
}

Value PosCursor(const SuffixCall& call) {
  call.As<TextoControl>().Select(CountOf(call.Number()), 0);
  return {};
}

Value Numerico(const SuffixCall& call) {
  call.As<TextoControl>().SetTag(call.Word() == "SIM" ? kNumeric : "");
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".TXT", Txt},
    {".TEXTORTF", TextoRtf},
    {".SELECIONA", Seleciona},
    {".JUSTIFICA", Justifica},
    {".MAXIMO", Maximo},
    {".MARGEMDIREITA", MargemDireita},
    {".POSCURSOR", PosCursor},
    {".NUMERICO", Numerico},
};

}  // namespace

// The control

TextoControl::TextoControl(Form& form, ControlEvents& events, int index, bool multiLine)
    : Control(form, events, index, multiLine ? kLinesSize : kLineSize) {
  text_.SetMultiLine(multiLine);
  SetBackColor(kWindowColour);
  FontChanged();
}

void TextoControl::SetText(std::string_view text) {
  text_.SetText(text);
  Refresh();
}

void TextoControl::SetTextRTF(std::string_view rtf) {
  text_.SetTextRTF(rtf);
  Refresh();
}

void TextoControl::SetForeColor(Colour colour) {
  const FormatChange change{.color = colour};
  if (text_.SelLength() > 0) return SetSelFormat(change);
  text_.SetFormat(change);
  Control::SetForeColor(colour);
}

void TextoControl::Select(std::size_t start, std::size_t length) {
  text_.SetSelStart(start);
  text_.SetSelLength(length);
  Refresh();
}

void TextoControl::SetSelFormat(const FormatChange& change) {
  text_.SetSelFormat(change);
  Refresh();
}

void TextoControl::SetAlignment(TextAlign alignment) {
  text_.SetAlignment(alignment);
  Refresh();
}

void TextoControl::SetRightMargin(int pixels) {
  text_.SetRightMargin(pixels);
  Refresh();
}

void TextoControl::PlaceCaret(std::size_t anchor, std::size_t caret) {
  text_.Select(anchor, caret);
  Refresh();
}

// What a filter would not let in comes in by no other way.
void TextoControl::Paste(std::string_view text) {
  if (tag_ == kNumeric) {
    for (const char character : WithoutGroupMarks(text)) OnKeyPress(character);
    return;
  }
  Changed(text_.Paste(text));
}

void TextoControl::ReplaceText(std::string_view text) {
  text_.SelectAll();
  OnKeyDown(key::kDelete, {});
  for (const char character : text) OnKeyPress(character);
}

void TextoControl::OnKeyDown(int keyCode, KeyShift shift) {
  // With Ctrl no window takes the key for itself, and the line is broken all the same.
  if (keyCode == key::kEnter && shift.ctrl) return OnKeyPress(key::kEnter);
  const TextLayout* layout = View() == nullptr ? nullptr : View()->Layout();
  Changed(text_.KeyDown(keyCode, shift.shift, shift.ctrl, layout));
}

void TextoControl::OnKeyPress(char character) {
  const std::optional<char> typed =
      tag_ == kNumeric ? NumericFilter(text_.Text(), text_.SelStart(), character) : character;
  Changed(typed && text_.KeyPress(*typed));
}

void TextoControl::Changed(bool textChanged) {
  Refresh();
  if (textChanged) Events().OnChange(*this);
}

void TextoControl::FontChanged() {
  text_.SetFormat({.font = Font().name, .size = Font().size, .bold = Font().bold, .italic = Font().italic});
}

// The family

Texto::Texto(ObjectFrame& frame) : ObjectFamily(frame, "Texto", kSuffixes, suffix::kOfEntries) {}

std::string Texto::ArrayFor(const Arguments& arguments) {
  const bool isTall = !arguments.IsEmpty("linhas") && arguments.Number("linhas").ToDouble() >= 3;
  return isTall ? std::string(kMultiLine) : ObjectFamily::ArrayFor(arguments);
}

std::shared_ptr<Control> Texto::NewControl(Form& form, std::string_view array, int index) {
  return std::make_shared<TextoControl>(form, *this, index, array == kMultiLine);
}

void Texto::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  Place(control, arguments);
  SetWidth(control, arguments);
  const bool isOneLine = !arguments.IsEmpty("linhas") && arguments.Number("linhas").ToDouble() == 1;
  if (!isOneLine) SetHeight(control, arguments, "linhas");
  static_cast<TextoControl&>(control).SetText("");
  WakeCopying();
}

void Texto::SetText(TextoControl& entry, std::string_view text) {
  entry.SetText(text);
  OnChange(entry);
}

// OPEN: what a person types is there before the timer comes by, however soon the program looks.
void Texto::OnChange(Control& control) {
  TellCompanion(control, kTxt, static_cast<TextoControl&>(control).Text());
}

void Texto::CopyTexts() {
  if (!Copy()) Timer2_.reset();
}

bool Texto::Copy() {
  bool differed = false;
  for (const ObjectRow& row : Rows()) {
    const auto entry = std::static_pointer_cast<TextoControl>(row.object.lock());
    if (row.name.empty() || !entry) continue;
    const std::string variable = row.name + std::string(kTxt);
    VariableStore& variables = run().variables;
    if (variables.VarFind(variable) < 0 || variables.VarRead(variable).ToText() == entry->Text()) continue;
    differed = true;
    OnChange(*entry);
  }
  return differed;
}

void Texto::WakeCopying() {
  const bool isInUse = std::any_of(Rows().begin(), Rows().end(), [](const ObjectRow& row) {
    return !row.name.empty() && !row.object.expired();
  });
  if (isInUse && !Timer2_) {
    Timer2_ = run().host.events.StartTimer(kCopyInterval, [this] { CopyTexts(); });
  }
}

void Texto::Reset() {
  ObjectFamily::Reset();
  Timer2_.reset();
}

}  // namespace tessera
