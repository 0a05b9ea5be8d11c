#include "checker/reading.h"

#include <algorithm>

#include "checker/near.h"
#include "language/types.h"
#include "language/words.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

bool HasAccent(std::string_view name) {
  return std::any_of(name.begin(), name.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
}

// The function, in its exact case, with which a name ends; empty for none. Only words that expressions are
// searched for.
std::string_view EndingFunction(const Context& context, std::string_view name) {
  for (const Word& word : Words()) {
    if (name.ends_with(word.name)) return word.name;
  }
  for (std::size_t begin = 0; begin < name.size(); ++begin) {
    if (context.names.FindFunction(name.substr(begin)) != nullptr) return name.substr(begin);
  }
  return {};
}

// What a bare word may be where a text or a file is wanted: the system's own names, and names of things.
bool IsNameOfAThing(const Sought& sought) {
  return sought.argument == "banco" || sought.argument == "apelido" || sought.argument == "campo" ||
         sought.argument == "raiz" || sought.argument == "entrada";
}

bool IsStockName(std::string_view upper) {
  return upper.starts_with("FIG") || upper.starts_with("IMG") || upper.starts_with("GIF");
}

bool IsTruth(const Token& name) {
  return name.upper == "TRUE" || name.upper == "FALSE" || name.upper == "VERDADEIRO" || name.upper == "FALSO";
}

// A file's name that somebody wrote without quotes, and that the language takes as it stands.
bool IsBareFile(const Context& context, const Token& name, const Sought& sought) {
  if (sought.kind != Kind::Path && sought.kind != Kind::Text) return false;
  return Contains(name.text, ".") &&
         context.names.FindDatabase(Left(name.upper, name.text.find('.'))) == nullptr;
}

std::string ColourOrVariable(const Sought& sought) {
  return sought.argument == "cor" || sought.argument == "inicial" || sought.argument == "final"
             ? "a cor"
             : "a variável";
}

}  // namespace

const Local* Context::FindLocal(std::string_view name) const {
  if (routine == nullptr) return nullptr;
  for (const Local& local : routine->locals) {
    if (local.name == name) return &local;
  }
  return nullptr;
}

const Local* Context::FindLocalAnyCase(std::string_view upper) const {
  if (routine == nullptr) return nullptr;
  for (const Local& local : routine->locals) {
    if (EqualsIgnoringCase(local.name, upper)) return &local;
  }
  return nullptr;
}

bool IsSpokenWord(const Sought& sought, std::string_view upper) {
  if (sought.word == nullptr) return false;
  const std::string_view word = sought.word->name;
  if (word == "Escreva") return upper == "TITULOJANELA";
  if (word == "API") return upper == "HWND" || upper == "HDC";
  if (word == "Mensagem") return upper == "OPCAOSIMNAO";
  if (sought.argument == "fundo") return upper == "VAZIO" || IsStockName(upper);
  if (sought.argument == "figura" || sought.argument == "imagem" || sought.kind == Kind::Path)
    return IsStockName(upper) || upper == "VAZIO";
  if (sought.argument == "linhas" || sought.argument == "colunas") return upper == "MAXIMO";
  if (sought.argument == "linha" || sought.argument == "coluna") return upper == "CENTRO";
  if (sought.argument == "início ou modo") return upper.starts_with("INVER");
  return false;
}

std::string NearVariable(const Context& context, std::string_view written) {
  Nearest nearest(written);
  if (context.routine != nullptr) {
    for (const Local& local : context.routine->locals) nearest.Show(local.name);
  }
  for (const Variable& variable : context.names.variables()) nearest.Show(variable.name);
  if (nearest.found().empty()) return {};
  return "você quis dizer " + Shown(nearest.found()) + "?";
}

Type TypeOf(std::string_view typeWord) {
  if (typeWord == kTypeString) return Type::Text;
  if (typeWord == kTypeInteiro || typeWord == kTypeDecimal) return Type::Number;
  return Type::Unknown;
}

Type TypeOfName(const Context& context, const Token& name) {
  if (const Local* local = context.FindLocalAnyCase(name.upper)) return TypeOf(local->type);
  const Variable* variable = context.names.FindVariable(name.upper);
  return variable == nullptr ? Type::Unknown : TypeOf(variable->type);
}

std::string StepAdvice(const Token& name, char sign) {
  return "escreva " + Shown(std::string(name.text) + " " + sign + "= 1");
}

