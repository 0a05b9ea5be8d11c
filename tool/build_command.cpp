// `tessera build`: the runtime's copy with the program's package in it.
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
#include "tool/program_needs.h"
#include "tool/program_package.h"
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

int Refuse(const std::string& message) {
  PrintError(message);
  return kWrongCall;
}

// What a program needs, a package a line; what this machine lacks is marked.
int TellNeeds(const PackedProgram& program) {
  for (const NeededPackage& needed : NeedsOf(program)) {
    std::cout << needed.package << "  (" << needed.purpose << ")"
              << (IsOnThisMachine(needed) ? "" : "  falta nesta máquina") << '\n';
  }
  return kDone;
}

// The program in a finished file, where that is one.
std::optional<PackedProgram> FinishedProgram(const std::string& path) {
  const std::optional<MappedFile> file = MappedFile::Open(path);
  if (!file || !file->bytes().starts_with(kElfMagic)) return std::nullopt;
  auto read = ReadProgram(file->bytes());
  PackedProgram* program = std::get_if<PackedProgram>(&read);
  return program == nullptr ? std::nullopt : std::optional(std::move(*program));
}

// What is to lie beside the program is there, and is not the program.
std::string IncludedProblem(const std::vector<std::string>& included, const std::string& stem) {
  for (const std::string& path : included) {
    std::error_code error;
    if (!fs::exists(path, error)) return path + ": não encontrado";
    if (fs::path(path).filename() == stem) return path + ": tem o nome do programa";
  }
  return {};
}

int BuildPackage(const BuildCall& call, const LoadedProgram& program, std::string_view file,
                 const ProgramIcon* icon) {
  const auto written = WritePackage({.stem = program.stem,
                                     .version = call.version,
                                     .file = file,
                                     .included = {call.included.begin(), call.included.end()},
                                     .icon = icon,
                                     .needs = NeedsOf(program.program)},
                                    call.output.empty() ? fs::path(".") : fs::path(call.output));
  if (const std::string* problem = std::get_if<std::string>(&written)) return Refuse(*problem);
  std::cout << std::get<fs::path>(written).string() << '\n';
  return kDone;
}

// The one check that refuses a program when it starts.
bool CanStart(const EditorTexts& editors) {
  return CheckBlocks(PrepareProgram(editors, [](std::string_view) {}).ProgramText->text()).empty();
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
  if (call.needs) {
    if (const std::optional<PackedProgram> finished = FinishedProgram(call.program))
      return TellNeeds(*finished);
  }
  const auto loaded = LoadProgram(call.program);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) return Refuse(problem->message);
  if (call.needs) return TellNeeds(std::get<LoadedProgram>(loaded).program);
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

  if (const std::string problem = IncludedProblem(call.included, program.stem); !problem.empty())
    return Refuse(problem);

  const fs::path output = call.output.empty() ? program.folder / program.stem : fs::path(call.output);
  if (const std::string problem =
          call.deb ? std::string() : OutputProblem(output, runtimePath, program, call.force);
      !problem.empty())
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
  const std::string file = SealedFile(runtime->bytes(), *image);
  if (call.deb) return BuildPackage(call, program, file, icon ? &*icon : nullptr);
  const int status = Write(output, file, program.program);
  if (status != kDone) return status;
  const std::string uncopied =
      CopyBeside({call.included.begin(), call.included.end()}, fs::absolute(output).parent_path());
  if (!uncopied.empty()) return Refuse(uncopied);
  return hasLooks ? WriteDesktopFiles(looks) : status;
}

}  // namespace tessera
