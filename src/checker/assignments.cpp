#include "checker/assignments.h"

#include <algorithm>
#include <array>

#include "checker/expression.h"
#include "checker/reading.h"
#include "checker/rehearsal.h"
#include "language/types.h"
#include "language/words.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

// Block words that linking finds at the start of a statement, whatever follows them.
constexpr std::array<std::string_view, 4> kLinked = {"CasoContrario", "FimSe", "Repita", "Enquanto"};

// Tells why the target can't be written.
void CheckTarget(Context& context, const Token& name, Tokens index) {
  for (const std::string_view word : kLinked) {
    if (!name.text.starts_with(word)) continue;
    context.Tell(rule::kHiddenWord, name,
                 "um nome que começa com " + Shown(word) + " é tomado pela palavra de bloco",
                 "mude o começo do nome");
    return;
  }
  if (name.text.starts_with("BD") && context.names.FindVariable(name.upper) == nullptr) {
    context.Tell(rule::kHiddenWord, name, "uma linha que começa com BD é tomada por um banco de dados",
                 "mude o começo do nome");
    return;
  }
  if (context.FindLocalAnyCase(name.upper) != nullptr) {
    CheckLocalName(context, name);
    return;
  }
  if (context.names.FindVariable(name.upper) != nullptr) {
    if (!index.empty()) ReadElement(context, name, index);
    return;
  }
  if (const RoutineRef* function = context.names.FindFunctionAnyCase(name.upper)) {
    context.Tell(rule::kFunctionAsCommand, name, Shown(name.text) + " é uma função, e não uma variável",
                 "o resultado de uma função se dá com Retorne",
                 {{context.names.PlaceOf(function->editor, *function->routine->token), "a função é esta"}});
    return;
  }
  if (Contains(name.text, ".") && context.names.objectsAreNamedByVariables()) return;
  const std::string near = NearVariable(context, name.text);
  const Word* command = FindWord(name.text);
  std::string advice = near.empty() ? "declare-a antes: Var " + ToUtf8(name.text) + " Tipo" : near;
  if (command != nullptr) advice = Shown(command->name) + " é um comando: dê outro nome à variável";
  const Word* prefix = FindWord(Left(name.text, std::min(name.text.find('.'), name.text.size())));
  if (Contains(name.text, ".") && prefix != nullptr && !prefix->more.keywords.empty())
    advice = "entre o comando e a sua palavra fica um branco: " + std::string(prefix->name) + " " +
             ToUtf8(name.text.substr(name.text.find('.') + 1)) + " = ...";
  if (Contains(name.text, ".")) {
    const std::string object(Left(name.text, name.text.find('.')));
    const std::span<const ObjectRef> made = context.names.FindObjects(Upper(object));
    if (!made.empty())
      advice =
          "a propriedade de um objeto se muda com o comando dele: " + std::string(made[0].object->family) +
          " " + ToUtf8(name.text) + " = ...";
  }
  context.Tell(rule::kUndeclared, name, "a variável " + Shown(name.text) + " não foi declarada", advice);
}

// The choices of a person, which a program may well forget so as to notice the next one.
bool IsChoice(std::string_view family) {
  constexpr std::array<std::string_view, 5> kChoices = {"Check", "Opcao", "Combo", "Calendario",
                                                        "BarraRolagem"};
  return std::find(kChoices.begin(), kChoices.end(), family) != kChoices.end();
}

bool IsNothing(Tokens right) {
  return right.size() == 1 && (Bare(right[0]).empty() || IntegerOf(right[0]) == 0);
}

// The variable beside an object changes, and its window doesn't show it.
void CheckCompanion(Context& context, const Token& name, Tokens behind) {
  const Variable* variable = context.names.FindVariable(name.upper);
  if (variable == nullptr || variable->origin != Origin::Companion) return;
  const std::size_t point = name.text.rfind('.');
  const std::span<const ObjectRef> made = context.names.FindObjects(Upper(Left(name.text, point)));
  if (made.empty()) return;
  const std::string_view family = made[0].object->family;
  const bool isOne = std::all_of(made.begin(), made.end(),
                                 [&](const ObjectRef& other) { return other.object->family == family; });
  const std::span<const WordForm> suffixes = FindWord(family)->more.suffixes;
  const bool isShown = std::any_of(suffixes.begin(), suffixes.end(), [&](const WordForm& form) {
    return EqualsIgnoringCase(form.word, name.text.substr(point));
  });
  if (!isOne || !isShown) return;
  const bool isAssigned = behind[0].Is('=');
  if (isAssigned && IsChoice(family) && IsNothing(behind.subspan(1))) return;
  const std::string object(made[0].object->name);
  context.Tell(
      rule::kWithoutCommand, name,
      "só a variável " + Shown(name.text) + " muda: o objeto continua a mostrar o que mostrava",
      "escreva o comando na frente: " + std::string(family) + " " +
          ToUtf8(object + std::string(name.text.substr(point))) + " = " +
          (isAssigned && behind.size() > 1 ? ToUtf8(context.source.TextOf(behind.subspan(1))) : "..."),
      {{context.names.PlaceOf(made[0].editor, *made[0].object->token), "o objeto é este"}});
}

