#include "checker/statement_rules.h"

#include <algorithm>
#include <array>

#include "checker/assignments.h"
#include "checker/commands.h"
#include "checker/conditions.h"
#include "checker/expression.h"
#include "checker/near.h"
#include "checker/reading.h"
#include "checker/rehearsal.h"
#include "language/words.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

// Commands that other languages have, and what does the same here.
struct ForeignCommand {
  std::string_view word;
  std::string_view advice;
};

constexpr std::array kForeignCommands = std::to_array<ForeignCommand>({
    {"PRINT", "para escrever na janela use Escreva"},
    {"IMPRIMA", "para escrever na janela use Escreva"},
    {"IMPRIMIR", "para escrever na janela use Escreva"},
    {"ESCREVER", "para escrever na janela use Escreva"},
    {"MOSTRE", "para escrever na janela use Escreva, para uma caixa use Mensagem"},
    {"MSGBOX", "para uma caixa use Mensagem"},
    {"INPUT", "para pedir um texto use x = EntraTexto(\"...\")"},
    {"LEIA", "para pedir um texto use x = EntraTexto(\"...\")"},
    {"LER", "para pedir um texto use x = EntraTexto(\"...\")"},
    {"REM", "um comentário começa com '"},
    {"END", "o programa termina em FimPrograma, um bloco em FimSe ou Repita"},
    {"FIM", "um bloco termina em FimSe ou Repita, uma rotina em FimSub ou FimFuncao"},
    {"INICIO", "um programa não tem palavra de começo: tire-a"},
    {"PROGRAMA", "um programa não tem palavra de começo: tire-a"},
    {"ESCOLHA", "não há escolha entre casos: use Se ... FimSe um atrás do outro"},
    {"SELECT", "não há escolha entre casos: use Se ... FimSe um atrás do outro"},
    {"ELSEIF", "não há outro Se na mesma palavra: ponha um Se ... FimSe dentro de CasoContrario"},
    {"SENAOSE", "não há outro Se na mesma palavra: ponha um Se ... FimSe dentro de CasoContrario"},
    {"BREAK", "para sair de um laço use VaPara e um rótulo, ou mude a condição"},
    {"PARE", "para sair de um laço use VaPara e um rótulo, ou mude a condição"},
    {"EXIT", "para sair de um laço use VaPara e um rótulo, ou mude a condição"},
    {"CALL", "uma sub-rotina se chama pelo seu nome: Nome()"},
    {"ENTAO", "tire-a: o bloco começa na linha de baixo"},
    {"FACA", "tire-a: o bloco começa na linha de baixo"},
});

void TellSpelling(Context& context) {
  const Tokens word = context.tokens.subspan(0, context.formed.tokens);
  const std::string right(WordOf(context.formed.form));
  const std::string written = Shown(context.source.TextOf(word));
  std::string message;
  std::string advice = "escreva " + Shown(right);
  switch (context.formed.spelling) {
    case Spelling::Right:
      return;
    case Spelling::Case:
      message = written + " não é reconhecida: as palavras de bloco valem só nas letras certas";
      break;
    case Spelling::Accent:
      message = written + " não é reconhecida: as palavras da linguagem não têm acentos";
      break;
    case Spelling::Split:
      message = written + " são duas palavras, e a linguagem tem uma só";
      break;
    case Spelling::Foreign: {
      message = written + " não é uma palavra da linguagem";
      const std::string folded = Folded(word[0].text);
      if (folded == "PARA" || folded == "FOR")
        advice = "não há laço com contador: use Enquanto i <= 10 ... i++ ... Repita";
      break;
    }
    case Spelling::Near:
      message = written + " não é uma palavra da linguagem";
      advice = "você quis dizer " + Shown(right) + "?";
      break;
    case Spelling::NoBlank:
      message = "falta um branco atrás de " + written;
      advice = "uma condição não leva parênteses: escreva " + Shown(right + " x = 1");
      if (context.formed.form == Form::Retorne) {
        message = "Retorne não leva parênteses, e precisa de um branco";
        advice = "escreva " + Shown("Retorne valor");
      }
      break;
  }
  context.Tell(rule::kBlockSpelling, word, message, advice);
}

// Something behind a word that takes nothing.
void CheckNothingBehind(Context& context) {
  if (context.tokens.size() <= context.formed.tokens || context.formed.spelling == Spelling::Foreign) return;
  const Tokens rest = context.tokens.subspan(context.formed.tokens);
  const bool isSe = context.formed.form == Form::CasoContrario && Folded(rest[0].text) == "SE";
  context.Tell(rule::kBehindBlockWord, rest,
               "o que está atrás de " + std::string(WordOf(context.formed.form)) + " não é lido",
               isSe ? "ponha o Se em uma linha própria, e feche-o com um FimSe a mais"
               : context.formed.form == Form::Repita ? "a condição fica no Enquanto; tire o resto da linha"
                                                     : "ponha a instrução em uma linha própria");
}

