// `tessera check` and `tessera show`: preparation without a run.
#include <iostream>
#include <string>
#include <vector>

#include "checker/check.h"
#include "prepare/prepare.h"
#include "text/code_page.h"
#include "tool/finding_printer.h"
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

bool IsColoured(const CheckCall& call) {
  if (call.colour == "always") return true;
  return call.colour != "never" && OutputIsColoured();
}

}  // namespace

int CheckSubcommand(const CheckCall& call) {
  const auto loaded = LoadProgram(call.program);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) {
    PrintError(problem->message);
    return kWrongCall;
  }
  const LoadedProgram& program = std::get<LoadedProgram>(loaded);
  const std::vector<check::Finding> findings = check::Check(program.program.EditorText);
  FindingFormat format = FindingFormat::Person;
  if (call.json) format = FindingFormat::JsonLines;
  if (call.format == "sarif") format = FindingFormat::Sarif;
  FindingPrinter(program, std::cout, IsColoured(call)).Print(findings, format);
  const bool isRefused = check::HasError(findings) || (call.denyWarnings && !findings.empty());
  return isRefused ? kRefused : kDone;
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
