#include "runtime/start_runtime.h"

#include <iostream>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "image/image_reader.h"
#include "image/mapped_file.h"
#include "qt/boxes.h"
#include "qt/display_probe.h"
#include "qt/qt_host.h"
#include "runtime/console_start.h"
#include "runtime/handover.h"
#include "runtime/own_folder.h"
#include "runtime/program_run.h"
#include "runtime/program_start.h"
#include "text/code_page.h"

namespace tessera {

namespace {

constexpr int kNoProgram = 1;

void Tell(const std::string& message) {
  std::cerr << "tessera-runtime: " << message << '\n';
}

std::string Describe(ImageProblem problem) {
  switch (problem) {
    case ImageProblem::CutPackage:
      return "o programa dentro deste arquivo está cortado; grave-o de novo com tessera build";
    case ImageProblem::DamagedField:
      return "o programa dentro deste arquivo está danificado; grave-o de novo com tessera build";
    case ImageProblem::NoProgram:
    case ImageProblem::NoPackage:
      break;
  }
  return "o programa dentro deste arquivo está incompleto; grave-o de novo com tessera build";
}

int RunStart(const ProgramStart& start) {
  if (const std::string noDisplay = FindDisplay(); !noDisplay.empty()) {
    Tell(noDisplay + "; o programa roda no terminal");
    return RunOnConsole(start, false);
  }
  QtHost host;
  return RunProgram(start, UserServices(host.host(), &host));
}

// A file whose program cannot be read: the person may have no terminal, so a box tells it as well.
int TellDamage(ImageProblem problem) {
  const std::string message = Describe(problem);
  Tell(message);
  if (FindDisplay().empty()) {
    QtHost host;
    host.ShowBox({.text = FromUtf8Lossy(message), .title = "Tessera", .icon = BoxIcon::Critical});
  }
  return kNoProgram;
}

int ShowNotice() {
  if (const std::string noDisplay = FindDisplay(); !noDisplay.empty()) {
    Tell("este arquivo é o executor do Tessera e não tem um programa dentro; grave um com tessera build");
    return kNoProgram;
  }
  QtHost host;
  ShowMsgExec();
  return kNoProgram;
}

}  // namespace

int StartRuntime(int argc, char** argv) {
  const std::optional<MappedFile> image = MappedFile::Open(kOwnExecutable);
  if (!image) {
    Tell("o próprio arquivo não pode ser lido");
    return kNoProgram;
  }
  auto read = ReadProgram(image->bytes());
  if (PackedProgram* program = std::get_if<PackedProgram>(&read)) {
    return RunStart({std::move(*program), OwnFolder(), CommandLineOf({argv + 1, argv + argc})});
  }
  const ImageProblem problem = std::get<ImageProblem>(read);
  if (problem != ImageProblem::NoProgram) return TellDamage(problem);
  if (const std::optional<ProgramStart> left = TakeHandover(argc, argv)) return RunStart(*left);
  return ShowNotice();
}

}  // namespace tessera
