#include "checker/routine_rules.h"

#include <algorithm>
#include <array>

#include "checker/near.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

constexpr std::int64_t kLongestTimer = 32767;

class RoutineCheck {
 public:
  RoutineCheck(Context& context, const BlockMap& blocks, const Routine& routine)
      : context_(context), blocks_(blocks), routine_(routine) {}

  void Run() {
    CheckEnd();
    CheckHead();
    if (routine_.isFunction) CheckReturns();
  }

 private:
  Tokens TokensAt(std::size_t statement) const {
    return context_.source.TokensOf(context_.source.statements()[statement]);
  }
  Form FormAt(std::size_t statement) const { return context_.outline.forms[statement].form; }

  void CheckEnd() {
    const std::string end = routine_.isFunction ? "FimFuncao" : "FimSub";
    if (!routine_.isClosed) {
      context_.Tell(rule::kUnclosedRoutine, *routine_.token,
                    std::string(routine_.isFunction ? "a função " : "a sub-rotina ") +
                        (routine_.name.empty() ? "sem nome" : Shown(routine_.name)) + " não tem o seu " + end,
                    "ponha " + end + " na última linha dela");
      return;
    }
    const Form closing = FormAt(routine_.end);
    if ((closing == Form::FimFuncao) == routine_.isFunction) return;
    context_.Tell(rule::kUnclosedRoutine, TokensAt(routine_.end),
                  std::string(routine_.isFunction ? "uma função" : "uma sub-rotina") + " termina com " + end,
                  "escreva " + Shown(end),
                  {{context_.source.SpanOf(*routine_.token), "a rotina começa aqui"}});
  }

  void CheckHead() {
    if (routine_.name.empty() || !routine_.hasParens) {
      context_.Tell(rule::kRoutineHead, TokensAt(routine_.begin), "faltam os parênteses no nome da rotina",
                    routine_.isFunction ? "escreva Funcao Nome(a Inteiro) Numero" : "escreva Sub Nome()");
      return;
    }
    if ((routine_.token + 1)->blankBefore) {
      context_.Tell(rule::kRoutineHead, *routine_.token,
                    "há um branco entre o nome da rotina e os parênteses",
                    "escreva " + Shown(std::string(routine_.name) + "(...)") + ", sem o branco");
      return;
    }
    if (routine_.isFunction) return CheckFunctionHead();
    if (routine_.name.starts_with("Temporizador_")) return CheckTimer();
    if (!routine_.parameterTokens.empty()) {
      context_.Tell(rule::kRoutineHead, routine_.parameterTokens, "uma sub-rotina não tem parâmetros",
                    "tire-os e use variáveis do programa, ou faça dela uma Funcao");
    }
  }

  void CheckFunctionHead() {
    constexpr std::array kTypes = {"String", "Inteiro", "Decimal"};
    for (const Tokens part : SplitAtCommas(routine_.parameterTokens)) {
      if (part.size() < 2 || !part[0].IsName()) {
        context_.Tell(rule::kRoutineHead, part.empty() ? Tokens(routine_.token, 1) : part,
                      "falta o tipo deste parâmetro", "escreva o nome e o tipo: a Inteiro");
        return;
      }
      if (std::find(kTypes.begin(), kTypes.end(), part[1].text) == kTypes.end()) {
        Nearest nearest(part[1].text);
        for (const char* type : kTypes) nearest.Show(type);
        context_.Tell(rule::kUnknownType, part[1],
                      "não há tipo " + Shown(part[1].text) + " para um parâmetro",
                      nearest.found().empty() ? "os tipos são String, Inteiro e Decimal"
                                              : "você quis dizer " + Shown(nearest.found()) + "?");
        return;
      }
    }
    if (routine_.resultType.empty()) {
      context_.Tell(rule::kRoutineHead, *routine_.token, "falta o tipo do resultado da função",
                    "escreva Numero ou String atrás dos parênteses");
      return;
    }
    const bool isKnown = routine_.resultType == "Numero" ||
                         std::find(kTypes.begin(), kTypes.end(), routine_.resultType) != kTypes.end();
    if (!isKnown) {
      const Token& type = TokensAt(routine_.begin).back();
      Nearest nearest(type.text);
      for (const char* known : {"Numero", "String", "Inteiro"}) nearest.Show(known);
      context_.Tell(rule::kUnknownType, type,
                    "não há tipo " + Shown(type.text) + " para o resultado de uma função",
                    nearest.found().empty() ? "use Numero ou String"
                                            : "você quis dizer " + Shown(nearest.found()) + "?");
      return;
    }
    CheckFraction();
  }