void CheckDeclaration(Context& context) {
  const Tokens list = context.tokens.subspan(context.formed.tokens);
  if (list.empty()) {
    context.Tell(rule::kBadDeclaration, context.tokens, "Var sem nenhuma variável", "escreva Var nome Tipo");
    return;
  }
  for (const Tokens item : SplitAtCommas(list)) {
    if (item.empty()) {
      context.Tell(rule::kBadDeclaration, context.tokens.subspan(0, 1),
                   "há uma vírgula sem variável: as de trás não são declaradas",
                   "tire a vírgula, ou ponha o nome que falta");
      return;
    }
    if (!item[0].IsName()) {
      context.Tell(rule::kBadDeclaration, item[0],
                   Shown(item[0].text) + " não pode começar o nome de uma variável",
                   "um nome começa com uma letra");
      return;
    }
    if (item[0].text.size() > 50) {
      context.Tell(rule::kBadDeclaration, item[0], "o nome tem mais de 50 letras, e não será encontrado",
                   "encurte o nome");
      return;
    }
    if (item[0].text.starts_with("BD") && context.FindLocal(item[0].text) == nullptr) {
      context.Tell(rule::kHiddenWord, item[0], "uma linha que começa com BD é tomada por um banco de dados",
                   "mude o começo do nome");
      return;
    }
    std::size_t next = 1;
    if (next < item.size() && item[next].Is('(')) {
      const std::size_t close = ClosingParen(item, next);
      const Tokens count = item.subspan(next + 1, close - next - 1);
      if (count.size() != 1 || IntegerOf(count[0]) <= 0) {
        context.Tell(rule::kBadDeclaration, count.empty() ? item.subspan(0, 1) : count,
                     "o número de elementos de um vetor é um número escrito por extenso na declaração",
                     "escreva o número, como em Var " + ToUtf8(item[0].text) +
                         "(10) Inteiro; um vetor tem uma dimensão só");
        return;
      }
      next = close + 1;
    }
    if (next == item.size()) continue;
    const Token& type = item[next];
    constexpr std::array kTypes = {"String", "Inteiro", "Decimal"};
    const bool isKnown = std::find(kTypes.begin(), kTypes.end(), type.text) != kTypes.end();
    if (type.Is('=') || type.Is(':')) {
      context.Tell(
          rule::kBadDeclaration, type,
          type.Is('=') ? "Var não dá um valor à variável" : "entre o nome e o tipo fica um branco só",
          type.Is('=') ? "declare primeiro, e dê o valor na linha de baixo" : "escreva Var nome Tipo");
      return;
    }
    if (!isKnown && next + 1 < item.size() &&
        std::find(kTypes.begin(), kTypes.end(), item[next + 1].text) != kTypes.end()) {
      context.Tell(rule::kBadDeclaration, item.subspan(0, next + 1), "o nome de uma variável não tem brancos",
                   "escreva o nome em uma palavra só, ou ponha a vírgula que falta");
      continue;
    }
    if (!isKnown) {
      Nearest nearest(type.text);
      for (const char* known : kTypes) nearest.Show(known);
      const std::string folded = Folded(type.text);
      std::string advice = "os tipos são String, Inteiro e Decimal";
      if (!nearest.found().empty()) advice = "você quis dizer " + Shown(nearest.found()) + "?";
      if (folded == "REAL" || folded == "NUMERO" || folded == "FLOAT" || folded == "DOUBLE" ||
          folded == "MOEDA")
        advice = "use Decimal";
      if (folded == "INTEGER" || folded == "INT" || folded == "LONG" || folded == "LOGICO")
        advice = "use Inteiro";
      if (folded == "TEXTO" || folded == "CARACTERE" || folded == "DATA") advice = "use String";
      context.Tell(rule::kUnknownType, type,
                   "não há tipo " + Shown(type.text) + ": a variável não é declarada", advice);
      continue;
    }
    if (next + 1 < item.size()) {
      context.Tell(rule::kBadDeclaration, item[next + 1],
                   "falta uma vírgula antes de " + Shown(item[next + 1].text),
                   "separe as variáveis com vírgulas");
    }
  }
}

