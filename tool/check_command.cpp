// `tessera check` and `tessera show`: preparation without a run.
#include <iostream>
#include <string>
#include <vector>

#include "prepare/block_report.h"
#include "prepare/prepare.h"
#include "text/code_page.h"
#include "tool/program_files.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {

namespace {

struct Prepared {
  LoadedProgram loaded;
  PreparedProgram program;
  std::vector<std::string> routineMessages;
};

std::variant<Prepared, LoadProblem> LoadAndPrepare(const std::string& path) {
  auto loaded = LoadProgram(path);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) return *problem;
  Prepared prepared{std::get<LoadedProgram>(std::move(loaded)), {}, {}};
  prepared.program = PrepareProgram(prepared.loaded.program.EditorText, [&](std::string_view message) {
    prepared.routineMessages.emplace_back(message);
  });
  return prepared;
}

// A source that spells a statement's head names an editor of its own invention: such a place is the
// program's.
std::string PlaceText(const LoadedProgram& loaded, const SourcePlace& place) {
  const auto editor = static_cast<std::size_t>(place.editor);
  if (place.editor < 0 || editor >= loaded.files.size() || loaded.files[editor].empty())
    return loaded.files[0];
  return loaded.files[editor] + ":" + std::to_string(place.line);
}

void PrintProblem(const LoadedProgram& loaded, const PlacedProblem& problem) {
  std::cout << PlaceText(loaded, problem.place) << ": " << ToUtf8(problem.message) << '\n';
}

}  // namespace

int CheckSubcommand(const std::string& program) {
  const auto result = LoadAndPrepare(program);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&result)) {
    PrintError(problem->message);
    return kWrongCall;
  }
  const Prepared& prepared = std::get<Prepared>(result);
  const std::string_view text = prepared.program.ProgramText->text();
  std::vector<PlacedProblem> problems = ReportBlocks(text);
  const std::vector<Position>& places = prepared.program.routines.toldPlaces;
  for (std::size_t i = 0; i < places.size(); ++i) {
    problems.push_back(PlaceMessage(text, prepared.routineMessages[i], places[i]));
  }
  for (const PlacedProblem& problem : problems) PrintProblem(prepared.loaded, problem);
  return problems.empty() ? kDone : kRefused;
}

int ShowSubcommand(const std::string& program) {
  const auto result = LoadAndPrepare(program);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&result)) {
    PrintError(problem->message);
    return kWrongCall;
  }
  std::cout << ToUtf8(std::get<Prepared>(result).program.ProgramText->text());
  return kDone;
}

}  // namespace tessera
