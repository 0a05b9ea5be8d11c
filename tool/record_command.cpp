// `tessera record`: a test is made by using the program. It runs in a copy of its folder, as tests do, so
// that it begins where the test will begin; the script is written as the person goes along, the output at the
// end.
#include <chrono>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>
#include <variant>

#include "platform/termination.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"
#include "tool/test_files.h"
#include "tool/test_run.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

// A person takes all the time that a wait of the system can have.
constexpr std::chrono::seconds kNoHurry{2'000'000};

// The file that is in the way, or none.
fs::path InTheWay(const ProgramTest& test) {
  std::error_code error;
  for (const fs::path& file : {ScriptOf(test), OutputOf(test), ArgumentsOf(test)}) {
    if (fs::exists(file, error)) return file;
  }
  return {};
}

// The script of an older test, out of the way while the new one is recorded; it comes back where none was.
class OlderScript {
 public:
  explicit OlderScript(fs::path script) : script_(std::move(script)), aside_(script_.string() + "~") {
    std::error_code error;
    fs::rename(script_, aside_, error);
    isAside_ = !error;
  }
  OlderScript(const OlderScript&) = delete;
  OlderScript& operator=(const OlderScript&) = delete;
  ~OlderScript() {
    std::error_code error;
    if (!isAside_) return;
    if (fs::exists(script_, error)) {
      fs::remove(aside_, error);
    } else {
      fs::rename(aside_, script_, error);
    }
  }

 private:
  fs::path script_;
  fs::path aside_;
  bool isAside_ = false;
};

int KeepOutput(const ProgramTest& test, const TestContent& content, const TestRun& run) {
  if (const std::string problem = WriteExpected(test, content.script, run.output); !problem.empty()) {
    PrintError(problem);
    return kWrongCall;
  }
  std::cout << "gravados " << ScriptOf(test).string() << " e " << OutputOf(test).string() << '\n';
  return kDone;
}

// A program that draws lots or reads the clock gives something else each time; whoever wants a test of it has
// to know.
int PlayAgain(const ProgramTest& test, const TestContent& content, const std::string& output) {
  const TestRun again = RunTest(test, content, {});
  if (again.problem.empty() && again.output == output) return kDone;
  PrintRemark("o mesmo roteiro não deu a mesma saída no terminal; o teste vai falhar enquanto for assim");
  std::cerr << (again.problem.empty() ? Difference(output, again.output) : again.problem + "\n");
  return kRefused;
}

}  // namespace

int RecordSubcommand(const RecordCall& call) {
  auto found = TestFor(call.program, call.script);
  if (const std::string* problem = std::get_if<std::string>(&found)) {
    PrintError(*problem);
    return kWrongCall;
  }
  const ProgramTest test = std::get<ProgramTest>(std::move(found));
  if (const fs::path there = InTheWay(test); !there.empty() && !call.force) {
    PrintError(there.string() + ": já existe; dê outro nome com -o, ou --force para gravar por cima");
    return kWrongCall;
  }
  termination::Install(false);
  std::error_code error;
  const OlderScript older(ScriptOf(test));
  PrintRemark("grava o que se faz com o programa, até que ele termine; os arquivos dele ficam como estão");
  const TestRun run = RunTest(test, {.script = {}, .expected = {}, .arguments = call.arguments},
                              {.patience = kNoHurry, .record = fs::absolute(ScriptOf(test), error)});
  if (!fs::exists(ScriptOf(test), error)) {
    PrintError(run.problem.empty() ? run.output : run.problem);
    return kWrongCall;
  }
  if (const std::string problem = WriteArguments(test, call.arguments); !problem.empty()) {
    PrintError(problem);
    return kWrongCall;
  }
  const auto read = ReadTest(test);
  if (const std::string* problem = std::get_if<std::string>(&read)) {
    PrintError(*problem);
    return kWrongCall;
  }
  const TestContent& content = std::get<TestContent>(read);
  if (!run.problem.empty()) {
    PrintError(ScriptOf(test).string() + ": o roteiro vai até onde o programa foi: " + run.problem +
               "; tessera test --update grava a saída que ele dá");
    return kRefused;
  }
  const int kept = KeepOutput(test, content, run);
  return kept == kDone ? PlayAgain(test, content, run.output) : kept;
}

}  // namespace tessera
