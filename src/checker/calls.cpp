#include "checker/calls.h"

#include <algorithm>
#include <array>

#include "checker/commands.h"
#include "checker/near.h"
#include "checker/reading.h"
#include "checker/rehearsal.h"
#include "language/words.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

std::size_t Least(const Signature& signature) {
  std::size_t count = 0;
  for (std::size_t i = 0; i < signature.size(); ++i) {
    if (signature[i].need == Need::Required) count = i + 1;
  }
  return count;
}

// How the arguments of a word are written, as a manual shows them: without the letters of the kinds.
std::string ShownSignature(const Signature& signature) {
  std::string shown;
  for (std::size_t i = 0; i < signature.size(); ++i) {
    const Argument argument = signature[i];
    std::string one(argument.name);
    if (argument.need == Need::Repeated) one += "...";
    if (i > 0) shown += ", ";
    shown += argument.need == Need::Optional ? "[" + one + "]" : one;
  }
  return shown;
}

std::string Counted(std::size_t count) {
  return count == 1 ? "1 valor" : std::to_string(count) + " valores";
}

bool IsText(const Token& token) {
  return token.IsLiteral();
}

// A literal that can't be read as a number.
bool IsNoNumber(Tokens tokens) {
  if (tokens.size() != 1 || !IsText(tokens[0])) return false;
  return !WholeNumber(Bare(tokens[0])).has_value();
}

// Keywords of an argument: "ABRIR|SALVAR".
bool HasKeyword(std::string_view words, std::string_view upper) {
  while (!words.empty()) {
    const std::string_view word = words.substr(0, words.find('|'));
    if (word == upper) return true;
    words.remove_prefix(std::min(words.size(), word.size() + 1));
  }
  return false;
}

std::string KeywordList(std::string_view words) {
  std::string list;
  while (!words.empty()) {
    const std::string_view word = words.substr(0, words.find('|'));
    words.remove_prefix(std::min(words.size(), word.size() + 1));
    list += (list.empty() ? "" : words.empty() ? " ou " : ", ") + std::string(word);
  }
  return list;
}

std::string NearKeyword(std::string_view words, std::string_view written) {
  Nearest nearest(written);
  for (std::string_view rest = words; !rest.empty();) {
    const std::string_view word = rest.substr(0, rest.find('|'));
    nearest.Show(word);
    rest.remove_prefix(std::min(rest.size(), word.size() + 1));
  }
  if (!nearest.found().empty()) return "você quis dizer " + Shown(nearest.found()) + "?";
  return "escreva " + KeywordList(words);
}

}  // namespace

bool CheckCuts(Context& context, Tokens list, const Word* outer, bool outerIsUser, Place place) {
  // A command's list that begins and ends with a literal is taken for one, and not searched for calls.
  const bool looksLiteral = outer == nullptr && !outerIsUser && !list.empty() && list.front().IsLiteral() &&
                            list.back().IsLiteral();
  const bool isSpared = !looksLiteral && HoldsCallOf(trait::kTakesCommas, context.source.TextOf(list));
  std::size_t depth = 0;
  for (std::size_t i = 0; i + 1 < list.size(); ++i) {
    if (list[i].Is('(')) ++depth;
    if (list[i].Is(')')) --depth;
    if (!list[i].IsName() || !list[i + 1].Is('(')) continue;
    const std::size_t close = ClosingParen(list, i + 1);
    const Tokens inner = list.subspan(i + 2, std::min(close, list.size()) - i - 2);
    if (SplitAtCommas(inner).size() < 2) continue;
    const Word* word = FindWord(list[i].text);
    const bool isUser = context.names.FindFunction(list[i].text) != nullptr;
    bool isCut = false;
    if (isUser) {
      isCut = outer == nullptr || place != Place::RightSide || outerIsUser;
    } else if (word != nullptr && word->name == list[i].text) {
      const bool isReplacedBefore =
          (outer != nullptr && !outerIsUser && word < outer) || (outerIsUser && place != Place::RightSide);
      isCut = !isSpared && !isReplacedBefore;
    }
    if (!isCut) continue;
    context.Tell(rule::kCutAtComma, list[i],
                 "os valores são cortados nas vírgulas antes que " + Shown(list[i].text) + " seja chamada",
                 "guarde antes o resultado em uma variável: x = " +
                     ToUtf8(context.source.TextOf(list.subspan(i, close - i + 1))));
    return true;
  }
  return false;
}

