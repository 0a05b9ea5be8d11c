#include "runtime/start_runtime.h"

#include <sys/wait.h>
#include <unistd.h>

#include <filesystem>
#include <functional>
#include <iostream>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "image/image_reader.h"
#include "image/mapped_file.h"
#include "platform/termination.h"
#include "runtime/console_start.h"
#include "runtime/display_names.h"
#include "runtime/handover.h"
#include "runtime/own_folder.h"
#include "runtime/program_start.h"
#include "runtime/windows_loader.h"

namespace tessera {

namespace {

constexpr int kNoProgram = 1;

constexpr const char* kNotice =
    "Este arquivo é o executor do Tessera e não tem um programa dentro. Grave um programa com tessera build.";

using Restart = std::function<void()>;

void Tell(const std::string& message) {
  std::cerr << "tessera-runtime: " << message << '\n';
}

std::string Describe(ImageProblem problem) {
  switch (problem) {
    case ImageProblem::CutFile:
      return "este arquivo está cortado: falta o seu fim, ou o programa que estava nele; copie-o de novo, ou "
             "grave-o de novo com tessera build";
    case ImageProblem::ChangedFile:
      return "este arquivo está danificado: o conteúdo não confere com a soma de verificação; copie-o de "
             "novo, "
             "ou grave-o de novo com tessera build";
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

// How a program whose windows can't be shown is run without them, as a person types it.
std::string WithoutWindows(const ProgramStart& start) {
  if (!start.isFinished) return "tessera run --console";
  std::string command = "env";
  for (const std::string_view variable : NamedDisplays()) command.append(" -u ").append(variable);
  std::error_code unreadable;
  return command + " \"" + std::filesystem::read_symlink(kOwnExecutable, unreadable).string() + "\"";
}

// The person may have no terminal, so a box tells it as well.
int TellLack(const std::string& lacking) {
  Tell(lacking);
  if (isatty(STDERR_FILENO) == 0) ShowByDesktop(lacking);
  return kNoProgram;
}

// Whether the program speaks of pages of the net at all.
bool ShowsPages(const ProgramStart& start) {
  return SpeaksOf("NAVEGADOR", start.program.EditorText);
}

int RunStart(const ProgramStart& start, std::string_view file, const Restart& restart) {
  termination::Install(false);
  const LoadedWindows loaded = LoadWindows(file, {.restart = restart, .showsPages = ShowsPages(start)});
  if (loaded.found.windows) return loaded.found.windows->Run(start);
  // OPEN: with a display and without the libraries of the windows a program does not run. The person may have
  // no terminal, where it would wait unseen.
  if (!loaded.lacking.empty())
    return TellLack(loaded.lacking + "; ou execute sem janelas: " + WithoutWindows(start));
  Tell(loaded.found.problem + "; o programa roda no terminal");
  return RunOnConsole(start);
}

int RunScripted(const ProgramStart& start, std::string_view file, const Restart& restart) {
  const LoadedWindows loaded = LoadWindows(file, {.restart = restart, .mayStandUnseen = true});
  if (loaded.found.windows) return loaded.found.windows->RunScripted(start);
  return TellLack(loaded.lacking + "; ou execute sem janelas: " + WithoutWindows(start));
}

// A person needs windows that can be seen.
int RunForAuthor(const ProgramStart& start, std::string_view file, const Restart& restart) {
  const LoadedWindows loaded = LoadWindows(file, {.restart = restart, .showsPages = ShowsPages(start)});
  if (loaded.found.windows) return loaded.found.windows->RunForAuthor(start);
  if (!loaded.lacking.empty()) return TellLack(loaded.lacking);
  Tell(loaded.found.problem + "; um roteiro só se grava com janelas");
  return kNoProgram;
}

// Shows a box of the runtime itself, if that can be; whether it was. A display that refuses the start calls
// `refused`, which must not return.
bool ShowInWindow(std::string_view file, const std::function<void()>& refused,
                  const std::function<void(Windows&)>& show) {
  const LoadedWindows loaded = LoadWindows(file, {.restart = refused});
  if (loaded.found.windows) show(*loaded.found.windows);
  return loaded.found.windows != nullptr;
}

// A file whose program cannot be read: the person may have no terminal, so a box tells it as well. What is
// damaged may be the windows themselves, so they are opened by a process that may fail.
int TellDamage(ImageProblem problem, std::string_view file) {
  const std::string message = Describe(problem);
  Tell(message);
  if (NamedDisplays().empty()) return kNoProgram;
  const pid_t child = fork();
  if (child == 0) {
    const bool isShown = ShowInWindow(
        file, [] { _exit(kNoProgram); }, [&](Windows& windows) { windows.TellTrouble(message); });
    _exit(isShown ? 0 : kNoProgram);
  }
  int status = kNoProgram;
  if ((child < 0 || waitpid(child, &status, 0) < 0 || status != 0) && isatty(STDERR_FILENO) == 0)
    ShowByDesktop(message);
  return kNoProgram;
}

int ShowNotice(std::string_view file) {
  const auto tellOnTerminal = [] {
    Tell(kNotice);
    _exit(kNoProgram);
  };
  if (!ShowInWindow(file, tellOnTerminal, [](Windows& windows) { windows.TellNotice(kNotice); }))
    tellOnTerminal();
  return kNoProgram;
}

}  // namespace

int StartRuntime(int argc, char** argv) {
  const std::optional<MappedFile> image = MappedFile::Open(kOwnExecutable);
  if (!image) {
    Tell("o próprio arquivo não pode ser lido");
    return kNoProgram;
  }
  const std::string_view file = image->bytes();
  auto read = ReadProgram(file);
  if (PackedProgram* program = std::get_if<PackedProgram>(&read)) {
    return RunStart({std::move(*program), OwnFolder(), CommandLineOf({argv + 1, argv + argc}), true}, file,
                    [argv] { execv(kOwnExecutable, argv); });
  }
  const ImageProblem problem = std::get<ImageProblem>(read);
  if (problem != ImageProblem::NoProgram) return TellDamage(problem, file);
  if (const std::optional<ProgramStart> left = TakeHandover(argc, argv)) {
    const Restart anew = [&left] { BecomeRuntime(kOwnExecutable, *left); };
    if (!left->recorded.empty()) return RunForAuthor(*left, file, anew);
    return left->scripted ? RunScripted(*left, file, anew) : RunStart(*left, file, anew);
  }
  return ShowNotice(file);
}

}  // namespace tessera
