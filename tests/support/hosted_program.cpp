#include "support/hosted_program.h"

#include <array>

#include "support/core_program.h"

namespace tessera::test {

namespace {

Services OnDisplay(const Host& host, Display& display, const std::function<void(Services&)>& change) {
  Services services = TestServices(host);
  services.display = &display;
  change(services);
  return services;
}

}  // namespace

HostedProgram::HostedProgram(const Host& host, Display& display, const std::function<void(Services&)>& change)
    : program_(StartOf("/programas/teste", "um dois"), OnDisplay(host, display, change)) {
  run.RuntimeFolderText = "/programas\\";
  run.paths = PathMapping(run.host.files);
}

int HostedProgram::Run(std::string_view editor0, std::string_view routines,
                       std::string_view projectStyleWord) {
  return program_.Live({FromSource(editor0), FromSource(routines)}, projectStyleWord);
}

void HostedProgram::Fundo(Form& window, std::string_view value, StockNames stock, std::string_view line,
                          std::string_view column) {
  const std::array<std::string, 3> parts = {std::string(value), std::string(line), std::string(column)};
  const WordForm& form = *FindForm(FindWord("Janela")->more.keywords, "FUNDO");
  SetFundo(run, janela.windows(), window, ArgumentView(run, parts, form.arguments, 0), stock);
}

RunOutcome HostedProgram::Start(std::string_view editor0, std::string_view routines,
                                std::string_view projectStyleWord) {
  return program_.Start({FromSource(editor0), FromSource(routines)}, projectStyleWord);
}

}  // namespace tessera::test
