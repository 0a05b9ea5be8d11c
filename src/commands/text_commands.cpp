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

Value Unir(const WordCall& call) {
  return Quote(Arguments(call).Joined("valor"));
}

Value Separe(const WordCall& call) {
  const Arguments arguments(call);
  const std::string source = arguments.Text("texto");
  const std::int16_t start = arguments.Number("início").ToShort();
  const auto given = arguments.OptionalNumber("tamanho");
  if (!given) return Quote(Mid(source, PositionOf(start)));
  const std::int16_t length = given->ToShort();
  return Quote(Mid(source, PositionOf(start), LengthOf(length)));
}

Value Comprimento(const WordCall& call) {
  return static_cast<std::int32_t>(Arguments(call).Text("texto").size());
}

Value Apara(const WordCall& call) {
  return Quote(Trim(Arguments(call).Text("texto")));
}

Value Asc(const WordCall& call) {
  const std::string source = Arguments(call).Text("texto");
  if (source.empty()) FailArgument();
  return std::int32_t{static_cast<unsigned char>(source.front())};
}

Value Car(const WordCall& call) {
  const std::int32_t code = Arguments(call).Number("código").ToInteger();
  if (code < 0 || code > std::numeric_limits<unsigned char>::max()) FailArgument();
  return Quote(std::string(1, static_cast<char>(code)));
}

Value Sequencia(const WordCall& call) {
  const Arguments arguments(call);
  const std::int16_t given = arguments.Number("quantidade").ToShort();
  const Value character = arguments.Number("caractere");
  const std::size_t count = LengthOf(given);
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
Value PosIni(const WordCall& call) {
  constexpr std::string_view kBackwards = "INVER";
  const Arguments arguments(call);
  const std::string source = arguments.Text("texto");
  const std::string sought = arguments.Text("procurado");
  const std::string mode = arguments.Text("início ou modo");
  Position found = 0;
  if (Upper(Left(mode, kBackwards.size())) == kBackwards) {
    // The last occurrence that ends by the given position.
    const auto from = arguments.OptionalNumber("início");
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
Value Sobreponha(const WordCall& call) {
  const Arguments arguments(call);
  std::string target = arguments.Text("variável");
  const std::string over = arguments.Text("texto");
  const std::int32_t from = arguments.Number("início").ToInteger();
  const auto given = arguments.OptionalNumber("tamanho");
  const Position start = PositionOf(from);
  const std::size_t length = given ? LengthOf(given->ToInteger()) : 0;

  const std::string_view written = length == 0 ? std::string_view(over) : Left(over, length);
  if (start <= target.size()) {
    const std::size_t room = target.size() - start + 1;
    const std::string_view fitting = Left(written, room);
    target.replace(start - 1, fitting.size(), fitting);
  }
  call.run.variables.VarWrite(arguments.Raw("variável"), std::move(target), true);
  return {};
}

Value ConvStr(const WordCall& call) {
  return Quote(Trim(Arguments(call).Number("valor").ToText()));
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

Value ValStr(const WordCall& call) {
  const Arguments arguments(call);
  return LeadingNumber(EvalText(call.run, WithoutMarks(arguments.Raw("texto"))).ToText());
}

// The value's text with digits in their places. OPEN: a float's exponent is written out, so that `PADRAO`
// shows 0,00001 and not the digits of "1E-05".
std::string PositionalText(const Value& value) {
  if (const double* number = value.AsDouble()) {
    if (const auto exact = ExactDecimal::FromDouble(*number)) return exact->ToText();
  }
  return value.ToText();
}

Value Formata(const WordCall& call) {
  constexpr std::size_t kPadraoPlaces = 2;
  const Arguments arguments(call);
  const Value value = arguments.Number("valor");
  const std::string format = arguments.Text("formato");
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

constexpr PlainRow kRows[] = {
    {"Unir", Unir},
    {"Separe", Separe},
    {"Comprimento", Comprimento},
    {"Apara", Apara},
    {"Asc", Asc},
    {"Sequencia", Sequencia},
    {"PosIni", PosIni},
    {"PosicaoInicial", PosIni},
    {"Sobreponha", Sobreponha},
    {"ConvStr", ConvStr},
    {"ValStr", ValStr},
    {"Formata", Formata},
    {"Car", Car},
};

}  // namespace

void BindTextCommands(CommandTable& table) {
  Bind(table, kRows);
}

}  // namespace tessera
