// `tessera build`: the runtime's copy with the program's package behind it.
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <iostream>
#include <optional>

#include "image/image_reader.h"
#include "image/image_writer.h"
#include "image/mapped_file.h"
#include "platform/system_clock.h"
#include "platform/system_reason.h"
#include "runtime/own_folder.h"
#include "tool/program_files.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

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

// True if what was written is what the runtime will find; a name that spells a marker is not.
bool ReadsBack(const fs::path& file, const PackedProgram& program) {
  const std::optional<MappedFile> written = MappedFile::Open(file.string());
  if (!written) return false;
  const auto read = ReadProgram(written->bytes());
  const PackedProgram* found = std::get_if<PackedProgram>(&read);
  return found != nullptr && SamePrograms(*found, program);
}

// A new file beside its final place; it vanishes unless it is renamed to it. A running program can be
// replaced this way, and a full disk leaves the old one as it was.
class NewFile {
 public:
  explicit NewFile(const fs::path& place)
      : place_(place), path_(place.string() + ".novo" + std::to_string(getpid())) {
    file_ = std::fopen(path_.c_str(), "wxb");
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;
  ~NewFile() {
    if (file_ != nullptr) std::fclose(file_);
    if (!path_.empty()) std::remove(path_.c_str());
  }

  const std::string& path() const { return path_; }

  bool Append(std::string_view bytes) {
    return file_ != nullptr && std::fwrite(bytes.data(), 1, bytes.size(), file_) == bytes.size();
  }

  // All bytes on the disk, executable as the user's mask permits.
  bool Finish() {
    const mode_t mask = umask(0);
    umask(mask);
    const bool written =
        file_ != nullptr && std::fflush(file_) == 0 && fchmod(fileno(file_), 0777 & ~mask) == 0;
    const bool closed = file_ != nullptr && std::fclose(file_) == 0;
    file_ = nullptr;
    return written && closed;
  }

  bool Rename() {
    if (std::rename(path_.c_str(), place_.c_str()) != 0) return false;
    path_.clear();
    return true;
  }

 private:
  fs::path place_;
  std::string path_;
  std::FILE* file_;
};

int Refuse(const std::string& message) {
  PrintError(message);
  return kWrongCall;
}

int Write(const fs::path& output, std::string_view runtime, std::string_view image,
          const PackedProgram& program) {
  const auto failed = [&] {
    return Refuse(output.string() + ": não foi possível gravar: " + SystemReason(errno));
  };
  NewFile file(output);
  if (!file.Append(runtime) || !file.Append(image) || !file.Finish()) return failed();
  if (!ReadsBack(file.path(), program)) {
    return Refuse(output.string() +
                  ": o nome do programa não pode ser usado; mude o nome do arquivo ou da pasta");
  }
  if (!file.Rename()) return failed();
  std::cout << output.string() << '\n';
  return kDone;
}

}  // namespace

int BuildSubcommand(const BuildCall& call) {
  const auto loaded = LoadProgram(call.program);
  if (const LoadProblem* problem = std::get_if<LoadProblem>(&loaded)) return Refuse(problem->message);
  const LoadedProgram& program = std::get<LoadedProgram>(loaded);

  const std::string runtimePath = call.runtime.empty() ? SiblingRuntime().string() : call.runtime;
  const std::optional<MappedFile> runtime = MappedFile::Open(runtimePath);
  if (const std::string problem = RuntimeProblem(runtimePath, runtime); !problem.empty())
    return Refuse(problem);

  const fs::path output = call.output.empty() ? program.folder / program.stem : fs::path(call.output);
  std::error_code ignored;
  if (fs::is_directory(output, ignored)) {
    return Refuse(output.string() + ": já existe uma pasta com este nome; indique outro com -o");
  }
  if (fs::equivalent(output, runtimePath, ignored)) {
    return Refuse(output.string() + ": o programa não pode ser gravado sobre o executor");
  }

  SeededRandom random(
      static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()));
  const std::optional<std::string> image = WriteProgramImage(program.program, random);
  if (!image) {
    return Refuse(call.program +
                  ": um dos editores não pode ser codificado; mude uma linha do texto e tente "
                  "de novo");
  }
  return Write(output, runtime->bytes(), *image, program.program);
}

}  // namespace tessera