  bool MayHaveFraction(Tokens value) const {
    return std::any_of(value.begin(), value.end(), [&](const Token& token) {
      if (token.Is('/')) return true;
      if (token.IsNumber()) return Contains(token.text, ".");
      if (!token.IsName()) return false;
      for (const Local& local : routine_.locals) {
        if (local.name == token.text) return local.type == "Decimal";
      }
      const Variable* variable = context_.names.FindVariable(token.upper);
      return variable != nullptr && variable->type == "Decimal";
    });
  }

  // A fraction comes back with a comma, which an assignment takes for a cut between two values.
  void CheckFraction() {
    if (routine_.resultType != "Decimal" && routine_.resultType != "Inteiro") return;
    for (std::size_t i = routine_.begin + 1; i < routine_.end; ++i) {
      if (FormAt(i) != Form::Retorne || !MayHaveFraction(TokensAt(i).subspan(1))) continue;
      const Tokens head = TokensAt(routine_.begin);
      context_.Tell(rule::kDecimalResult, head.back(),
                    "o resultado de uma função " + std::string(routine_.resultType) +
                        " perde a vírgula em uma atribuição: 52,5 vira 525",
                    "escreva o tipo Numero",
                    {{context_.source.SpanOf(TokensAt(i)), "este resultado pode ter fração"}});
      return;
    }
  }

  void CheckTimer() {
    if (routine_.parameterTokens.empty()) {
      const std::string_view timer = routine_.name.substr(routine_.name.find('_') + 1);
      if (IsStarted(Upper(timer))) return;
      context_.Tell(
          rule::kTimer, *routine_.token, "o temporizador não tem um tempo, e ninguém o liga",
          "ponha o tempo entre os parênteses, em centésimos de segundo, ou ligue-o com Temporizador " +
              ToUtf8(timer) + ".Ativa, 10");
      return;
    }
    const Tokens value = routine_.parameterTokens;
    const std::int64_t ticks = value.size() == 1 ? IntegerOf(value[0]) : -1;
    if (ticks > 0 && ticks <= kLongestTimer) return;
    context_.Tell(rule::kTimer, value,
                  ticks == 0 ? "um temporizador de 0 nunca dispara"
                             : "o tempo de um temporizador é um número de 1 a 32767",
                  "o tempo conta em centésimos de segundo, de 1 a 32767");
  }

  bool IsStarted(const std::string& timer) const {
    for (const Editor& editor : context_.names.editors()) {
      for (const Statement& statement : editor.source->statements()) {
        const Tokens tokens = editor.source->TokensOf(statement);
        if (tokens.size() > 1 && tokens[0].upper == "TEMPORIZADOR" && tokens[1].upper == timer + ".ATIVA")
          return true;
      }
    }
    return false;
  }

