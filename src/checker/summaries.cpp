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
  auto [summary, calls] = Read(editor, begin, end);
  // A jump inside of a routine stays there.
  const auto& forms = names_.editors()[editor].outline->forms;
  for (std::size_t i = begin; i < end; ++i) summary.leaves = summary.leaves || forms[i].form == Form::VaPara;
  std::set<const RoutineRef*> met(calls.begin(), calls.end());
  while (!calls.empty()) {
    const Part& called = PartOf(*calls.back());
    calls.pop_back();
    summary.writes.insert(called.own.writes.begin(), called.own.writes.end());
    summary.yields |= called.own.yields;
    summary.writesAnything |= called.own.writesAnything;
    summary.leaves |= called.own.leaves;
    for (const RoutineRef* further : called.calls) {
      if (met.insert(further).second) calls.push_back(further);
    }
  }
  return summary;
}

const Summaries::Part& Summaries::PartOf(const RoutineRef& routine) {
  const auto [row, isNew] = known_.try_emplace(routine.routine);
  if (isNew) row->second = Read(routine.editor, routine.routine->begin, routine.routine->end);
  return row->second;
}

Summaries::Part Summaries::Read(std::size_t editor, std::size_t begin, std::size_t end) const {
  const Editor& place = names_.editors()[editor];
  Part part;
  for (std::size_t i = begin; i < end; ++i) {
    const Tokens tokens = place.source->TokensOf(place.source->statements()[i]);
    const Form form = place.outline->forms[i].form;
    if (form == Form::FimPrograma || form == Form::FimJanela) part.own.leaves = true;
    if (form == Form::Other && IsAssignment(tokens)) part.own.writes.emplace(tokens[0].upper);
    TakeCalls(part, tokens);
  }
  return part;
}

void Summaries::TakeCalls(Part& part, Tokens tokens) const {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const Token& token = tokens[i];
    if (!token.IsName()) continue;
    const std::string_view word = token.upper.substr(0, token.upper.find('.'));
    if (Holds(kYielding, word) || word == "REL" || word == "IMP") part.own.yields = true;
    if (WritesVariables(word)) part.own.writesAnything = true;
    if (i + 1 >= tokens.size() || !tokens[i + 1].Is('(')) continue;
    const RoutineRef* routine = names_.FindSub(token.text);
    if (routine == nullptr) routine = names_.FindFunction(token.text);
    if (routine != nullptr) part.calls.push_back(routine);
  }
}

}  // namespace tessera::check