void CheckLocalName(Context& context, const Token& name) {
  const Local* local = context.FindLocalAnyCase(name.upper);
  if (local == nullptr || context.routine == nullptr || !context.routine->isFunction) return;
  const char* const what = local->isParameter ? "o parâmetro " : "a variável da função ";
  const char* const unknown = local->isParameter ? "não é reconhecido" : "não é reconhecida";
  const Note declared{context.source.SpanOf(*local->token), "declarado aqui"};
  if (local->name != name.text) {
    context.Tell(rule::kParameterName, name,
                 what + Shown(local->name) + " vem em outra caixa aqui, e " + unknown,
                 "escreva " + Shown(local->name) + ", exatamente como na declaração", {declared});
    return;
  }
  const std::string_view text = context.source.text();
  const char before = text[name.offset - 1];  // the routine's head is further above
  const char behind = name.End() >= text.size() ? '\r' : text[name.End()];
  const bool isFirst = &name == context.tokens.data();
  // A relational sign gets its blanks from preparation: on both sides, or, with a blank before it, on none.
  const bool signBefore = before == '=' || before == '<' || before == '>';
  const char beforeSign = text[name.offset - 2];
  const bool beforeIsWell = isFirst || name.blankBefore || before == '(' ||
                            (signBefore && (beforeSign != ' ' || before != '=')) ||
                            (signBefore && (beforeSign == '<' || beforeSign == '>'));
  const bool behindIsWell = name.blankBehind || behind == ',' || behind == ')' || behind == '=' ||
                            behind == '<' || behind == '>' || behind == ';' || behind == '\r' ||
                            behind == '\'';
  if (beforeIsWell && behindIsWell) return;
  const std::string sign = std::string(1, beforeIsWell ? behind : before);
  const std::string_view rest = text.substr(std::min(name.End(), text.size()));
  const bool isStep = isFirst && (rest.starts_with("++") || rest.starts_with("--"));
  context.Tell(rule::kParameterName, name,
               what + Shown(name.text) + " encosta em " + Shown(sign) + ", e assim " + unknown,
               isStep ? StepAdvice(name, behind)
                      : "deixe um branco de cada lado: os nomes de uma função só são reconhecidos entre "
                        "brancos, vírgulas ou parênteses",
               {declared});
}

bool TellEnding(Context& context, const Token& name, const Sought& sought) {
  if (sought.place == Place::Joined) return false;
  const std::string_view function = EndingFunction(context, name.text);
  if (function.empty()) return false;
  const std::string ending =
      function == name.text ? " é o de uma função" : " termina com a função " + Shown(function);
  context.Tell(
      rule::kNameEndsInWord, name,
      "o nome " + Shown(name.text) + ending + ", que é chamada aqui no lugar da variável",
      "mude o nome da variável: com um branco ou um parêntese atrás, o fim do nome vale como a função");
  return true;
}

Type ReadName(Context& context, const Token& name, const Sought& sought, bool isAlone, bool inSum) {
  const bool isFollowed = !isAlone && name.blankBehind;
  if (context.FindLocalAnyCase(name.upper) != nullptr) {
    if (isFollowed && TellEnding(context, name, sought)) return Type::Unknown;
    CheckLocalName(context, name);
    return TypeOfName(context, name);
  }
  if (const Variable* variable = context.names.FindVariable(name.upper)) {
    if (isFollowed && TellEnding(context, name, sought)) return Type::Unknown;
    if (inSum && HasAccent(name.text)) {
      context.Tell(rule::kAccentInSum, name,
                   "uma conta só conhece nomes sem acentos: de " + Shown(name.text) + " ela lê uma parte",
                   "tire o acento do nome da variável");
    }
    return TypeOf(variable->type);
  }
  if (const Word* word = FindWord(name.text);
      word != nullptr &&
      (word->role == Role::Value || (word->role == Role::Both && word->more.suffixes.empty()))) {
    if (IsSpokenWord(sought, name.upper) || IsNameOfAThing(sought)) return Type::Unknown;
    context.Tell(rule::kFunctionParens, name,
                 "a função " + Shown(word->name) + " está sem os seus parênteses",
                 "escreva " + Shown(std::string(word->name) + "()") +
                     (word->arguments.size() > 0 ? ", com os valores entre os parênteses" : ""));
    return Type::Unknown;
  }
  if (const RoutineRef* function = context.names.FindFunctionAnyCase(name.upper)) {
    context.Tell(rule::kFunctionParens, name,
                 "a função " + Shown(function->routine->name) + " está sem os seus parênteses",
                 "chame-a com parênteses: " + Shown(std::string(function->routine->name) + "(...)"),
                 {{context.names.PlaceOf(function->editor, *function->routine->token), "a função é esta"}});
    return Type::Unknown;
  }
  if (isAlone && (IsSpokenWord(sought, name.upper) || IsNameOfAThing(sought) ||
                  sought.kind == Kind::AsWritten || IsBareFile(context, name, sought)))
    return Type::Unknown;
  const bool isTruth = name.upper == "VERDADEIRO" || name.upper == "FALSO" || name.upper == "SIM" ||
                       name.upper == "NAO" || name.upper == "OK" || name.upper == "EOF" ||
                       name.upper == "BOF";
  if (isAlone && isTruth && name.text == name.upper) return Type::Text;
  if (Contains(name.text, ".") && context.names.objectsAreNamedByVariables()) return Type::Unknown;
  const std::string near = NearVariable(context, name.text);
  context.Tell(rule::kUndeclared, name,
               ColourOrVariable(sought) + " " + Shown(name.text) + " não foi declarada",
               IsTruth(name)  ? "não há valores lógicos: compare com 1 e 0, ou com \"SIM\" e \"NAO\""
               : near.empty() ? "declare-a com Var, ou ponha o texto entre aspas"
                              : near);
  return Type::Unknown;
}

