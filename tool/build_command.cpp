// `tessera build`: the runtime's copy with the program's package behind it.
#include <chrono>
#include <filesystem>
#include <iostream>
#include <optional>

#include "image/image_reader.h"
#include "image/image_writer.h"
#include "image/mapped_file.h"
#include "image/seal.h"
#include "platform/system_clock.h"
#include "platform/system_reason.h"
#include "platform/whole_file.h"
#include "prepare/linking.h"
#include "prepare/prepare.h"
#include "runtime/own_folder.h"
#include "tool/finding_printer.h"
#include "tool/program_files.h"
#include "tool/program_looks.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

constexpr mode_t kExecutable = 0777;

constexpr std::string_view kElfMagic =
    "\x7F"
    "ELF";

// Why the file cannot serve as the runtime, or empty.
std::string RuntimeProblem(const std::string& path, const std::optional<MappedFile>& runtime) {
  if (!runtime) {
    return path +
           ": o executor não foi encontrado ou não pode ser lido; compile o sistema (./run) ou indique "
           "o arquivo com --runtime";
  }
  if (!runtime->bytes().starts_with(kElfMagic)) return path + ": não é um executável";
  const auto read = ReadProgram(runtime->bytes());
  const ImageProblem* problem = std::get_if<ImageProblem>(&read);
  if (problem == nullptr || *problem != ImageProblem::NoProgram) {
    return path + ": já tem um programa dentro; indique com --runtime um executor vazio";
  }
  return {};
}

bool SamePrograms(const PackedProgram& a, const PackedProgram& b) {
  return a.name == b.name && a.EditorText == b.EditorText && a.EditorName == b.EditorName;
}

// True if these bytes are what the runtime will find; a name that spells a marker is not.
bool ReadsBack(std::string_view file, const PackedProgram& program) {
  const auto read = ReadProgram(file);
  const PackedProgram* found = std::get_if<PackedProgram>(&read);
  return found != nullptr && SamePrograms(*found, program);
}

// A finished program of before, whole or damaged.
bool IsFinishedProgram(const fs::path& file) {
  const std::optional<MappedFile> there = MappedFile::Open(file.string());
  if (!there || !there->bytes().starts_with(kElfMagic)) return false;
  const auto read = ReadProgram(there->bytes());
  const ImageProblem* problem = std::get_if<ImageProblem>(&read);
  return problem == nullptr || *problem != ImageProblem::NoProgram;
}

// Why the program must not take the place of what is there, or empty.
std::string OutputProblem(const fs::path& output, const std::string& runtime, const LoadedProgram& program,
                          bool force) {
  std::error_code error;
  const fs::file_type link = fs::symlink_status(output, error).type();
  if (link == fs::file_type::not_found) return {};
  const fs::file_type type = fs::status(output, error).type();
  if (type == fs::file_type::directory) return "já existe uma pasta com este nome; indique outro com -o";
  if (type != fs::file_type::regular && type != fs::file_type::not_found)
    return "não é um arquivo comum; indique outro nome com -o";
  if (fs::equivalent(output, runtime, error)) return "o programa não pode ser gravado sobre o executor";
  for (const std::string& source : program.files) {
    if (!source.empty() && fs::equivalent(output, source, error))
      return "é um dos editores do programa; indique outro nome com -o";
  }
  if (force || IsFinishedProgram(output)) return {};
  return "já existe e não é um programa gravado; indique outro nome com -o, ou --force para o substituir";
}

// The one check that refuses a program when it starts.
bool CanStart(const EditorTexts& editors) {
  return CheckBlocks(PrepareProgram(editors, [](std::string_view) {}).ProgramText->text()).empty();
}

int Refuse(const std::string& message) {
  PrintError(message);
  return kWrongCall;
}

// A running program can be replaced this way, and a full disk leaves the old one as it was.
int Write(const fs::path& output, std::string_view bytes, const PackedProgram& program) {
  if (!ReadsBack(bytes, program)) {
    return Refuse(output.string() +
                  ": o nome do programa não pode ser usado; mude o nome do arquivo ou da pasta");
  }
  if (const int error = ReplaceFile(output.string(), bytes, NewFilePermissions(kExecutable))) {
    return Refuse(output.string() + ": não foi possível gravar: " + SystemReason(error));
  }
  std::cout << output.string() << '\n';
  return kDone;
}

// What was written is listed.
int WriteDesktopFiles(const ProgramLooks& looks) {
  const auto written = WriteLooks(looks);
  if (const std::string* problem = std::get_if<std::string>(&written)) return Refuse(*problem);
  for (const std::string& file : std::get<std::vector<std::string>>(written)) std::cout << file << '\n';
  return kDone;
}

}  // namespace

int BuildSubcommand(const BuildCall& call) {
  std::optional<ProgramIcon> icon;
  if (!call.icon.empty()) {
    auto read = ReadProgramIcon(call.icon);
    if (const std::string* problem = std::get_if<std::string>(&read)) return Refuse(*problem);
    icon = std::get<ProgramIcon>(std::move(read));
  }
  const auto loaded = LoadProgram(call.program);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) return Refuse(problem->message);
  const LoadedProgram& program = std::get<LoadedProgram>(loaded);

  FindingPrinter(program, std::cerr, ErrorsAreColoured())
      .Print(check::Check(program.program.EditorText), FindingFormat::Person);
  if (!CanStart(program.program.EditorText)) {
    PrintError(call.program + ": o programa não começaria: um dos seus blocos está aberto");
    return kRefused;
  }

  const std::string runtimePath = call.runtime.empty() ? SiblingRuntime().string() : call.runtime;
  const std::optional<MappedFile> runtime = MappedFile::Open(runtimePath);
  if (const std::string problem = RuntimeProblem(runtimePath, runtime); !problem.empty())
    return Refuse(problem);

  const fs::path output = call.output.empty() ? program.folder / program.stem : fs::path(call.output);
  if (const std::string problem = OutputProblem(output, runtimePath, program, call.force); !problem.empty())
    return Refuse(output.string() + ": " + problem);

  std::error_code ignored;
  const bool hasLooks = icon || call.desktop;
  const ProgramLooks looks{.program = fs::weakly_canonical(output, ignored),
                           .icon = icon ? &*icon : nullptr,
                           .inMenu = call.desktop};
  if (const std::string problem = hasLooks ? LooksProblem(looks) : std::string(); !problem.empty())
    return Refuse(problem);

  SeededRandom random(
      static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()));
  const std::optional<std::string> image = WriteProgramImage(program.program, random);
  if (!image) {
    return Refuse(call.program +
                  ": um dos editores não pode ser codificado; mude uma linha do texto e tente "
                  "de novo");
  }
  const int status = Write(output, SealedFile(runtime->bytes(), *image), program.program);
  return status == kDone && hasLooks ? WriteDesktopFiles(looks) : status;
}

}  // namespace tessera