  void CheckReturns() {
    const std::size_t none = kNone;
    std::size_t earlier = none;
    bool isThere = false;
    for (std::size_t i = routine_.begin + 1; i < routine_.end; ++i) {
      if (FormAt(i) != Form::Retorne) continue;
      isThere = true;
      if (earlier != none && blocks_.around[i] == kNone) {
        // "Retorne 0" and then the cases that differ is the language's own way; the other way round each case
        // is lost.
        context_.Tell(rule::kSecondReturn, TokensAt(i).subspan(0, 1),
                      "Retorne não termina a função: este resultado toma o lugar do anterior, sempre",
                      "ponha este no CasoContrario, ou antes dos outros",
                      {{context_.source.SpanOf(TokensAt(earlier)), "este resultado se perde"}});
      }
      earlier = i;
    }
    if (!isThere && routine_.isClosed && !routine_.name.empty()) {
      context_.Tell(
          rule::kNoReturn, *routine_.token,
          "a função " + Shown(routine_.name) + " não tem Retorne: ela dá o resultado de outra, ou nada",
          "escreva Retorne e o resultado, ou faça dela uma Sub");
    }
  }

  Context& context_;
  const BlockMap& blocks_;
  const Routine& routine_;
};

// An endless loop, or an end word, that stands outside of any block.
bool EndsTheProgram(const Context& context, const BlockMap& blocks, std::size_t statement) {
  if (blocks.around[statement] != kNone) return false;
  const Form form = context.outline.forms[statement].form;
  if (form == Form::FimPrograma || form == Form::FimJanela || form == Form::VaPara) return true;
  if (form != Form::Enquanto) return false;
  const Tokens tokens = context.source.TokensOf(context.source.statements()[statement]);
  return tokens.size() == 4 && tokens[2].Is('=') && tokens[1].text == tokens[3].text;
}

void CheckRoutineInTheWay(Context& context, const BlockMap& blocks) {
  if (context.source.editor() != 0) return;
  for (std::size_t i = 0; i < context.outline.forms.size(); ++i) {
    if (context.outline.routineOf[i] == kNone) {
      if (EndsTheProgram(context, blocks, i)) return;
      continue;
    }
    const Routine& routine = context.outline.routines[context.outline.routineOf[i]];
    context.Tell(rule::kRoutineInTheWay, *routine.token,
                 "a execução chega a esta rotina de cima para baixo, como se fosse parte do programa",
                 "ponha FimPrograma antes da primeira rotina");
    return;
  }
}

void CheckStrayEnds(Context& context) {
  for (std::size_t i = 0; i < context.outline.forms.size(); ++i) {
    const Form form = context.outline.forms[i].form;
    if ((form != Form::FimFuncao && form != Form::FimSub) || context.outline.routineOf[i] != kNone) continue;
    const Tokens tokens = context.source.TokensOf(context.source.statements()[i]);
    context.Tell(rule::kEndWithoutBlock, tokens, Shown(WordOf(form)) + " sem rotina aberta acima",
                 "tire esta linha, ou escreva o começo da rotina");
  }
}

// A function or sub whose name is taken for another's where it is called.
void CheckName(Context& context, const RoutineRef& named, std::size_t row) {
  const std::string_view name = named.routine->name;
  const std::vector<RoutineRef>& functions = context.names.functions();
  const auto tell = [&](std::string message, std::string advice, const RoutineRef& other) {
    context.Tell(rule::kRoutineNames, *named.routine->token, std::move(message), std::move(advice),
                 {{context.names.PlaceOf(other.editor, *other.routine->token), "a outra é esta"}});
  };
  for (std::size_t i = 0; i < row; ++i) {
    const std::string_view other = functions[i].routine->name;
    if (other == name)
      return tell("já há uma função " + Shown(name), "dê outro nome a uma das duas", functions[i]);
    if (other.starts_with(name))
      return tell(
          "chamar " + Shown(name) + " chama " + Shown(other) + ", que está antes e cujo nome começa igual",
          "ponha " + Shown(name) + " antes de " + Shown(other) + ", ou mude um dos nomes", functions[i]);
    if (name.ends_with(other))
      return tell("chamar " + Shown(name) + " chama " + Shown(other) + ", com que o seu nome termina",
                  "ponha " + Shown(name) + " antes de " + Shown(other) + ", ou mude um dos nomes",
                  functions[i]);
  }
}