Type ReadElement(Context& context, const Token& name, Tokens index) {
  if (context.FindLocalAnyCase(name.upper) != nullptr) {
    return TypeOfName(context, name);
  }
  const Variable* variable = context.names.FindVariable(name.upper);
  const Type type = variable == nullptr ? Type::Unknown : TypeOf(variable->type);
  if (index.empty()) {
    context.Tell(rule::kComputedIndex, name, "falta o índice de " + Shown(name.text),
                 "escreva um número ou uma variável");
    return type;
  }
  const bool isPlain = index.size() == 1 && (index[0].IsNumber() || index[0].IsName());
  if (!isPlain) {
    context.Tell(rule::kComputedIndex, index,
                 "um índice é um número ou o nome de uma variável: " + Shown(context.source.TextOf(index)) +
                     " não é calculado",
                 "guarde antes o índice em uma variável Inteiro");
    return type;
  }
  const std::string_view text = context.source.text();
  if (text[index[0].offset - 1] == ' ' || text[index[0].End()] == ' ') {
    context.Tell(rule::kComputedIndex, index, "há um branco junto ao índice de " + Shown(name.text),
                 "escreva o índice encostado nos parênteses: " +
                     Shown(std::string(name.text) + "(" + std::string(index[0].text) + ")"));
    return type;
  }
  if (index[0].IsName()) {
    const Type indexType = ReadName(context, index[0], {.place = Place::Argument}, true, false);
    const Variable* number = context.names.FindVariable(index[0].upper);
    const Local* local = context.FindLocal(index[0].text);
    const std::string_view indexWord = local != nullptr ? local->type : number != nullptr ? number->type : "";
    if (indexType != Type::Unknown && indexWord != kTypeInteiro) {
      context.Tell(rule::kComputedIndex, index,
                   "o índice " + Shown(index[0].text) + " é uma variável " + std::string(indexWord) +
                       "; só uma variável Inteiro serve",
                   "declare-a como Inteiro, ou copie-a antes para uma variável Inteiro");
    }
    return type;
  }
  const std::int64_t number = IntegerOf(index[0]);
  if (variable != nullptr && variable->origin == Origin::Declared && variable->count > 0 &&
      number >= variable->count) {
    std::vector<Note> notes;
    notes.push_back({context.names.PlaceOf(variable->editor, *variable->token), "declarada aqui"});
    const std::string last = std::to_string(variable->count - 1);
    const std::string last_ = variable->isArray
                                  ? "os elementos de " + Shown(variable->name) + " vão de 0 a " + last
                                  : Shown(variable->name) + " não é um vetor";
    context.Tell(rule::kIndexBeyond, index, last_ + "; o índice " + std::to_string(number) + " está fora",
                 variable->isArray
                     ? "use um índice até " + last + ", ou declare mais elementos"
                     : "declare-a com o número de elementos: Var " + ToUtf8(variable->name) + "(10) ...",
                 std::move(notes));
  }
  return type;
}

}  // namespace tessera::check
