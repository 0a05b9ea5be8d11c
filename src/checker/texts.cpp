#include "checker/texts.h"

#include <array>

#include "text/one_based.h"

namespace tessera::check {

namespace {

bool IsUnclosed(const Token& token) {
  return token.IsLiteral() && (token.text.size() == 1 || !token.text.ends_with('"'));
}

// Typographic quotes of the code page.
bool IsCurlyQuote(const Token& token) {
  return token.kind == TokenKind::Sign && token.text.size() == 1 && token.text[0] >= '\x91' &&
         token.text[0] <= '\x94';
}

bool CheckQuotes(Context& context) {
  for (const Token& token : context.tokens) {
    if (IsCurlyQuote(token)) {
      context.Tell(rule::kForeignSign, token,
                   "as aspas inclinadas de um editor de textos não são aspas do programa",
                   "escreva aspas retas: \"");
      return false;
    }
    if (!IsUnclosed(token)) continue;
    context.Tell(rule::kUnclosedText, token, "este texto não tem as aspas do fim",
                 "feche-o com aspas na mesma linha; para ter aspas dentro de um texto, junte Car(34)");
    return false;
  }
  return true;
}

bool CheckParens(Context& context) {
  std::vector<const Token*> open;
  for (const Token& token : context.tokens) {
    if (token.Is('[') || token.Is(']')) {
      context.Tell(rule::kBracket, token,
                   "a linguagem não tem colchetes: o índice de um vetor fica entre parênteses",
                   "escreva v(0) no lugar de v[0]");
      return false;
    }
    if (token.Is('(')) open.push_back(&token);
    if (!token.Is(')')) continue;
    if (open.empty()) {
      context.Tell(rule::kUnpairedParen, token, "este parêntese fecha sem que outro tenha aberto",
                   "tire-o, ou ponha o que falta",
                   {{context.source.SpanOf(context.tokens[0]), "a instrução começa aqui"}});
      return false;
    }
    open.pop_back();
  }
  if (open.empty()) return true;
  const bool isCondition = context.formed.form == Form::Se || context.formed.form == Form::Enquanto;
  if (isCondition && open.back() == &context.tokens[context.formed.tokens])
    return true;  // told with the condition
  context.Tell(rule::kUnpairedParen, *open.back(), "este parêntese abre e ninguém fecha",
               "ponha \")\" onde ele termina",
               {{context.source.SpanOf(context.tokens.back()), "a instrução termina aqui"}});
  return false;
}

struct HiddenRow {
  std::string_view word;
  bool anyCase;
  std::string_view effect;
};

constexpr std::array kHidden = std::to_array<HiddenRow>({
    {"FIMPROGRAMA", true, "o programa termina nesta linha"},
    {"FIMFUNCAO", true, "a rotina termina nesta linha"},
    {"FIMJANELA", true, "a janela é fechada nesta linha"},
    {"NOVAJANELA", true, "a linha é tomada por um comando NovaJanela"},
    {"VaPara", false, "a linha é tomada por um VaPara"},
});

// Words that the statement loop finds wherever they stand in a line.
void CheckHiddenWords(Context& context) {
  for (std::size_t i = 0; i < context.tokens.size(); ++i) {
    const Token& token = context.tokens[i];
    if (!token.IsLiteral() && !token.IsName()) continue;
    if (token.text.size() < 6) continue;
    for (const HiddenRow& row : kHidden) {
      const std::string_view text = row.anyCase ? token.upper : token.text;
      if (!Contains(text, row.word)) continue;
      const bool isTheWord = i == 0 && text == row.word;
      if (isTheWord) continue;
      if (token.IsName() && context.formed.form != Form::Other && i < context.formed.tokens) continue;
      context.Tell(rule::kHiddenWord, token,
                   std::string(token.IsLiteral() ? "dentro deste texto está " : "dentro deste nome está ") +
                       Shown(row.word) + ": " + std::string(row.effect),
                   token.IsLiteral() ? "junte o texto de dois pedaços, cortando a palavra" : "mude o nome");
      return;
    }
    if (!token.IsLiteral()) continue;
    for (const std::string_view step : {"+ = ", " + =", "- = ", " - ="}) {
      if (!Contains(token.text, step)) continue;
      context.Tell(rule::kHiddenWord, token,
                   "dentro deste texto está " + Shown(step) + ": a linha é tomada por uma soma",
                   "tire os brancos de dentro dele");
      return;
    }
    for (const std::string_view word : {"FIMSE[", "SE[", "REPITA[", "ENQUANTO["}) {
      if (!Contains(token.upper, word)) continue;
      context.Tell(rule::kCountedText, token,
                   "o texto " + Shown(word) + " é contado como palavra de bloco, e o programa não começa",
                   "ponha um branco antes do colchete");
      return;
    }
  }
}

void CheckTextParens(Context& context) {
  if (context.tokens[0].upper == "SQL" || context.formed.form == Form::BdHeader) return;
  for (const Token& token : context.tokens) {
    if (!token.IsLiteral()) continue;
    const bool losesFirst = token.text.starts_with("\"(");
    const bool losesLast = token.text.ends_with(")\"");
    if (!losesFirst && !losesLast) continue;
    context.Tell(rule::kTextParen, token,
                 std::string("um texto perde ") + (losesFirst && losesLast ? "os parênteses das suas pontas"
                                                   : losesFirst            ? "o parêntese em que começa"
                                                                           : "o parêntese em que termina"),
                 losesLast ? "ponha um branco ou um ponto atrás do último parêntese"
                           : "ponha um branco antes do primeiro parêntese");
    return;
  }
}

// In the body of a function a text is searched for its parameters like everything else.
void CheckParametersInTexts(Context& context) {
  if (context.routine == nullptr || !context.routine->isFunction) return;
  for (const Token& token : context.tokens) {
    if (!token.IsLiteral()) continue;
    for (const Local& local : context.routine->locals) {
      for (Position at = Find(token.text, local.name); at != 0; at = Find(token.text, local.name, at + 1)) {
        const char before = CharAt(token.text, at - 1);
        const char behind = CharAt(token.text, at + local.name.size());
        if ((before != ' ' && before != '(') || (behind != ' ' && behind != ',' && behind != ')')) continue;
        context.Tell(
            rule::kParameterInText, context.source.SpanOf(token.offset + at - 1, local.name.size()),
            "a palavra " + Shown(local.name) + " deste texto é tomada pelo nome do parâmetro, e sai trocada",
            "mude o nome do parâmetro: acrescente a ele uma letra ou um número",
            {{context.source.SpanOf(*local.token), "o nome foi declarado aqui"}});
        return;
      }
    }
  }
}

}  // namespace

bool CheckText(Context& context) {
  if (!CheckQuotes(context) || !CheckParens(context)) return false;
  CheckHiddenWords(context);
  CheckTextParens(context);
  CheckParametersInTexts(context);
  return true;
}

void CheckTabs(Context& context) {
  std::size_t lines = 0;
  const Statement* first = nullptr;
  for (const Statement& statement : context.source.statements()) {
    if (!statement.hasTab) continue;
    if (first == nullptr) first = &statement;
    ++lines;
  }
  if (first == nullptr) return;
  const std::string_view line = context.source.LineText(first->line);
  const std::size_t column = line.find('\t');
  const Span place{context.source.editor(), first->line, column == std::string_view::npos ? 1 : column + 1,
                   1};
  context.Tell(rule::kTab, place,
               lines == 1 ? "uma tabulação esconde a palavra atrás dela"
                          : "uma tabulação esconde a palavra atrás dela, aqui e em mais " +
                                std::to_string(lines - 1) + (lines == 2 ? " linha" : " linhas"),
               "recue as linhas com brancos; um editor de textos troca as tabulações de uma vez");
}

}  // namespace tessera::check
