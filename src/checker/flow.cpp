#include "checker/flow.h"

#include <algorithm>
#include <set>

#include "checker/near.h"
#include "text/one_based.h"

namespace tessera::check {

namespace {

Tokens TokensAt(const Context& context, std::size_t statement) {
  return context.source.TokensOf(context.source.statements()[statement]);
}

bool IsWithin(const BlockMap& blocks, std::size_t inner, std::size_t outer) {
  for (std::size_t row = inner; row != kNone; row = blocks.blocks[row].parent) {
    if (row == outer) return true;
  }
  return outer == kNone;
}

void CheckDoubledLabels(Context& context) {
  const auto& labels = context.outline.labels;
  for (std::size_t i = 0; i < labels.size(); ++i) {
    const std::size_t routine = context.outline.routineOf[labels[i].statement];
    for (std::size_t j = 0; j < i; ++j) {
      if (context.outline.routineOf[labels[j].statement] != routine) continue;
      const bool isSame = labels[j].name == labels[i].name;
      if (!isSame && !labels[j].name.ends_with(labels[i].name)) continue;
      context.Tell(
          rule::kDoubledLabel, TokensAt(context, labels[i].statement)[0],
          isSame ? "o rótulo " + Shown(labels[i].name) + " já está acima: VaPara vai sempre ao primeiro"
                 : "VaPara " + ToUtf8(labels[i].name) + " vai a " + Shown(labels[j].name) +
                       ", que termina igual e está acima",
          "dê outro nome a este rótulo",
          {{context.source.SpanOf(TokensAt(context, labels[j].statement)[0]), "o primeiro está aqui"}});
      break;
    }
  }
}

void CheckJump(Context& context, const BlockMap& blocks, std::size_t statement) {
  const FormedWord& formed = context.outline.forms[statement];
  const Tokens tokens = TokensAt(context, statement);
  const Tokens target = tokens.subspan(std::min<std::size_t>(formed.tokens, tokens.size()));
  if (target.empty()) {
    context.Tell(rule::kNoLabel, tokens, "VaPara sem um rótulo", "escreva o nome de um rótulo: VaPara fim");
    return;
  }
  if (target.back().Is(':')) {
    context.Tell(rule::kNoLabel, target.back(), "o rótulo de VaPara vai sem os dois pontos",
                 "tire o \":\" daqui; ele fica na linha do rótulo");
    return;
  }
  if (target.size() > 1 || !target[0].IsName()) {
    context.Tell(rule::kNoLabel, target, "um rótulo é uma palavra só", "escreva VaPara e o nome do rótulo");
    return;
  }
  const std::string_view name = target[0].text;
  const Label* elsewhere = nullptr;
  Nearest nearest(name);
  for (const Label& label : context.outline.labels) {
    const bool isHere = context.outline.routineOf[label.statement] == context.outline.routineOf[statement];
    if (label.name == name && !isHere) elsewhere = &label;
    if (isHere) nearest.Show(label.name);
    if (label.name != name || !isHere) continue;
    const std::size_t block = blocks.around[label.statement];
    if (!IsWithin(blocks, blocks.around[statement], block)) {
      context.Tell(
          rule::kJumpIntoBlock, target[0], "VaPara entra no meio de um bloco, sem passar pela sua condição",
          "ponha o rótulo fora do bloco",
          {{context.source.SpanOf(TokensAt(context, blocks.blocks[block].open)), "o bloco começa aqui"}});
    }
    return;
  }
  std::vector<Note> notes;
  if (elsewhere != nullptr)
    notes.push_back(
        {context.source.SpanOf(TokensAt(context, elsewhere->statement)[0]), "este está em outra rotina"});
  context.Tell(rule::kNoLabel, target[0],
               elsewhere != nullptr
                   ? "o rótulo " + Shown(name) + " está em outra rotina, e de lá não se chega a ele"
                   : "não há rótulo " + Shown(name) + " nesta parte do programa",
               nearest.found().empty() ? "escreva o rótulo em uma linha própria: " + ToUtf8(name) + ":"
                                       : "você quis dizer " + Shown(nearest.found()) + "?",
               std::move(notes));
}

bool IsEndless(const Context& context, const Block& block) {
  const Tokens tokens = TokensAt(context, block.open);
  return block.form == Form::Enquanto && tokens.size() == 4 && tokens[2].Is('=') &&
         tokens[1].text == tokens[3].text && tokens[1].kind == tokens[3].kind;
}

// Whether a statement may stand behind one that never goes on: something reaches it by another way.
bool IsReachedOtherwise(Form form) {
  switch (form) {
    case Form::Label:
    case Form::FimSe:
    case Form::Repita:
    case Form::CasoContrario:
    case Form::Funcao:
    case Form::FimFuncao:
    case Form::Sub:
    case Form::FimSub:
    case Form::FimPrograma:
      return true;
    default:
      return false;
  }
}

constexpr std::string_view kEventNames[] = {"TESTABOTAO", "CLIQUEMOUSE", "LINHAMOUSE",  "COLUNAMOUSE",
                                            "GANHOUFOCO", "PERDEUFOCO",  "VALOROBJETO", "INDICEREF",
                                            "EVENTO",     "TESTATECLA",  "TESTAMOUSE"};

bool ReadsEvents(const Context& context, Tokens tokens) {
  return std::any_of(tokens.begin(), tokens.end(), [&](const Token& token) {
    if (!token.IsName()) return false;
    if (std::find(std::begin(kEventNames), std::end(kEventNames), token.upper) != std::end(kEventNames))
      return true;
    const Variable* variable = context.names.FindVariable(token.upper);
    return variable != nullptr && variable->origin == Origin::Companion;
  });
}

// Whether a jump leads to a label at its own level or further out: what stands behind others is told there.
bool HasItsLabel(const Context& context, const BlockMap& blocks, std::size_t statement) {
  const Tokens tokens = TokensAt(context, statement);
  return std::any_of(context.outline.labels.begin(), context.outline.labels.end(), [&](const Label& label) {
    return label.name == tokens.back().text &&
           IsWithin(blocks, blocks.around[statement], blocks.around[label.statement]);
  });
}

class LoopCheck {
 public:
  LoopCheck(Context& context, const Block& block, Summaries& summaries)
      : context_(context),
        block_(block),
        summaries_(summaries),
        body_(summaries.Of(context.source.editor(), block.open, block.close)) {}