std::string_view TypeWordOf(const Context& context, const Token& name) {
  if (const Local* local = context.FindLocal(name.text)) return local->type;
  const Variable* variable = context.names.FindVariable(name.upper);
  return variable == nullptr ? std::string_view() : variable->type;
}

// The terms between " & ".
std::vector<Tokens> JoinedTerms(Tokens right) {
  std::vector<Tokens> terms;
  std::size_t begin = 0;
  for (std::size_t i = 0; i < right.size(); ++i) {
    if (!right[i].Is('&') || !right[i].blankBefore || !right[i].blankBehind) continue;
    terms.push_back(right.subspan(begin, i - begin));
    begin = i + 1;
  }
  if (!terms.empty()) terms.push_back(right.subspan(begin));
  return terms;
}

void TellLost(Context& context, Tokens term, std::string message, std::string advice) {
  context.Tell(rule::kLostInJoin, term, std::move(message), std::move(advice));
}

void CheckTerm(Context& context, Tokens term) {
  const Token& first = term[0];
  const std::string saved = "guarde-o antes em uma variável, e junte a variável";
  if (term.size() == 1 && first.IsLiteral()) return;
  if (term.size() == 1 && first.IsNumber())
    return TellLost(context, term, "um número escrito assim se perde ao juntar textos",
                    "ponha-o entre aspas: " + Shown("\"" + std::string(first.text) + "\""));
  const bool hasOperator =
      std::any_of(term.begin(), term.end(), [](const Token& t) { return t.IsOperator(); });
  const bool isCalled = first.IsName() && term.size() > 1 && term[1].Is('(');
  const std::size_t close = isCalled ? ClosingParen(term, 1) : 0;
  if (first.IsName() && term.size() == 1) {
    CheckExpression(context, term, {.place = Place::Joined});
    return;
  }
  if (isCalled && close + 1 == term.size()) {
    if (context.names.FindFunctionAnyCase(first.upper) != nullptr && FindWord(first.text) == nullptr) {
      return TellLost(context, term,
                      "a função " + Shown(first.text) + " não é chamada ao juntar textos: o termo se perde",
                      saved);
    }
    CheckExpression(context, term, {.place = Place::Joined});
    return;
  }
  if (first.IsLiteral())
    return TellLost(context, term.subspan(1), "o que está atrás do texto se perde",
                    "ponha & entre brancos entre os dois");
  if (hasOperator || first.Is('('))
    return TellLost(context, term, "uma conta não é feita ao juntar textos: o termo se perde", saved);
  TellLost(context, term, "este termo se perde ao juntar textos", saved);
}

void CheckJoined(Context& context, const std::vector<Tokens>& terms) {
  for (const Tokens term : terms) {
    if (term.empty()) {
      context.Tell(rule::kExpressionShape, context.tokens.back(), "falta um texto ao lado de &",
                   "ponha o que falta, ou tire o &");
      return;
    }
    CheckTerm(context, term);
  }
}

void CheckPlain(Context& context, Tokens right, Type target, std::string_view targetType) {
  const auto joint = std::find_if(right.begin(), right.end(), [](const Token& t) { return t.Is('&'); });
  if (joint != right.end() &&
      std::none_of(right.begin(), right.end(), [](const Token& t) { return t.IsOperator(); })) {
    context.Tell(rule::kJoinWithoutBlanks, *joint, "& só junta textos com um branco de cada lado",
                 "escreva \" & \"");
    return;
  }
  const std::size_t told = context.findings.size();
  const Type type = CheckExpression(context, right, {.place = Place::RightSide, .target = target});
  if (context.findings.size() != told) return;
  if (target == Type::Number && right.size() == 1 && right[0].IsLiteral() &&
      !WholeNumber(Bare(right[0])).has_value()) {
    context.Tell(rule::kTextIntoNumber, right,
                 "um texto não cabe em uma variável " + std::string(targetType) + ": o programa para aqui",
                 "declare a variável como String, ou dê a ela um número");
    return;
  }
  if (target == Type::Number && right.size() == 1 && right[0].IsLiteral() && Contains(Bare(right[0]), ".") &&
      !Contains(Bare(right[0]), ",")) {
    context.Tell(rule::kGroupPoints, right,
                 "em um texto o ponto separa milhares: " + Shown(Bare(right[0])) + " vira um número maior",
                 "escreva o número sem aspas");
    return;
  }
  const Word* word =
      right[0].IsName() && right.size() > 1 && right[1].Is('(') ? FindWord(right[0].text) : nullptr;
  const bool givesWords =
      word != nullptr && word->name == right[0].text && word->result == Result::Text && type == Type::Text &&
      (word->topic == Topic::Checks || word->topic == Topic::Dates || word->name == "Formata") &&
      word->name != "DataDif" && word->name != "InverteData";
  if (target == Type::Number && givesWords && ClosingParen(right, 1) + 1 == right.size()) {
    context.Tell(rule::kTextIntoNumber, right,
                 Shown(word->name) + " dá um texto, que não cabe em uma variável " + std::string(targetType),
                 "declare a variável como String");
    return;
  }
  if (target == Type::Text && SplitAtCommas(right).size() > 1)
    return RehearseList(context, right, Place::RightSide);
  Rehearse(context, right, Place::RightSide, target);
}

