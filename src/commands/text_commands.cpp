#include "commands/text_commands.h"

#include <limits>

#include "commands/arguments.h"
#include "platform/failure.h"
#include "text/format.h"
#include "text/format_standard.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// A position in a text, from 1.
Position PositionOf(std::int32_t number) {
  if (number < 1) FailArgument();
  return static_cast<Position>(number);
}

std::size_t LengthOf(std::int32_t number) {
  if (number < 0) FailArgument();
  return static_cast<std::size_t>(number);
}

Value Unir(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kListOfArguments);
  std::string joined;
  for (std::size_t i = 0; i < kListOfArguments && !arguments.IsEmpty(i); ++i) {
    joined += arguments.Number(i).ToText();
  }
  return Quote(joined);
}

Value Separe(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kThreeArguments);
  const std::string source = arguments.Text(0);
  const Position start = PositionOf(arguments.Number(1).ToShort());
  const auto length = arguments.OptionalNumber(2);
  return Quote(length ? Mid(source, start, LengthOf(length->ToShort())) : Mid(source, start));
}

Value Comprimento(Run& run, std::string_view text) {
  return static_cast<std::int32_t>(Arguments(run, text, kTwoArguments).Text(0).size());
}

Value Apara(Run& run, std::string_view text) {
  return Quote(Trim(Arguments(run, text, kTwoArguments).Text(0)));
}

Value Asc(Run& run, std::string_view text) {
  const std::string source = Arguments(run, text, kTwoArguments).Text(0);
  if (source.empty()) FailArgument();
  return std::int32_t{static_cast<unsigned char>(source.front())};
}

Value Car(Run& run, std::string_view text) {
  const std::int32_t code = Arguments(run, text, kTwoArguments).Number(0).ToInteger();
  if (code < 0 || code > std::numeric_limits<unsigned char>::max()) FailArgument();
  return Quote(std::string(1, static_cast<char>(code)));
}

Value Sequencia(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  const std::size_t count = LengthOf(arguments.Number(0).ToShort());
  const Value character = arguments.Number(1);
  if (const std::string* first = character.AsText()) {
    if (first->empty()) FailArgument();
    return Quote(std::string(count, first->front()));
  }
  // OPEN: a code above 255 goes around, as repeating commands of this kind do, while `Car` refuses it.
  const std::int32_t code = character.ToInteger();
  if (code < 0) FailArgument();
  return Quote(std::string(count, static_cast<char>(code % 256)));
}

// OPEN: a start below 1 is failure 5 in both directions, as in `Separe`.
Value PosIni(Run& run, std::string_view text) {
  constexpr std::string_view kBackwards = "INVER";
  const Arguments arguments(run, text, kFiveArguments);
  const std::string source = arguments.Text(0);
  const std::string sought = arguments.Text(1);
  const std::string mode = arguments.Text(2);
  Position found = 0;
  if (Upper(Left(mode, kBackwards.size())) == kBackwards) {
    // The last occurrence that ends by the given position.
    const auto from = arguments.OptionalNumber(3);
    const Position end = from ? PositionOf(from->ToInteger()) : source.size();
    const std::string_view searched = Left(source, end);
    if (sought.size() <= searched.size()) {
      found = FindBack(searched, sought, searched.size() - sought.size() + 1);
    }
  } else {
    const Position start = mode.empty() ? 1 : PositionOf(Value(mode).ToInteger());
    found = Find(source, sought, start);
  }
  return static_cast<std::int32_t>(found);
}

// OPEN: a start behind the text's end changes nothing, since the text never grows.
Value Sobreponha(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kFiveArguments);
  std::string target = arguments.Text(0);
  const std::string over = arguments.Text(1);
  const Position start = PositionOf(arguments.Number(2).ToInteger());
  const auto given = arguments.OptionalNumber(3);
  const std::size_t length = given ? LengthOf(given->ToInteger()) : 0;

  const std::string_view written = length == 0 ? std::string_view(over) : Left(over, length);
  if (start <= target.size()) {
    const std::size_t room = target.size() - start + 1;
    const std::string_view fitting = Left(written, room);
    target.replace(start - 1, fitting.size(), fitting);
  }
  run.variables.VarWrite(arguments.Raw(0), std::move(target), true);
  return {};
}

Value ConvStr(Run& run, std::string_view text) {
  return Quote(Trim(Arguments(run, text, kTwoArguments).Number(0).ToText()));
}

// A text of marked parentheses reads plain: what stands between the first "]" and the first "[" is kept, and
// the marks around it go.
std::string WithoutMarks(std::string_view text) {
  const Position open = Find(text, "(");
  const Position inside = Find(text, "]");
  const Position behind = Find(text, "[");
  const Position close = Find(text, ")");
  const bool marked = 0 < open && open < inside && inside < behind && behind < close;
  if (!marked) return std::string(text);
  return std::string(Left(text, open))
      .append(Mid(text, inside + 1, behind - inside - 1))
      .append(Mid(text, close));
}

Value ValStr(Run& run, std::string_view text) {
  const Arguments arguments(run, text, kTwoArguments);
  return LeadingNumber(EvalText(run, WithoutMarks(arguments.Raw(0))).ToText());
}

// The value's text with digits in their places. OPEN: a float's exponent is written out, so that `PADRAO`
// shows 0,00001 and not the digits of "1E-05".
std::string PositionalText(const Value& value) {
  if (const double* number = value.AsDouble()) {
    if (const auto exact = ExactDecimal::FromDouble(*number)) return exact->ToText();
  }
  return value.ToText();
}

Value Formata(Run& run, std::string_view text) {
  constexpr std::size_t kPadraoPlaces = 2;
  const Arguments arguments(run, text, kTwoArguments);
  const Value value = arguments.Number(0);
  const std::string format = arguments.Text(1);
  if (Upper(format) == "PADRAO") {
    std::string number = PositionalText(value);
    if (const std::size_t comma = number.find(','); comma != std::string::npos) number[comma] = '.';
    const auto formatted = FormatStandard(number, kPadraoPlaces);
    if (!formatted) FailArgument();
    return Quote(*formatted);
  }
  const auto formatted = FormatText(value.ToText(), format);
  if (!formatted) FailOverflow();
  return Quote(*formatted);
}

constexpr CommandRow kRows[] = {
    {"UNIR", Unir},
    {"SEPARE", Separe},
    {"COMPRIMENTO", Comprimento},
    {"APARA", Apara},
    {"ASC", Asc},
    {"SEQUENCIA", Sequencia},
    {"POSINI", PosIni},
    {"POSICAOINICIAL", PosIni},
    {"SOBREPONHA", Sobreponha},
    {"CONVSTR", ConvStr},
    {"VALSTR", ValStr},
    {"FORMATA", Formata},
};

}  // namespace

void AddTextCommands(CommandTable& table, Run& run) {
  AddRows(table, run, kRows);
  table.AddPrefix("CAR",
                  [&run](std::string_view, std::string_view arguments) { return Car(run, arguments); });
}

}  // namespace tessera