namespace {

// An argument of a command is computed by itself; what stands in a call is computed with the call.
void CheckComputed(Context& context, Tokens tokens, const Sought& sought) {
  const std::size_t told = context.findings.size();
  CheckExpression(context, tokens, sought);
  if (context.findings.size() == told && context.callDepth == 0)
    Rehearse(context, tokens, Place::Argument, Type::Unknown);
}

Type TypeOfResult(const Word& word) {
  if (word.result == Result::Number) return Type::Number;
  return word.result == Result::Text ? Type::Text : Type::Unknown;
}

// Functions that give their text without quotes, so that it reads as a number where it is one.
bool GivesBareText(const Word& word) {
  return word.name == "TestaMouse" || word.name == "DecBin" || word.name == "Diretorio" ||
         word.name == "Mensagem" || word.name == "TestaTecla" || word.name == "SQL" || word.name == "Box" ||
         word.name == "API" || word.name == "Rel" || word.name == "Imp" || word.name == "Chame";
}

// Only a right side looks for the program's functions first: elsewhere the word of the language with which a
// name ends is called.
void CheckEnding(Context& context, const Token& name) {
  for (const Word& word : Words()) {
    if (!name.text.ends_with(word.name)) continue;
    context.Tell(rule::kRoutineNames, name,
                 "aqui " + Shown(name.text) + " chama " + Shown(word.name) +
                     ", a função da linguagem com que o nome termina",
                 "mude o fim do nome, ou guarde antes o resultado: x = " + ToUtf8(name.text) + "(...)");
    return;
  }
}

Type CheckUserCall(Context& context, const Token& name, Tokens list, const RoutineRef& function,
                   const Sought& sought, bool isAlone) {
  const Routine& routine = *function.routine;
  const std::vector<Tokens> arguments = SplitAtCommas(list);
  const Note declared{context.names.PlaceOf(function.editor, *routine.token), "a função é esta"};
  if (arguments.size() != routine.parameters) {
    const bool isFew = arguments.size() < routine.parameters;
    context.Tell(rule::kArgumentCount, name,
                 Shown(routine.name) + " leva " + Counted(routine.parameters) + ", e recebe " +
                     std::to_string(arguments.size()),
                 isFew ? "dê um valor a cada parâmetro" : "tire os valores que sobram", {declared});
  }
  if (sought.place != Place::RightSide || context.callDepth > 0) CheckEnding(context, name);
  if (arguments.empty() && (!isAlone || sought.place != Place::RightSide)) {
    context.Tell(rule::kLostBehindCall, name,
                 "uma função sem argumentos só pode ficar sozinha do lado direito de uma atribuição",
                 "guarde antes o resultado: x = " + ToUtf8(routine.name) + "()", {declared});
  }
  CheckCuts(context, list, nullptr, true, sought.place);
  ++context.callDepth;
  for (const Tokens argument : arguments)
    CheckExpression(context, argument, {.place = Place::Argument, .argument = "argumento"});
  --context.callDepth;
  if (routine.resultType == "Numero") return Type::Number;
  return TypeOf(routine.resultType);
}

// Functions that other languages have, and what does the same here.
struct ForeignFunction {
  std::string_view word;
  std::string_view advice;
};

constexpr std::array kForeignFunctions = std::to_array<ForeignFunction>({
    {"ABS", "use ValorAbsoluto(x)"},
    {"INT", "use ParteInteira(x)"},
    {"LEN", "use Comprimento(texto)"},
    {"MID", "use Separe(texto, 1, 3)"},
    {"LEFT", "use Separe(texto, 1, 3)"},
    {"RIGHT", "use Separe(texto, início)"},
    {"SQRT", "use RaizQuadrada(x)"},
    {"RAIZ", "use RaizQuadrada(x)"},
    {"ROUND", "use Arredonda(x, 2)"},
    {"POTENCIA", "escreva a ^ b"},
    {"POW", "escreva a ^ b"},
    {"RANDOM", "use Aleatorio(limite)"},
    {"RND", "use Aleatorio(limite)"},
    {"VAL", "use ValStr(texto)"},
    {"STR", "use ConvStr(x)"},
    {"CHR", "use Car(código)"},
    {"TRIM", "use Apara(texto)"},
    {"TAMANHO", "use Comprimento(texto)"},
    {"INSTR", "use PosIni(texto, procurado)"},
    {"FORMAT", "use Formata(x, \"0.00\")"},
    {"HOJE", "use Data()"},
    {"MOD", "o resto da divisão se escreve %: 7 % 2"},
});

void TellUnknownFunction(Context& context, const Token& name) {
  if (const RoutineRef* sub = context.names.FindSubAnyCase(name.upper)) {
    context.Tell(rule::kSubCall, name, Shown(name.text) + " é uma sub-rotina, e não dá um valor",
                 "chame-a em uma linha própria, ou faça dela uma função com Funcao e Retorne",
                 {{context.names.PlaceOf(sub->editor, *sub->routine->token), "a sub-rotina é esta"}});
    return;
  }
  for (const ForeignFunction& row : kForeignFunctions) {
    if (row.word != name.upper) continue;
    context.Tell(rule::kUnknownFunction, name, "não há função com o nome " + Shown(name.text),
                 std::string(row.advice));
    return;
  }
  Nearest nearest(name.text);
  for (const RoutineRef& function : context.names.functions()) nearest.Show(function.routine->name);
  for (const Variable& variable : context.names.variables()) {
    if (variable.isArray) nearest.Show(variable.name);
  }
  for (const Word& word : Words()) {
    if (word.role == Role::Value || word.role == Role::Both) nearest.Show(word.name);
  }
  context.Tell(rule::kUnknownFunction, name, "não há função nem vetor com o nome " + Shown(name.text),
               nearest.found().empty() ? "veja o nome, ou escreva a função atrás de FimPrograma"
                                       : "você quis dizer " + Shown(nearest.found()) + "?");
}

}  // namespace