void CheckReturn(Context& context) {
  const Tokens value = context.tokens.subspan(context.formed.tokens);
  if (context.routine == nullptr || !context.routine->isFunction) {
    context.Tell(rule::kReturnOutside, context.tokens.subspan(0, 1),
                 "Retorne fora de uma função não faz nada",
                 "Retorne dá o resultado de uma Funcao; uma sub-rotina termina no seu FimSub");
    return;
  }
  if (value.empty()) {
    context.Tell(rule::kTooFew, context.tokens, "Retorne sem um valor", "escreva o resultado: Retorne x");
    return;
  }
  if (SplitAtCommas(value).size() > 1 && !value[0].IsNumber()) {
    context.Tell(rule::kJoinedElsewhere, value, "Retorne dá um valor só: a vírgula fica no meio dele",
                 "junte antes em uma variável: texto = ... & ...");
    return;
  }
  const std::size_t told = context.findings.size();
  CheckExpression(context, value, {.place = Place::Return});
  if (context.findings.size() == told) Rehearse(context, value, Place::Return, Type::Unknown);
}

// A call of a sub, or of a function as if it were one. False where the first token names no routine.
bool CheckRoutineCall(Context& context) {
  const Tokens tokens = context.tokens;
  const Token& name = tokens[0];
  if (const RoutineRef* sub = context.names.FindSubAnyCase(name.upper)) {
    const std::string right = std::string(sub->routine->name) + "()";
    const Note declared{context.names.PlaceOf(sub->editor, *sub->routine->token), "a sub-rotina é esta"};
    const bool isWell = name.text == sub->routine->name && tokens.size() == 3 && tokens[1].Is('(') &&
                        !tokens[1].blankBefore && tokens[2].Is(')') && !tokens[2].blankBefore;
    if (isWell) return true;
    std::string message = "a sub-rotina se chama com o nome e os parênteses, sem brancos";
    if (name.text != sub->routine->name)
      message = "o nome de uma sub-rotina vale só na caixa em que foi escrito";
    if (tokens.size() > 3 && tokens[1].Is('(')) message = "uma sub-rotina não recebe valores";
    if (tokens.size() == 3 && tokens[2].Is(')') && tokens[1].blankBefore)
      message = "há um branco antes dos parênteses";
    context.Tell(rule::kSubCall, tokens, message,
                 tokens.size() > 3 && tokens[1].Is('(')
                     ? "ponha os valores em variáveis antes da chamada, ou faça dela uma Funcao"
                     : "escreva " + Shown(right),
                 {declared});
    return true;
  }
  if (const RoutineRef* function = context.names.FindFunctionAnyCase(name.upper)) {
    context.Tell(
        rule::kFunctionAsCommand, tokens, "uma função não se chama em uma linha própria",
        "guarde o seu resultado: x = " + ToUtf8(context.source.TextOf(tokens)) + "; ou faça dela uma Sub",
        {{context.names.PlaceOf(function->editor, *function->routine->token), "a função é esta"}});
    return true;
  }
  return false;
}

void TellUnknownWord(Context& context) {
  const Tokens tokens = context.tokens;
  const Token& word = tokens[0];
  const std::string folded = Folded(word.text);
  for (const ForeignCommand& row : kForeignCommands) {
    if (row.word != folded) continue;
    context.Tell(rule::kUnknownWord, word, Shown(word.text) + " não é uma palavra da linguagem",
                 std::string(row.advice));
    return;
  }
  const bool isCall = tokens.size() > 1 && tokens[1].Is('(');
  Nearest nearest(word.text);
  for (const RoutineRef& sub : context.names.subs()) nearest.Show(std::string(sub.routine->name));
  if (!isCall || nearest.found().empty()) {
    for (const Word& known : Words()) {
      if (known.role != Role::Value && known.role != Role::Declaration) nearest.Show(known.name);
    }
  }
  std::string near = nearest.found();
  const bool isSub = !near.empty() && context.names.FindSub(near) != nullptr;
  if (isSub) near += "()";
  std::string advice = "veja a palavra: uma linha começa com um comando, uma variável ou uma sub-rotina";
  if (isCall && near.empty())
    advice = "escreva a sub-rotina: Sub " + ToUtf8(word.text) + "() ... FimSub, ou acerte o nome";
  if (!near.empty()) advice = "você quis dizer " + Shown(near) + "?";
  context.Tell(rule::kUnknownWord, word, "não conheço a palavra " + Shown(word.text), advice);
}

void TellNoWord(Context& context) {
  const Token& first = context.tokens[0];
  std::string advice = "uma linha começa com um comando, uma variável ou uma sub-rotina";
  if (first.Is('/') || first.Is('#') || first.Is('*') || first.Is('-')) advice = "um comentário começa com '";
  if (first.Is('{') || first.Is('}')) advice = "blocos terminam com FimSe e Repita";
  context.Tell(rule::kUnknownWord, first, "uma linha não começa com " + Shown(first.text), advice);
}