void CheckField(Context& context, const Token& name, Tokens right) {
  const Variable* field = context.names.FindVariable(name.upper);
  if (field == nullptr || field->origin != Origin::Field || field->type != kTypeString) return;
  if (right.size() != 1 || !right[0].IsLiteral()) return;
  const std::size_t size = Bare(right[0]).size();
  if (size <= field->fieldSize) return;
  context.Tell(
      rule::kFieldTooLong, right,
      "o texto tem " + std::to_string(size) + " letras, e o campo guarda " + std::to_string(field->fieldSize),
      "encurte o texto, ou aumente o campo em um banco de dados novo",
      {{context.names.PlaceOf(field->editor, *field->token), "o campo é este"}});
}

void CheckRight(Context& context, const Token& name, Tokens right) {
  for (const Token& token : right) {
    if (!token.IsLiteral() || !Contains(token.text, " & ")) continue;
    context.Tell(rule::kJoinInText, token,
                 "dentro de um texto, \" & \" entre brancos corta a atribuição em dois",
                 "escreva \"e\", ou tire um dos brancos");
    return;
  }
  const std::string_view typeWord = TypeWordOf(context, name);
  const std::vector<Tokens> terms = JoinedTerms(right);
  if (!terms.empty()) return CheckJoined(context, terms);
  CheckPlain(context, right, TypeOf(typeWord), typeWord);
  CheckField(context, name, right);
}

}  // namespace

void CheckAssignment(Context& context) {
  const Tokens tokens = context.tokens;
  const Token& name = tokens[0];
  Tokens index;
  std::size_t next = 1;
  if (tokens[1].Is('(')) {
    const std::size_t close = ClosingParen(tokens, 1);
    index = tokens.subspan(2, close - 2);
    next = close + 1;
  }
  CheckTarget(context, name, index);
  CheckCompanion(context, name, tokens.subspan(next));
  if (tokens[next].Is('=')) {
    const Tokens right = tokens.subspan(next + 1);
    if (right.empty()) {
      context.Tell(rule::kExpressionShape, tokens[next],
                   "falta o valor atrás de =", "escreva o valor; para um texto vazio, \"\"");
    } else {
      CheckRight(context, name, right);
    }
    return;
  }
  const bool isStep = tokens[next + 1].text == tokens[next].text;
  if (isStep) {
    if (tokens[next].blankBefore || tokens[next + 1].blankBefore || next + 2 < tokens.size()) {
      if (context.FindLocal(name.text) != nullptr) {
        context.Tell(rule::kExpressionShape, tokens[next],
                     "uma variável da função não se conta com " + Shown(std::string(2, tokens[next].text[0])),
                     StepAdvice(name, tokens[next].text[0]));
        return;
      }
      context.Tell(rule::kExpressionShape, tokens[next],
                   Shown(std::string(tokens[next].text) + std::string(tokens[next].text)) +
                       " encosta no nome da variável e termina a linha",
                   "escreva " + Shown(std::string(name.text) + std::string(tokens[next].text) +
                                      std::string(tokens[next].text)));
    }
    return;
  }
  const Tokens right = tokens.subspan(next + 2);
  if (right.empty()) {
    context.Tell(rule::kExpressionShape, tokens[next + 1], "falta o valor atrás de " + Shown("+="),
                 "escreva o valor");
    return;
  }
  const std::size_t told = context.findings.size();
  CheckExpression(context, right, {.place = Place::Compound});
  if (context.findings.size() == told) Rehearse(context, right, Place::Compound, Type::Number);
}

}  // namespace tessera::check
