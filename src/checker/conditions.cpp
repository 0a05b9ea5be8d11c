#include "checker/conditions.h"

#include <algorithm>

#include "checker/expression.h"
#include "checker/rehearsal.h"
#include "language/words.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

// One comparison of a condition: the tokens between two connectives.
class ComparisonCheck {
 public:
  ComparisonCheck(Context& context, Tokens tokens) : context_(context), tokens_(tokens) {}

  void Run() {
    if (TellForeignSigns() || TellParens()) return;
    const auto relations = Relations();
    if (relations.empty()) return TellNoComparison();
    if (relations.size() > 1) return TellTwoComparisons(relations);
    const std::size_t at = relations[0];
    const Tokens left = tokens_.subspan(0, at);
    Tokens right = tokens_.subspan(at + 1);
    if (left.empty() || right.empty()) {
      context_.Tell(rule::kConditionShape, tokens_[at],
                    std::string("falta o lado ") + (left.empty() ? "esquerdo" : "direito") + " da comparação",
                    "uma comparação tem dois lados: a = b; repita a variável em cada uma: x > 1 E x < 9");
      return;
    }
    if (TellNegation(left)) return;
    right = WithoutRest(right);
    const Sought sought{.place = Place::Condition};
    const std::size_t told = context_.findings.size();
    const Type leftType = CheckExpression(context_, left, sought);
    const Type rightType = CheckExpression(context_, right, sought);
    if (context_.findings.size() == told) CheckTypes(left, leftType, right, rightType, tokens_[at]);
    if (context_.findings.size() == told) Rehearse(context_, left, Place::Condition, Type::Unknown);
    if (context_.findings.size() == told) Rehearse(context_, right, Place::Condition, Type::Unknown);
  }

 private:
  bool TellForeignSigns() {
    for (std::size_t i = 0; i + 1 < tokens_.size(); ++i) {
      const Token& first = tokens_[i];
      const Token& second = tokens_[i + 1];
      const bool touch = !second.blankBefore;
      const bool isPair = first.IsRelation() && second.IsRelation() && touch;
      const bool isNot = (first.Is('!') || first.Is('~')) && second.Is('=');
      if (!isPair && !isNot) continue;
      const std::string written = std::string(first.text) + std::string(second.text);
      std::string meant = written == "=<" ? "<=" : written == "=>" ? ">=" : written == "==" ? "=" : "<>";
      context_.Tell(rule::kForeignSign, tokens_.subspan(i, 2),
                    "a linguagem não tem a comparação " + Shown(written), "escreva " + Shown(meant));
      return true;
    }
    for (const Token& token : tokens_) {
      if (!token.Is('!') && !token.Is('|')) continue;
      context_.Tell(rule::kForeignSign, token, "a linguagem não tem o sinal " + Shown(token.text),
                    token.Is('|') ? "ligue comparações com E e OU"
                                  : "para negar, troque a comparação: <> no lugar de =");
      return true;
    }
    return false;
  }

  // A parenthesis that holds the comparison, and not a part of one of its sides.
  bool TellParens() {
    std::size_t depth = 0;
    const Token* open = nullptr;
    for (const Token& token : tokens_) {
      if (token.Is('(')) {
        if (depth++ == 0) open = &token;
      } else if (token.Is(')')) {
        if (depth == 0) {
          TellParen(token);
          return true;
        }
        --depth;
      } else if (token.IsRelation() && depth > 0) {
        TellParen(*open);
        return true;
      }
    }
    if (depth == 0) return false;
    TellParen(*open);
    return true;
  }

  void TellParen(const Token& paren) {
    context_.Tell(rule::kConditionParens, paren,
                  "uma condição não leva parênteses: este fica no texto da comparação, que nunca vale",
                  "tire os parênteses; as comparações são ligadas da esquerda para a direita");
  }

