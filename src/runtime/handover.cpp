#include "runtime/handover.h"

#include <sys/mman.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <chrono>
#include <sstream>
#include <string_view>
#include <variant>

#include "image/image_reader.h"
#include "image/image_writer.h"
#include "image/mapped_file.h"
#include "platform/descriptor_io.h"
#include "platform/system_clock.h"
#include "platform/system_reason.h"
#include "text/code_page.h"

namespace tessera {

namespace {

// The arguments: this word, the number of the open file, the program's folder, its command line, its printer,
// what stands for its microphone and its camera, the words of how it runs, the script to write, and the
// editors' files, a line each.
constexpr std::string_view kHandoverWord = "--entrega";
constexpr int kHandoverArguments = 11;

struct MannerRow {
  std::string_view word;
  bool ProgramStart::*flag;
};
constexpr std::array kManners = {
    MannerRow{"simples", &ProgramStart::plain}, MannerRow{"roteiro", &ProgramStart::scripted},
    MannerRow{"falhas", &ProgramStart::tellsHidden}, MannerRow{"cancela", &ProgramStart::answerCancel}};

std::string MannersOf(const ProgramStart& start) {
  std::string words;
  for (const auto& [word, flag] : kManners) {
    if (start.*flag) words.append(word).append(" ");
  }
  return words;
}

void TakeManners(std::string_view words, ProgramStart& start) {
  for (const auto& [word, flag] : kManners) start.*flag = words.find(word) != std::string_view::npos;
}

}  // namespace

std::string BecomeRuntime(const std::string& runtime, const ProgramStart& start) {
  SeededRandom random(
      static_cast<std::uint64_t>(std::chrono::steady_clock::now().time_since_epoch().count()));
  const std::optional<std::string> image = WriteProgramImage(start.program, random);
  if (!image) return "um dos editores não pode ser codificado";

  const int file = memfd_create("programa", 0);
  if (file < 0) return SystemReason(errno);
  std::string_view rest = *image;
  if (const int error = WriteAll(file, rest)) return SystemReason(error);
  std::string files;
  for (const std::string& path : start.files) files += path + "\n";
  std::array<std::string, kHandoverArguments> words = {runtime,
                                                       std::string(kHandoverWord),
                                                       std::to_string(file),
                                                       start.folder.string(),
                                                       ToUtf8(start.commandLine),
                                                       start.printer,
                                                       start.microphone,
                                                       start.camera,
                                                       MannersOf(start),
                                                       start.recorded,
                                                       files};
  std::array<char*, kHandoverArguments + 1> arguments{};
  for (std::size_t i = 0; i < words.size(); ++i) arguments[i] = words[i].data();
  execv(runtime.c_str(), arguments.data());
  std::string reason = SystemReason(errno);
  close(file);
  return reason;
}

std::optional<ProgramStart> TakeHandover(int argc, char** argv) {
  if (argc != kHandoverArguments || argv[1] != kHandoverWord) return std::nullopt;
  const std::string digits = argv[2];
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return std::nullopt;
  const std::optional<MappedFile> left = MappedFile::Open("/proc/self/fd/" + digits);
  if (!left) return std::nullopt;
  // Mapped it is enough; no program that this one starts shall inherit it.
  if (const int file = std::stoi(digits); file > STDERR_FILENO) close(file);
  auto read = ReadProgram(left->bytes());
  PackedProgram* program = std::get_if<PackedProgram>(&read);
  if (program == nullptr) return std::nullopt;
  ProgramStart start{.program = std::move(*program),
                     .folder = argv[3],
                     .commandLine = FromUtf8Lossy(argv[4]),
                     .printer = argv[5],
                     .microphone = argv[6],
                     .camera = argv[7]};
  TakeManners(argv[8], start);
  start.recorded = argv[9];
  std::istringstream files(argv[10]);
  for (std::string& path : start.files) std::getline(files, path);
  return start;
}

}  // namespace tessera