  void Run() {
    const Tokens head = TokensAt(context_, block_.open);
    const Tokens condition = head.subspan(std::min<std::size_t>(1, head.size()));
    const bool isEndless = IsEndless(context_, block_);
    bool readsEvents = ReadsEvents(context_, condition);
    for (std::size_t i = block_.open + 1; isEndless && i < block_.close; ++i)
      readsEvents = readsEvents || ReadsEvents(context_, TokensAt(context_, i));
    if (!body_.yields && (readsEvents || (isEndless && !body_.leaves))) {
      context_.Tell(rule::kDeafLoop, head,
                    "este laço não deixa passar os eventos: botões e teclas não respondem dentro dele",
                    "ponha Aguarde Eventos dentro do laço, ou espere com Aguarde CliqueBotao");
      return;
    }
    if (!isEndless && !body_.leaves && !body_.writesAnything) CheckCondition(condition, head);
    CheckIndex(condition, head);
  }

 private:
  // A loop that counts beyond the elements of an array that it indexes.
  void CheckIndex(Tokens condition, Tokens head) {
    if (condition.size() != 3 || !condition[0].IsName() || !condition[2].IsNumber()) return;
    const bool isUpTo = condition[1].text == "<=";
    if (!isUpTo && !condition[1].Is('<')) return;
    const std::int64_t highest = IntegerOf(condition[2]) - (isUpTo ? 0 : 1);
    for (std::size_t i = block_.open + 1; i < block_.close; ++i) {
      const Tokens tokens = TokensAt(context_, i);
      for (std::size_t k = 0; k + 3 < tokens.size(); ++k) {
        const bool isElement = tokens[k].IsName() && tokens[k + 1].Is('(') && tokens[k + 2].IsName() &&
                               tokens[k + 2].upper == condition[0].upper && tokens[k + 3].Is(')');
        if (isElement && TellElement(tokens.subspan(k, 4), highest, head)) return;
      }
      // From here on it counts otherwise.
      if (IsAssignment(tokens) && tokens[0].upper == condition[0].upper) return;
    }
  }

