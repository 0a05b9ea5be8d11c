#include "checker/expression.h"

#include <algorithm>

#include "checker/calls.h"
#include "checker/near.h"
#include "checker/reading.h"
#include "language/words.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

// What other languages write behind a number for a power of ten, as far as it is a name here.
bool IsExponent(std::string_view name) {
  return name.starts_with('E') && name.find_first_not_of("0123456789", 1) == std::string_view::npos;
}

// Walks the tokens of one expression. Operands and operators take turns; what breaks the turn is told once.
class ExpressionReader {
 public:
  ExpressionReader(Context& context, Tokens tokens, const Sought& sought)
      : context_(context), tokens_(tokens), sought_(sought) {
    isAlone_ = tokens.size() == 1;
  }

  Type Read() {
    if (tokens_.empty()) return Type::Unknown;
    if (const std::size_t close = tokens_.size() >= 3 && tokens_[1].Is('(') ? ClosingParen(tokens_, 1) : 0;
        close + 1 == tokens_.size() && close != 0)
      isAlone_ = true;
    if (CheckNumbers()) return Type::Number;
    CheckJoins();
    for (at_ = 0; at_ < tokens_.size() && !isBroken_; ++at_) Take(tokens_[at_]);
    if (!isBroken_ && !expectsOperand_) CheckTexts();
    if (!isBroken_ && expectsOperand_ && !tokens_.back().Is(',')) {
      Break(tokens_.back(), "falta um valor atrás de " + Shown(tokens_.back().text), "complete a conta");
    }
    return hasSum_ ? Type::Number : type_;
  }

 private:
  // Numbers with a decimal comma or points between groups of digits. True if one was told.
  bool CheckNumbers() {
    for (std::size_t i = 0; i + 2 < tokens_.size(); ++i) {
      const Token& first = tokens_[i];
      const Token& sign = tokens_[i + 1];
      const Token& last = tokens_[i + 2];
      const bool touch = first.IsNumber() && last.IsNumber() && !sign.blankBefore && !last.blankBefore;
      if (!touch) continue;
      std::string whole(first.text);
      std::erase(whole, '.');
      whole += "." + std::string(last.text);
      if (sign.Is(',') && sought_.place != Place::Argument) {
        context_.Tell(
            rule::kDecimalComma, tokens_.subspan(i, 3),
            "um número do programa leva ponto: a vírgula separa dois valores, que aqui se juntam em " +
                Shown(std::string(first.text) + std::string(last.text)),
            "escreva " + Shown(whole));
        return true;
      }
      if (sign.Is('.')) return TellGroups(tokens_.subspan(i, 3));
    }
    for (const Token& token : tokens_) {
      const std::size_t point = token.text.find('.');
      if (token.IsNumber() && point != std::string_view::npos && token.text.substr(point) == ".000" &&
          token.text[0] != '0' && point <= 3)
        return TellGroups({&token, 1});
    }
    return false;
  }

  bool TellGroups(Tokens tokens) {
    std::string digits;
    for (const char c : context_.source.TextOf(tokens)) {
      if (c != '.') digits.push_back(c);
    }
    context_.Tell(rule::kGroupPoints, tokens,
                  "o ponto em um número separa a fração, não os milhares: " +
                      Shown(context_.source.TextOf(tokens)) + " não é " + digits,
                  "escreva " + Shown(digits));
    return true;
  }

  // "&" where nothing is joined.
  void CheckJoins() {
    if (sought_.place == Place::RightSide || sought_.place == Place::Joined) return;
    for (const Token& token : tokens_) {
      if (!token.Is('&')) continue;
      const bool isBitwise =
          std::any_of(tokens_.begin(), tokens_.end(), [](const Token& t) { return t.IsOperator(); }) &&
          std::none_of(tokens_.begin(), tokens_.end(), [](const Token& t) { return t.IsLiteral(); });
      if (isBitwise) return;
      TellJoin(token);
      isBroken_ = true;
      return;
    }
  }