// Linking takes the beginning of a name for the block word.
bool TakesBlockWord(Context& context, const Token& name) {
  for (const std::string_view word : {"CasoContrario", "FimSe", "Repita", "Enquanto"}) {
    if (!name.text.starts_with(word)) continue;
    context.Tell(rule::kHiddenWord, name,
                 "um nome que começa com " + Shown(word) + " é tomado pela palavra de bloco",
                 "mude o começo do nome");
    return true;
  }
  return false;
}

void CheckOther(Context& context) {
  const Tokens tokens = context.tokens;
  const Token& word = tokens[0];
  if (!word.IsName()) return TellNoWord(context);
  if (IsAssignment(tokens)) return CheckAssignment(context);
  if (tokens.size() > 2 && tokens[1].Is('=') && tokens[2].Is('=')) {
    context.Tell(rule::kForeignSign, tokens.subspan(1, 2),
                 "a atribuição se escreve com um só =", "escreva \"=\"");
    return;
  }
  if (tokens.size() > 2 && (tokens[1].Is(':') || tokens[1].Is('*') || tokens[1].Is('/')) &&
      tokens[2].Is('=')) {
    context.Tell(rule::kForeignSign, tokens.subspan(1, 2),
                 "a linguagem não tem " + Shown(context.source.TextOf(tokens.subspan(1, 2))),
                 tokens[1].Is(':')
                     ? "escreva \"=\""
                     : "escreva a conta inteira: x = x " + std::string(tokens[1].text) + " ...");
    return;
  }
  if (TakesBlockWord(context, word)) return;
  if (CheckRoutineCall(context)) return;
  const bool isVariable =
      context.names.FindVariable(word.upper) != nullptr || context.FindLocal(word.text) != nullptr;
  const Word* known = FindWord(word.text);
  if (isVariable) {
    if (known != nullptr && known->role != Role::Value) return;  // told where the variable is declared
    context.Tell(rule::kExpressionShape, tokens, "falta o que fazer com a variável " + Shown(word.text),
                 "para lhe dar um valor: " + ToUtf8(word.text) + " = ...; para a mostrar: Escreva " +
                     ToUtf8(word.text));
    return;
  }
  if (known != nullptr && known->role != Role::Block) return CheckCommand(context, *known);
  const std::string_view prefix = Left(word.upper, 4);
  if (prefix == "REL." || prefix == "IMP.") return CheckCommand(context, *FindWord(Left(word.upper, 3)));
  TellUnknownWord(context);
}

}  // namespace

// 'texto' in the quotes of another language is a comment here.
bool TellCommentAsText(Context& context) {
  if (context.formed.form != Form::Other) return false;
  const Span last = context.source.SpanOf(context.tokens.back());
  const std::string_view line = context.source.LineText(last.line);
  const std::string_view rest = Trim(line.substr(std::min(last.column - 1 + last.size, line.size())));
  const bool isQuoted = rest.size() > 2 && rest.front() == '\'' && rest.back() == '\'' && rest[1] != ' ';
  if (!isQuoted) return false;
  context.Tell(rule::kUnclosedText,
               Span{context.source.editor(), last.line, line.rfind(rest) + 1, rest.size()},
               "o apóstrofo começa um comentário, e não um texto", "ponha o texto entre aspas: \"...\"");
  return true;
}

void CheckStatement(Context& context) {
  TellSpelling(context);
  if (TellCommentAsText(context)) return;
  const Tokens rest =
      context.tokens.subspan(std::min<std::size_t>(context.formed.tokens, context.tokens.size()));
  switch (context.formed.form) {
    case Form::Other:
      return CheckOther(context);
    case Form::Declaration:
      return CheckDeclaration(context);
    case Form::Se:
    case Form::Enquanto: {
      const bool isTold =
          context.formed.spelling == Spelling::NoBlank || context.formed.spelling == Spelling::Foreign;
      if (!isTold) CheckCondition(context, rest);
      return;
    }
    case Form::CasoContrario:
    case Form::FimSe:
    case Form::Repita:
      return CheckNothingBehind(context);
    case Form::Retorne:
      if (context.formed.spelling != Spelling::NoBlank) CheckReturn(context);
      return;
    case Form::Label:
      if (rest.empty()) return;
      if (rest[0].Is('=')) {
        context.Tell(rule::kForeignSign, rest[0], "a atribuição se escreve com =", "tire o :");
        return;
      }
      context.Tell(rule::kBehindLabel, rest, "o que está atrás de um rótulo não é executado",
                   "ponha a instrução na linha de baixo");
      return;
    default:
      return;
  }
}

}  // namespace tessera::check