// A word in front of the routines that ends the search for them.
struct Killer {
  std::string_view word;
  bool anyCase;
  bool ofFunctions;
};

bool Hides(Tokens tokens, const FormedWord& formed, const Killer& killer) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (i == 0 && formed.form != Form::Other) continue;
    const std::string_view text = killer.anyCase ? token.upper : token.text;
    if (token.IsLiteral() && Contains(text, std::string(killer.word) + " ")) return true;
    const bool isRelated = i + 1 < tokens.size() && tokens[i + 1].IsRelation();
    const bool hasBlank = (token.blankBehind && i + 1 < tokens.size()) || isRelated;
    if (token.IsName() && text.ends_with(killer.word) && hasBlank &&
        (i > 0 || text.size() > killer.word.size()))
      return true;
  }
  return false;
}

// The first routine of that kind behind a place; null for none.
const RoutineRef* FirstBehind(const std::vector<RoutineRef>& routines, std::size_t editor,
                              std::size_t statement) {
  for (const RoutineRef& row : routines) {
    if (row.editor > editor || (row.editor == editor && row.routine->begin > statement)) return &row;
  }
  return nullptr;
}

void CheckHidden(Context& context, const Killer& killer) {
  const auto& routines = killer.ofFunctions ? context.names.functions() : context.names.subs();
  for (std::size_t i = 0; i < context.outline.forms.size(); ++i) {
    const std::size_t row = context.outline.routineOf[i];
    // Inside a routine of its own kind the search passes over it.
    if (row != kNone && context.outline.routines[row].isFunction == killer.ofFunctions) continue;
    const Tokens tokens = context.source.TokensOf(context.source.statements()[i]);
    if (!Hides(tokens, context.outline.forms[i], killer)) continue;
    const RoutineRef* hidden = FirstBehind(routines, context.source.editor(), i);
    if (hidden == nullptr) return;
    context.Tell(
        rule::kHiddenRoutine, tokens,
        "as letras " + Shown(std::string(killer.word) + " ") + " desta linha escondem " +
            (killer.ofFunctions ? "as funções" : "as sub-rotinas") + " que vêm depois",
        "mude o texto ou o nome; escreva, por exemplo, um traço no lugar do branco",
        {{context.names.PlaceOf(hidden->editor, *hidden->routine->token), "a primeira que se perde é esta"}});
    return;
  }
}

}  // namespace

void CheckRoutines(Context& context, const BlockMap& blocks) {
  for (const Routine& routine : context.outline.routines) RoutineCheck(context, blocks, routine).Run();
  CheckRoutineInTheWay(context, blocks);
  CheckStrayEnds(context);
}

void CheckRoutineNames(Context& context) {
  const std::vector<RoutineRef>& functions = context.names.functions();
  for (std::size_t i = 0; i < functions.size(); ++i) {
    if (functions[i].editor == context.source.editor() && !functions[i].routine->name.empty())
      CheckName(context, functions[i], i);
  }
  const std::vector<RoutineRef>& subs = context.names.subs();
  for (std::size_t i = 0; i < subs.size(); ++i) {
    if (subs[i].editor != context.source.editor()) continue;
    const RoutineRef* first = context.names.FindSub(subs[i].routine->name);
    if (first == &subs[i] || first == nullptr || subs[i].routine->name.empty()) continue;
    context.Tell(rule::kRoutineNames, *subs[i].routine->token,
                 "já há uma sub-rotina " + Shown(subs[i].routine->name), "dê outro nome a uma das duas",
                 {{context.names.PlaceOf(first->editor, *first->routine->token), "a outra é esta"}});
  }
  CheckHidden(context, {"FUNCAO", true, true});
  CheckHidden(context, {"Sub", false, false});
}

}  // namespace tessera::check