  void TellJoin(const Token& sign) {
    const bool isList =
        sought_.word != nullptr && sought_.word->arguments.IsList() && sought_.place == Place::Argument;
    const std::string where = sought_.place == Place::Return      ? "em Retorne"
                              : sought_.place == Place::Condition ? "em uma condição"
                                                                  : "nos valores de um comando";
    context_.Tell(
        rule::kJoinedElsewhere, sign, Shown(sign.text) + " não junta textos " + where,
        isList ? "separe os valores com vírgulas" : "junte antes em uma variável: texto = ... & ...");
  }

  void Break(const Token& token, std::string message, std::string advice) {
    context_.Tell(rule::kExpressionShape, token, std::move(message), std::move(advice));
    isBroken_ = true;
  }

  void Take(const Token& token) {
    if (token.IsName() || token.IsNumber() || token.IsLiteral() || token.Is('(')) return TakeOperand(token);
    if (token.Is(')') || token.Is(',')) {
      expectsOperand_ = token.Is(',');
      return;
    }
    if (token.IsOperator() || token.Is('&') || token.Is('@')) return TakeOperator(token);
    if (token.IsRelation() && sought_.place == Place::RightSide) {
      return Break(token,
                   "uma comparação não dá um valor: " + Shown(token.text) + " só compara em Se e Enquanto",
                   "use Se ... CasoContrario ... FimSe para guardar o resultado");
    }
    constexpr std::string_view kForeign = "!|\\{}~`";
    if (token.text.size() == 1 && kForeign.find(token.text[0]) != std::string_view::npos) {
      context_.Tell(rule::kForeignSign, token, "a linguagem não tem o sinal " + Shown(token.text),
                    "tire-o daqui");
      isBroken_ = true;
    }
  }

  void TakeOperator(const Token& token) {
    if (expectsOperand_ && !token.Is('-') && !token.Is('+')) {
      const bool isFirst = at_ == 0 || tokens_[at_ - 1].Is(',');
      const bool isPower = token.Is('*') && !isFirst && tokens_[at_ - 1].Is('*');
      return Break(
          token,
          isFirst ? "a conta começa com " + Shown(token.text)
                  : "dois operadores seguidos: " + Shown(tokens_[at_ - 1].text) + " e " + Shown(token.text),
          isPower ? "a potência se escreve ^: 2 ^ 3" : "tire um deles, ou ponha o valor que falta");
    }
    if (expectsOperand_ && at_ > 0 && (tokens_[at_ - 1].IsOperator() || tokens_[at_ - 1].Is('&'))) {
      context_.Tell(rule::kSignBehindOperator, token,
                    "um sinal atrás de um operador não vale: aqui " + Shown(tokens_[at_ - 1].text) +
                        " toma 0 como o seu lado direito",
                    "guarde antes o número negativo em uma variável, ou escreva a conta como (0 - n) ...");
      isBroken_ = true;
      return;
    }
    if (token.IsOperator()) hasSum_ = true;
    expectsOperand_ = true;
  }

  void TakeOperand(const Token& token) {
    if (!expectsOperand_) return TellMissingOperator(token);
    expectsOperand_ = false;
    const std::size_t first = at_;
    Type type = Type::Unknown;
    isCall_ = false;
    if (token.Is('(')) {
      type = TakeGroup();
    } else if (token.IsLiteral()) {
      type = Type::Text;
    } else if (token.IsNumber()) {
      type = Type::Number;
      const bool isDivisor = at_ > 0 && (tokens_[at_ - 1].Is('/') || tokens_[at_ - 1].Is('%'));
      if (isDivisor && token.text == "0")
        return Break(token, "uma divisão por zero", "divida por outro número");
      CheckSize(token);
    } else {
      type = TakeName(token);
    }
    if (first == 0) type_ = type;
    operands_.push_back({&token, type, isCall_});
  }