  bool TellElement(Tokens element, std::int64_t highest, Tokens head) {
    const Variable* array = context_.names.FindVariable(element[0].upper);
    if (array == nullptr || !array->isArray || array->origin != Origin::Declared || array->count <= 0 ||
        highest < array->count)
      return false;
    const std::string count = std::to_string(array->count);
    context_.Tell(rule::kIndexBeyond, element,
                  "os elementos de " + Shown(array->name) + " vão de 0 a " +
                      std::to_string(array->count - 1) + ", e o laço conta até " + std::to_string(highest),
                  "pare o laço em < " + count + ", ou declare mais elementos",
                  {{context_.source.SpanOf(head), "o laço é este"},
                   {context_.names.PlaceOf(array->editor, *array->token), "declarada aqui"}});
    return true;
  }

  // A condition of variables alone, of which none changes.
  void CheckCondition(Tokens condition, Tokens head) {
    const Token* first = nullptr;
    for (std::size_t i = 0; i < condition.size(); ++i) {
      const Token& token = condition[i];
      if (!token.IsName() || token.text == "E" || token.text == "OU") continue;
      const Variable* variable = context_.names.FindVariable(token.upper);
      const bool isLocal = context_.FindLocal(token.text) != nullptr;
      const bool isCalled = i + 1 < condition.size() && condition[i + 1].Is('(');
      if (!isLocal && (variable == nullptr || variable->origin != Origin::Declared)) return;
      if (isCalled && !variable->isArray) return;
      if (body_.writes.contains(token.upper) || IsWrittenByTimers(token.upper)) return;
      if (first == nullptr) first = &token;
    }
    if (first == nullptr) return;
    context_.Tell(
        rule::kEndlessLoop, head, "nada dentro deste laço muda a sua condição: ele não termina nunca",
        "mude " + Shown(first->text) + " dentro do laço, por exemplo com " + ToUtf8(first->text) + "++");
  }

  bool IsWrittenByTimers(std::string_view upper) {
    if (!body_.yields) return false;
    for (const RoutineRef& sub : context_.names.subs()) {
      if (!sub.routine->name.starts_with("Temporizador_") && !sub.routine->name.ends_with("_Codigo"))
        continue;
      if (summaries_.Of(sub.editor, sub.routine->begin, sub.routine->end).writes.contains(upper)) return true;
    }
    return false;
  }