Type CheckCall(Context& context, const Token& name, Tokens list, const Sought& sought, bool isAlone) {
  const Word* word = FindWord(name.text);
  if (word != nullptr && word->name == name.text) {
    if (word->result == Result::None && word->more.suffixes.empty()) {
      context.Tell(rule::kNoValue, name, Shown(word->name) + " não dá um valor",
                   "use este comando em uma linha própria");
      return Type::Unknown;
    }
    CheckCuts(context, list, word, false, sought.place);
    if (CheckValueOfObject(context, *word, name, list)) return Type::Unknown;
    ++context.callDepth;
    CheckArguments(context, *word, word->arguments, SplitAtCommas(list), name);
    --context.callDepth;
    return GivesBareText(*word) ? Type::Unknown : TypeOfResult(*word);
  }
  if (const RoutineRef* function = context.names.FindFunction(name.text))
    return CheckUserCall(context, name, list, *function, sought, isAlone);
  if (word != nullptr) {
    context.Tell(rule::kFunctionCase, name,
                 "em uma expressão o nome de uma função vale só como está no manual: " + Shown(name.text) +
                     " não é chamada",
                 "escreva " + Shown(word->name));
    return Type::Unknown;
  }
  if (const RoutineRef* function = context.names.FindFunctionAnyCase(name.upper)) {
    context.Tell(
        rule::kFunctionCase, name,
        "o nome de uma função vale só na caixa em que foi escrito: " + Shown(name.text) + " não é chamada",
        "escreva " + Shown(function->routine->name),
        {{context.names.PlaceOf(function->editor, *function->routine->token), "a função é esta"}});
    return Type::Unknown;
  }
  TellUnknownFunction(context, name);
  return Type::Unknown;
}

void CheckArguments(Context& context, const Word& word, const Signature& signature,
                    std::span<const Tokens> arguments, const Token& place) {
  const std::size_t least = Least(signature);
  const bool hasUsage = word.arguments.size() > 0 && signature.size() > 0;
  const std::string usage = hasUsage ? ": " + ShownSignature(signature) : "";
  if (arguments.size() < least) {
    context.Tell(rule::kTooFew, place,
                 "faltam valores a " + Shown(word.name) + ": leva " +
                     (signature.IsList() || least != signature.size() ? "ao menos " : "") + Counted(least) +
                     ", e recebe " + std::to_string(arguments.size()),
                 "escreva " + Quoted(std::string(word.name) + " " + ShownSignature(signature)));
    return;
  }
  if (!signature.IsList() && arguments.size() > signature.size()) {
    const Tokens extra = arguments[signature.size()];
    const bool isDecimal = std::any_of(arguments.begin(), arguments.end() - 1, [&](const Tokens& argument) {
      if (argument.empty() || !argument.back().IsNumber()) return false;
      const Tokens& next = *(&argument + 1);
      return !next.empty() && next[0].IsNumber() && !next[0].blankBefore;
    });
    context.Tell(rule::kTooMany, extra.empty() ? Tokens(&place, 1) : extra,
                 Shown(word.name) +
                     (signature.size() == 0 ? " não leva nenhum valor"
                                            : " leva no máximo " + Counted(signature.size())) +
                     ", e recebe " + std::to_string(arguments.size()),
                 isDecimal ? "a vírgula separa valores: um número com fração leva ponto, como 1.5"
                           : "tire os que sobram" + usage);
    return;
  }
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::size_t row = std::min(i, signature.size() - 1);
    if (arguments[i].empty()) {
      const bool isLast = i + 1 == arguments.size();
      const bool isNeeded = signature[row].need == Need::Required;
      if (isLast || isNeeded) {
        context.Tell(rule::kTooFew, place, "há uma vírgula sem valor em " + Shown(word.name),
                     "escreva o valor que falta, ou tire a vírgula");
        return;
      }
      continue;
    }
    CheckArgument(context, word, signature[row], arguments[i]);
  }
}