  // A call reads its numbers from a text, and there the exponent of a very small or large one is lost.
  void CheckSize(const Token& token) {
    const std::string shown = NumberText(LeadingNumber(token.text));
    if (context_.callDepth == 0 || !Contains(shown, "E")) return;
    context_.Tell(
        rule::kNumberSize, token,
        "em uma chamada " + Shown(token.text) + " vale como " + Shown(shown) + ", e o expoente se perde",
        "trabalhe com números entre 0.0001 e 999999999999999");
  }

  Type TakeGroup() {
    const std::size_t close = ClosingParen(tokens_, at_);
    const Tokens inner = tokens_.subspan(at_ + 1, std::min(close, tokens_.size()) - at_ - 1);
    const bool isText = inner.size() == 1 && inner[0].IsLiteral();
    if (isText || (at_ == 0 && close + 1 == tokens_.size() && !HasOperator(inner))) {
      if (sought_.place == Place::Argument || sought_.place == Place::Joined || isText) {
        context_.Tell(rule::kCommandParens, tokens_[at_],
                      "os parênteses em volta de " + Shown(context_.source.TextOf(inner)) +
                          " fazem parte do texto que o comando recebe",
                      "tire os parênteses");
        isBroken_ = true;
        return Type::Unknown;
      }
    }
    Sought group = sought_;
    group.kind = Kind::Value;
    const Type type = CheckExpression(context_, inner, group);
    at_ = close;
    return type;
  }