  Context& context_;
  const Block& block_;
  Summaries& summaries_;
  Summary body_;
};

std::set<const Routine*> CalledFrom(const Names& names, const RoutineRef& routine) {
  std::set<const Routine*> called;
  const Editor& editor = names.editors()[routine.editor];
  for (std::size_t i = routine.routine->begin + 1; i < routine.routine->end; ++i) {
    const Tokens tokens = editor.source->TokensOf(editor.source->statements()[i]);
    for (std::size_t k = 0; k + 1 < tokens.size(); ++k) {
      if (!tokens[k].IsName() || !tokens[k + 1].Is('(')) continue;
      if (const RoutineRef* found = names.FindFunction(tokens[k].text)) called.insert(found->routine);
    }
  }
  return called;
}

}  // namespace

void CheckJumps(Context& context, const BlockMap& blocks) {
  CheckDoubledLabels(context);
  for (std::size_t i = 0; i < context.outline.forms.size(); ++i) {
    if (context.outline.forms[i].form == Form::VaPara) CheckJump(context, blocks, i);
  }
}

void CheckReach(Context& context, const BlockMap& blocks) {
  const auto& forms = context.outline.forms;
  bool hasEnded = context.source.editor() != 0;  // nothing outside of routines runs there
  bool isTold = false;
  for (std::size_t i = 0; i < forms.size(); ++i) {
    const bool isMain = context.outline.routineOf[i] == kNone;
    const Form form = forms[i].form;
    if (isMain && hasEnded && form == Form::Label) hasEnded = false;
    if (isMain && hasEnded && !isTold && !IsReachedOtherwise(form)) {
      isTold = true;
      context.Tell(rule::kUnreachable, TokensAt(context, i),
                   context.source.editor() == 0
                       ? "a execução nunca chega a esta linha"
                       : "fora de uma rotina, as linhas deste editor nunca são executadas",
                   context.source.editor() == 0 ? "ponha-a antes de FimPrograma, ou em uma rotina"
                                                : "ponha-a em uma Sub ou Funcao, ou no editor principal");
    }
    const bool ends = form == Form::FimPrograma || form == Form::FimJanela ||
                      (form == Form::VaPara && HasItsLabel(context, blocks, i));
    if (ends && isMain && blocks.around[i] == kNone) hasEnded = true;
    // What follows is in the same block and routine: each word that opens or closes one is reached otherwise.
    if (ends && (!isMain || blocks.around[i] != kNone) && i + 1 < forms.size() &&
        !IsReachedOtherwise(forms[i + 1].form)) {
      context.Tell(rule::kUnreachable, TokensAt(context, i + 1), "a execução nunca chega a esta linha",
                   "a linha de cima sempre sai daqui: troque as duas, ou tire uma");
    }
  }
  for (const Block& block : blocks.blocks) {
    if (block.close == kNone || !IsEndless(context, block) || block.close + 1 >= forms.size()) continue;
    const std::size_t next = block.close + 1;
    if (IsReachedOtherwise(forms[next].form) || forms[next].form == Form::FimJanela) continue;
    bool leaves = false;
    for (std::size_t i = block.open; i < block.close; ++i) leaves = leaves || forms[i].form == Form::VaPara;
    if (leaves) continue;
    context.Tell(rule::kUnreachable, TokensAt(context, next),
                 "o laço acima nunca termina, e a execução não chega aqui",
                 "ponha uma condição no Enquanto, ou tire esta linha",
                 {{context.source.SpanOf(TokensAt(context, block.open)), "o laço é este"}});
  }
}

void CheckLoops(Context& context, const BlockMap& blocks, Summaries& summaries) {
  for (const Block& block : blocks.blocks) {
    if (block.form != Form::Enquanto || block.close == kNone) continue;
    const std::size_t routine = context.outline.routineOf[block.open];
    context.routine = routine == kNone ? nullptr : &context.outline.routines[routine];
    LoopCheck(context, block, summaries).Run();
  }
}

void CheckRecursion(Context& context, const BlockMap& blocks) {
  for (const RoutineRef& function : context.names.functions()) {
    if (function.editor != context.source.editor()) continue;
    std::set<const Routine*> reached = CalledFrom(context.names, function);
    bool grows = !reached.contains(function.routine);
    while (grows) {
      const std::size_t before = reached.size();
      for (const RoutineRef& other : context.names.functions()) {
        if (reached.contains(other.routine)) reached.merge(CalledFrom(context.names, other));
      }
      grows = reached.size() > before && !reached.contains(function.routine);
    }
    if (!reached.contains(function.routine)) continue;
    const Token* place = function.routine->token;
    for (std::size_t i = function.routine->begin + 1; i < function.routine->end; ++i) {
      for (const Token& token : TokensAt(context, i)) {
        if (token.IsName() && token.text == function.routine->name) place = &token;
      }
      if (place != function.routine->token) break;
    }
    context.Tell(rule::kRecursion, *place,
                 "a função " + Shown(function.routine->name) +
                     " chama a si mesma: a chamada de dentro apaga os parâmetros da de fora",
                 "faça a conta com um laço Enquanto, ou guarde os valores em um vetor");
  }
  for (std::size_t i = 0; i < context.outline.forms.size(); ++i) {
    const std::size_t row = context.outline.routineOf[i];
    if (row == kNone || context.outline.routines[row].isFunction || blocks.around[i] != kNone) continue;
    const Tokens tokens = TokensAt(context, i);
    const bool callsItself = i > context.outline.routines[row].begin && tokens.size() == 3 &&
                             tokens[0].text == context.outline.routines[row].name;
    if (!callsItself) continue;
    context.Tell(rule::kRecursion, tokens,
                 "a sub-rotina " + Shown(tokens[0].text) + " chama a si mesma sempre, e nunca termina",
                 "ponha a chamada em um Se, ou use um laço Enquanto");
  }
}

}  // namespace tessera::check