void CheckArgument(Context& context, const Word& word, const Argument& argument, Tokens tokens) {
  const Sought sought{.place = Place::Argument,
                      .kind = argument.kind,
                      .argument = argument.name,
                      .words = argument.words,
                      .word = &word};
  switch (argument.kind) {
    case Kind::AsWritten:
      return;
    case Kind::Keyword: {
      if (tokens.size() == 1 && (tokens[0].IsLiteral() || tokens[0].IsName())) {
        const std::string upper = Upper(Trim(Bare(tokens[0])));
        if (HasKeyword(argument.words, upper)) return;
        if (tokens[0].IsName() && TypeOfName(context, tokens[0]) == Type::Text)
          return CheckLocalName(context, tokens[0]);
        context.Tell(rule::kUnknownKeyword, tokens[0],
                     Shown(Bare(tokens[0])) + " não é uma palavra para " + Quoted(argument.name) + " de " +
                         Shown(word.name),
                     NearKeyword(argument.words, Bare(tokens[0])));
        return;
      }
      if (tokens.size() == 1 && tokens[0].IsNumber()) {
        context.Tell(rule::kUnknownKeyword, tokens[0],
                     Quoted(argument.name) + " de " + Shown(word.name) + " não é um número",
                     NearKeyword(argument.words, ""));
        return;
      }
      CheckExpression(context, tokens, sought);
      return;
    }
    case Kind::Variable:
      if (tokens.size() != 1 || !tokens[0].IsName() ||
          (context.names.FindVariable(tokens[0].upper) == nullptr &&
           context.FindLocalAnyCase(tokens[0].upper) == nullptr)) {
        context.Tell(rule::kWrongKind, tokens, Shown(word.name) + " quer aqui o nome de uma variável",
                     "declare uma variável String e ponha o seu nome");
      }
      return;
    case Kind::Number:
      if (IsNoNumber(tokens) && !IsSpokenWord(sought, Upper(Bare(tokens[0])))) {
        context.Tell(rule::kWrongKind, tokens,
                     Quoted(argument.name) + " de " + Shown(word.name) + " é um número, e recebe o texto " +
                         Shown(Bare(tokens[0])),
                     "ponha um número; a ordem é " +
                         Quoted(std::string(word.name) + " " + ShownSignature(word.arguments)));
        return;
      }
      CheckComputed(context, tokens, sought);
      return;
    case Kind::Text:
    case Kind::Path: {
      const bool isSum =
          std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return t.IsOperator(); }) &&
          std::none_of(tokens.begin(), tokens.end(), [](const Token& t) {
            return t.Is('(') || t.IsLiteral() || t.Is('.') || t.Is('\\') || t.Is(':');
          });
      if (isSum && argument.kind == Kind::Text) {
        context.Tell(rule::kWrongKind, tokens,
                     Quoted(argument.name) + " de " + Shown(word.name) + " é um texto, que não é calculado",
                     "guarde antes o resultado da conta em uma variável");
        return;
      }
      if (argument.kind == Kind::Path && tokens.size() > 1 && !tokens[0].IsLiteral() &&
          std::any_of(tokens.begin(), tokens.end(),
                      [](const Token& t) { return t.Is('\\') || t.Is(':') || t.Is('.'); }))
        return;
      CheckExpression(context, tokens, sought);
      if (word.name == "Formata" && argument.name == "formato") CheckFormat(context, tokens);
      return;
    }
    case Kind::Value:
      CheckComputed(context, tokens, sought);
      return;
  }
}

}  // namespace tessera::check