  static bool HasOperator(Tokens tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [](const Token& t) { return t.IsOperator(); });
  }

  // Whether the operand at `at_` is one of a sum.
  bool IsInSum() const {
    return std::any_of(tokens_.begin(), tokens_.end(), [](const Token& t) { return t.IsOperator(); });
  }

  Type TakeName(const Token& name) {
    const bool isCalled = at_ + 1 < tokens_.size() && tokens_[at_ + 1].Is('(');
    if (!isCalled) return ReadName(context_, name, sought_, isAlone_, IsInSum());
    const std::size_t close = ClosingParen(tokens_, at_ + 1);
    const Tokens inner = tokens_.subspan(at_ + 2, std::min(close, tokens_.size()) - at_ - 2);
    at_ = close;
    const Word* word = FindWord(name.text);
    const bool isCallOfWord =
        word != nullptr && (word->name == name.text || context_.names.FindVariable(name.upper) == nullptr);
    const bool isVariable = context_.FindLocalAnyCase(name.upper) != nullptr ||
                            context_.names.FindVariable(name.upper) != nullptr;
    if (isVariable && !isCallOfWord && context_.names.FindFunction(name.text) == nullptr)
      return TellEnding(context_, name, sought_) ? Type::Unknown : ReadElement(context_, name, inner);
    isCall_ = true;
    return CheckCall(context_, name, inner, sought_, isAlone_);
  }

  void TellMissingOperator(const Token& token) {
    const Token& before = tokens_[at_ - 1];
    if (!context_.findings.empty() && context_.findings.back().span == context_.source.SpanOf(before)) {
      isBroken_ = true;  // what stands before was told already
      return;
    }
    const std::string folded = Folded(token.text);
    if (folded == "MOD" || folded == "DIV" || folded == "AND" || folded == "OR" || folded == "XOR") {
      context_.Tell(rule::kForeignSign, token, "a linguagem não tem o operador " + Shown(token.text),
                    folded == "MOD"   ? "o resto da divisão se escreve %: 7 % 2"
                    : folded == "DIV" ? "use ParteInteira(a / b), depois de guardar a / b em uma variável"
                                      : "use E e OU em condições");
      isBroken_ = true;
      return;
    }
    if (before.IsNumber() && !token.blankBefore && IsExponent(folded))
      return Break(token, "um número não leva expoente", "escreva-o por extenso, como 100000 ou 0.001");
    const bool isText = token.IsLiteral() || before.IsLiteral();
    std::string advice = "ponha um operador entre os dois";
    if (sought_.place == Place::Argument) advice = "falta uma vírgula ou um operador";
    if (sought_.place == Place::RightSide && isText) advice = "para juntar textos, ponha & entre brancos";
    if (token.IsLiteral() && before.IsLiteral() && !token.blankBefore)
      advice = "um texto não pode ter aspas dentro; junte Car(34) para as ter";
    Break(token, "falta algo entre " + Shown(before.text) + " e " + Shown(token.text), advice);
  }

  // Texts among the operands of a sum.
  void CheckTexts() {
    if (!hasSum_) return;
    const bool wantsText = sought_.target == Type::Text || sought_.place != Place::RightSide;
    const bool allAreTexts =
        operands_.size() > 1 && std::all_of(operands_.begin(), operands_.end(),
                                            [](const Operand& o) { return o.type == Type::Text; });
    for (const Operand& operand : operands_) {
      const bool isText = operand.token->IsLiteral() || (operand.isCall && operand.type == Type::Text) ||
                          (allAreTexts && wantsText && OnlyPlus());
      if (!isText) continue;
      TellTextInSum(*operand.token);
      return;
    }
  }

  bool OnlyPlus() const {
    return std::none_of(tokens_.begin(), tokens_.end(),
                        [](const Token& t) { return t.IsOperator() && !t.Is('+'); });
  }

  void TellTextInSum(const Token& text) {
    const Word* word = text.IsName() ? FindWord(text.text) : nullptr;
    if (word != nullptr && ReadsFromOutside(*word)) {
      context_.Tell(
          rule::kOutsideText, text,
          "o texto que " + Shown(word->name) + " lê fica entre aspas no meio da conta, e ela não é feita",
          "guarde-o antes em uma variável: texto = " + std::string(word->name) + "(...)");
      return;
    }
    if (text.IsName() && word != nullptr) {
      context_.Tell(rule::kTextInSum, text, Shown(word->name) + " dá um texto, que não entra em uma conta",
                    "guarde antes o resultado em uma variável de números, e faça a conta com ela");
      return;
    }
    const auto plus =
        std::find_if(tokens_.begin(), tokens_.end(), [](const Token& t) { return t.IsOperator(); });
    const Token& sign = plus == tokens_.end() ? text : *plus;
    if (sign.Is('+') && sought_.place != Place::RightSide) return TellJoin(sign);
    const bool isJoin = sign.Is('+');
    if (text.IsLiteral() && WholeNumber(Bare(text)).has_value() && sought_.target != Type::Text) {
      context_.Tell(rule::kTextInSum, text, "um número entre aspas é um texto, e não entra em uma conta",
                    "tire as aspas");
      return;
    }
    context_.Tell(rule::kTextInSum, sign,
                  isJoin ? "+ soma números, e não junta textos" : "um texto não entra em uma conta",
                  isJoin ? "para juntar textos, use & entre brancos"
                         : "guarde antes o texto em uma variável de números, ou use ValStr");
  }

  static bool ReadsFromOutside(const Word& word) {
    return word.name == "LeArquivo" || word.name == "EntraTexto" || word.name == "LeString" ||
           word.name == "LeRegWin" || word.name == "LeRegistro" || word.name == "Diretorio";
  }

  struct Operand {
    const Token* token;
    Type type;
    bool isCall = false;
  };

  Context& context_;
  Tokens tokens_;
  Sought sought_;
  std::size_t at_ = 0;
  bool isAlone_ = false;
  bool expectsOperand_ = true;
  bool hasSum_ = false;
  bool isBroken_ = false;
  bool isCall_ = false;  // the last operand
  Type type_ = Type::Unknown;
  std::vector<Operand> operands_;
};

}  // namespace

Type CheckExpression(Context& context, Tokens tokens, const Sought& sought) {
  return ExpressionReader(context, tokens, sought).Read();
}

}  // namespace tessera::check