  std::vector<std::size_t> Relations() const {
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < tokens_.size(); ++i) {
      if (tokens_[i].IsRelation()) found.push_back(i);
    }
    return found;
  }

  void TellNoComparison() {
    std::string advice = "escreva a comparação inteira, como x = 1";
    const Word* word = tokens_[0].IsName() ? FindWord(tokens_[0].text) : nullptr;
    if (word != nullptr && word->topic == Topic::Checks)
      advice = "compare a resposta: " + std::string(word->name) + "(...) = \"VERDADEIRO\"";
    if (word != nullptr && word->name == "Mensagem") advice = "compare a resposta: Mensagem(...) = \"SIM\"";
    context_.Tell(rule::kConditionShape, tokens_,
                  "falta uma comparação: sozinho, um valor nunca vale como condição", advice);
  }

  void TellTwoComparisons(const std::vector<std::size_t>& relations) {
    context_.Tell(rule::kConditionShape, tokens_[relations[1]],
                  "duas comparações seguidas: cada uma tem dois lados só",
                  "ligue duas comparações com E: 1 < x E x < 9");
  }

  bool TellNegation(Tokens left) {
    if (left.size() < 2 || !left[0].IsName() || left[1].Is('(')) return false;
    const std::string word = Folded(left[0].text);
    if (word != "NAO" && word != "NOT") return false;
    context_.Tell(rule::kConditionShape, left[0], "não há negação de uma comparação",
                  "troque a comparação: <> no lugar de =, >= no lugar de <");
    return true;
  }

  // The right side without what somebody wrote behind the condition: "Entao", a command.
  Tokens WithoutRest(Tokens right) {
    for (std::size_t i = 1; i < right.size(); ++i) {
      if (!right[i].IsName() || right[i - 1].Is('(') || right[i - 1].IsOperator() || right[i - 1].Is(',') ||
          right[i - 1].Is('&'))
        continue;
      const std::string word = Folded(right[i].text);
      const bool isThen = word == "ENTAO" || word == "THEN" || word == "FACA" || word == "DO";
      if (word == "MOD" || word == "DIV") continue;
      if (word == "E" || word == "OU" || word == "AND" || word == "OR") continue;
      context_.Tell(rule::kBehindCondition, right[i],
                    isThen ? Shown(right[i].text) + " não existe: a condição termina no fim da linha"
                           : Shown(right[i].text) + " está atrás da condição, e vale como parte dela",
                    isThen
                        ? "tire " + Shown(right[i].text)
                        : "ponha o que o bloco faz em uma linha própria, e feche-o com a sua palavra de fim");
      return right.subspan(0, i);
    }
    return right;
  }

  static bool IsNumber(Tokens side) {
    return side.size() == 1 && side[0].IsLiteral() && WholeNumber(Bare(side[0])).has_value();
  }

  void CheckTypes(Tokens left, Type leftType, Tokens right, Type rightType, const Token& relation) {
    std::vector<Note> notes;
    if (leftType == Type::Text && rightType == Type::Number) {
      if (left.size() == 1 && left[0].IsName()) {
        const Variable* variable = context_.names.FindVariable(left[0].upper);
        if (variable != nullptr && variable->token != nullptr)
          notes.push_back(
              {context_.names.PlaceOf(variable->editor, *variable->token), "é String por esta declaração"});
      }
      context_.Tell(
          rule::kTextAgainstNumber, left,
          "à esquerda está um texto, à direita um número: nunca são iguais, e o texto é sempre o maior",
          right.size() == 1 && left.size() == 1 && left[0].IsName()
              ? "ponha o número à esquerda, ou declare " + Shown(left[0].text) + " como Inteiro ou Decimal"
              : "ponha o número à esquerda da comparação",
          std::move(notes));
      return;
    }
    const bool isWord =
        rightType == Type::Text && right.size() == 1 && right[0].IsLiteral() && !IsNumber(right);
    if (leftType == Type::Number && isWord) {
      context_.Tell(rule::kTextAgainstNumber, right,
                    "um número nunca é igual a um texto que não é número: " + Shown(Bare(right[0])),
                    relation.Is('=') || relation.text == "<>"
                        ? "compare com um número, ou declare a variável como String"
                        : "compare com um número");
    }
  }

  Context& context_;
  Tokens tokens_;
};

// "e", "ou", "AND": a connective as the language has it not.
bool IsForeignConnective(Tokens condition, std::size_t at) {
  const Token& token = condition[at];
  if (!token.IsName() || at == 0 || at + 1 == condition.size()) return false;
  const std::string word = Folded(token.text);
  const bool isOne = word == "E" || word == "OU" || word == "AND" || word == "OR";
  if (!isOne || token.text == "E" || token.text == "OU") return false;
  const Token& before = condition[at - 1];
  return !before.IsOperator() && !before.IsRelation() && !before.Is('(') && !before.Is(',');
}

}  // namespace

void CheckCondition(Context& context, Tokens condition) {
  if (condition.empty()) {
    context.Tell(rule::kConditionShape, context.tokens.subspan(0, context.formed.tokens),
                 "falta a condição de " + Shown(WordOf(context.formed.form)),
                 "escreva uma comparação, como x = 1");
    return;
  }
  std::size_t begin = 0;
  const auto take = [&](std::size_t end) {
    const Tokens part = condition.subspan(begin, end - begin);
    if (part.empty()) {
      context.Tell(rule::kConditionShape, condition[std::min(end, condition.size() - 1)],
                   "falta uma comparação ao lado do conectivo", "E e OU ligam duas comparações");
    } else {
      ComparisonCheck(context, part).Run();
    }
    const bool isTold = !context.findings.empty() && context.findings.back().rule == &rule::kConditionParens;
    return !isTold;
  };
  for (std::size_t i = 0; i < condition.size(); ++i) {
    const Token& token = condition[i];
    const bool isE = token.IsName() && token.text == "E" && token.blankBefore && token.blankBehind;
    const bool isOu = token.IsName() && token.text == "OU";
    if (isE || isOu) {
      if (!take(i)) return;
      begin = i + 1;
    } else if (IsForeignConnective(condition, i)) {
      const std::string word = Folded(token.text);
      const std::string meant = word == "E" || word == "AND" ? "E" : "OU";
      context.Tell(rule::kConnective, token,
                   Shown(token.text) + " não liga comparações: só E e OU, em maiúsculas",
                   "escreva " + Shown(meant));
      return;
    } else if (token.Is('&') && i + 1 < condition.size() && condition[i + 1].Is('&')) {
      context.Tell(rule::kForeignSign, condition.subspan(i, 2), "a linguagem não tem o sinal \"&&\"",
                   "escreva \"E\"");
      return;
    } else if (token.Is('|') && i + 1 < condition.size() && condition[i + 1].Is('|')) {
      context.Tell(rule::kForeignSign, condition.subspan(i, 2), "a linguagem não tem o sinal \"||\"",
                   "escreva \"OU\"");
      return;
    } else if (token.IsName() && Contains(token.text, "OU")) {
      context.Tell(rule::kConnectiveInName, token,
                   "o OU dentro de " + Shown(token.text) + " corta a condição em duas",
                   "mude o nome, ou escreva o OU dele em minúsculas: a caixa de um nome não conta");
      return;
    }
  }
  take(condition.size());
}

}  // namespace tessera::check
