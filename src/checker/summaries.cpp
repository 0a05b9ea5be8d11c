#include "checker/summaries.h"

#include <algorithm>
#include <array>

#include "language/words.h"

namespace tessera::check {

namespace {

constexpr std::array<std::string_view, 14> kYielding = {
    "AGUARDE",    "ESCREVA",   "ADICIONAREGISTRO", "ATUALIZAREGISTRO", "EXCLUIREGISTRO",
    "LEREGISTRO", "MENSAGEM",  "ENTRATEXTO",       "CAIXADIALOGO",     "NOVAJANELA",
    "WEBCAM",     "MUDAPAPEL", "BAIXAARQUIVOFTP",  "POEARQUIVOFTP"};

constexpr std::array<std::string_view, 6> kWriting = {"LEREGISTRO", "SOBREPONHA", "SQL",
                                                      "ORDEMBD",    "API",        "CAIXADIALOGO"};

template <typename List>
bool Holds(const List& list, std::string_view word) {
  return std::find(list.begin(), list.end(), word) != list.end();
}

}  // namespace

bool WritesVariables(std::string_view word) {
  return Holds(kWriting, word);
}

Summary Summaries::Of(std::size_t editor, std::size_t begin, std::size_t end) {
  Summary summary;
  for (std::size_t i = begin; i < end; ++i) Take(summary, editor, i);
  return summary;
}

void Summaries::Take(Summary& summary, std::size_t editor, std::size_t statement) {
  const Editor& place = names_.editors()[editor];
  const Tokens tokens = place.source->TokensOf(place.source->statements()[statement]);
  const Form form = place.outline->forms[statement].form;
  if (form == Form::VaPara || form == Form::FimPrograma || form == Form::FimJanela) summary.leaves = true;
  if (form == Form::Other && IsAssignment(tokens)) summary.writes.emplace(tokens[0].upper);
  TakeCalls(summary, tokens);
}

void Summaries::TakeCalls(Summary& summary, Tokens tokens) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (!token.IsName()) continue;
    const std::string_view word = token.upper.substr(0, token.upper.find('.'));
    if (Holds(kYielding, word) || word == "REL" || word == "IMP") summary.yields = true;
    if (WritesVariables(word)) summary.writesAnything = true;
    if (i + 1 >= tokens.size() || !tokens[i + 1].Is('(')) continue;
    const RoutineRef* routine = names_.FindSub(token.text);
    if (routine == nullptr) routine = names_.FindFunction(token.text);
    if (routine == nullptr) continue;
    const Summary& called = OfRoutine(*routine);
    summary.writes.insert(called.writes.begin(), called.writes.end());
    summary.yields |= called.yields;
    summary.writesAnything |= called.writesAnything;
    summary.leaves |= called.leaves;
  }
}

const Summary& Summaries::OfRoutine(const RoutineRef& routine) {
  const auto [row, isNew] = known_.try_emplace(routine.routine);
  if (!isNew) return row->second;  // known, or being read: it calls itself
  Summary summary = Of(routine.editor, routine.routine->begin + 1, routine.routine->end);
  // A jump inside of the routine stays there.
  summary.leaves = false;
  const Editor& place = names_.editors()[routine.editor];
  for (std::size_t i = routine.routine->begin; i < routine.routine->end; ++i) {
    const Form form = place.outline->forms[i].form;
    if (form == Form::FimPrograma || form == Form::FimJanela) summary.leaves = true;
  }
  return known_[routine.routine] = std::move(summary);
}

}  // namespace tessera::check
