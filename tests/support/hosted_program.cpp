#include "support/hosted_program.h"

#include "support/core_program.h"

namespace tessera::test {

namespace {

Services OnDisplay(const Host& host, Display& display) {
  Services services = TestServices(host);
  services.display = &display;
  return services;
}

}  // namespace

HostedProgram::HostedProgram(const Host& host, Display& display)
    : program_(StartOf("/programas/teste", "um dois"), OnDisplay(host, display)) {
  run.RuntimeFolderText = "/programas\\";
  run.paths = PathMapping(run.host.files);
}

int HostedProgram::Run(std::string_view editor0, std::string_view routines,
                       std::string_view projectStyleWord) {
  return program_.Live({FromSource(editor0), FromSource(routines)}, projectStyleWord);
}

RunOutcome HostedProgram::Start(const EditorTexts& editors, std::string_view projectStyleWord) {
  return program_.Start(editors, projectStyleWord);
}

}  // namespace tessera::test
