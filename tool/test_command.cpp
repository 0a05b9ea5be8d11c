// `tessera test`: runs the tests of users side by side and tells how they went.
#include <algorithm>
#include <atomic>
#include <future>
#include <iomanip>
#include <iostream>
#include <sstream>
#include <thread>

#include "platform/system_reason.h"
#include "platform/termination.h"
#include "platform/whole_file.h"
#include "text/code_page.h"
#include "text/one_based.h"
#include "tool/junit.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"
#include "tool/test_files.h"
#include "tool/test_run.h"

namespace tessera {

namespace {

enum class Outcome { Right, Wrong, Written, Broken };

struct Told {
  Outcome outcome = Outcome::Right;
  TestResult result;
};

Told Broken(const ProgramTest& test, std::string problem, std::chrono::duration<double> time = {}) {
  return {Outcome::Broken, {.name = test.name, .time = time, .failure = std::move(problem)}};
}

Told TakeTest(const ProgramTest& test, const TestSetting& setting, bool update) {
  if (test.program.empty()) return Broken(test, "falta o programa deste teste ao lado dele");
  const auto read = ReadTest(test);
  if (const std::string* problem = std::get_if<std::string>(&read)) return Broken(test, *problem);
  const TestContent& content = std::get<TestContent>(read);
  if (!content.expected && !update) {
    return Broken(test, "falta a saída esperada; tessera test --update grava a que sai agora");
  }
  const TestRun run = RunTest(test, content, setting);
  if (!run.problem.empty()) return Broken(test, run.problem, run.time);
  if (content.expected == run.output)
    return {Outcome::Right, {.name = test.name, .time = run.time, .failure = {}}};
  if (update) {
    if (std::string problem = WriteExpected(test, content.script, run.output); !problem.empty())
      return Broken(test, std::move(problem), run.time);
    return {Outcome::Written, {.name = test.name, .time = run.time, .failure = {}}};
  }
  return {Outcome::Wrong,
          {.name = test.name,
           .time = run.time,
           .failure = "a saída não é a esperada\n" + Difference(*content.expected, run.output)}};
}

std::string Seconds(std::chrono::duration<double> time) {
  std::ostringstream text;
  text << std::fixed << std::setprecision(2) << time.count();
  std::string seconds = text.str();
  std::replace(seconds.begin(), seconds.end(), '.', ',');
  return seconds + " s";
}

void Print(const Told& told) {
  constexpr std::array<std::string_view, 4> kWords = {"certo  ", "ERRADO ", "gravado", "FALHOU "};
  constexpr std::array<std::string_view, 4> kColours = {"\033[32m", "\033[31m", "\033[33m", "\033[31m"};
  const auto outcome = static_cast<std::size_t>(told.outcome);
  const bool isColoured = OutputIsColoured();
  std::cout << (isColoured ? kColours[outcome] : "") << kWords[outcome] << (isColoured ? "\033[0m" : "")
            << "  " << told.result.name << "  " << Seconds(told.result.time) << '\n';
  std::istringstream lines(told.result.failure);
  for (std::string line; std::getline(lines, line);) std::cout << "    " << line << '\n';
  std::cout.flush();
}

bool Fits(const ProgramTest& test, const std::string& filter) {
  return filter.empty() || Contains(Upper(FromUtf8Lossy(test.name)), Upper(FromUtf8Lossy(filter)));
}

}  // namespace

int TestSubcommand(const TestCall& call) {
  auto found = FindTests(call.path.empty() ? "." : call.path);
  if (const std::string* problem = std::get_if<std::string>(&found)) {
    PrintError(*problem);
    return kWrongCall;
  }
  std::vector<ProgramTest> tests = std::get<std::vector<ProgramTest>>(std::move(found));
  std::erase_if(tests, [&](const ProgramTest& test) { return !Fits(test, call.filter); });
  if (tests.empty()) {
    PrintError("nenhum teste tem \"" + call.filter + "\" no nome");
    return kWrongCall;
  }

  termination::Install(false);
  const TestSetting setting{.windows = call.windows, .patience = std::chrono::seconds(call.patience)};
  const auto begin = std::chrono::steady_clock::now();
  std::vector<std::promise<Told>> promised(tests.size());
  std::atomic<std::size_t> next = 0;
  std::vector<std::jthread> workers;
  const unsigned wanted =
      call.jobs > 0 ? static_cast<unsigned>(call.jobs) : std::thread::hardware_concurrency();
  for (std::size_t i = 0; i < std::clamp<std::size_t>(wanted, 1, tests.size()); ++i) {
    workers.emplace_back([&] {
      for (std::size_t test = next++; test < tests.size(); test = next++) {
        promised[test].set_value(termination::IsAsked() ? Broken(tests[test], "interrompido")
                                                        : TakeTest(tests[test], setting, call.update));
      }
    });
  }

  std::array<std::size_t, 4> counts{};
  std::vector<TestResult> results;
  for (std::promise<Told>& promise : promised) {
    Told told = promise.get_future().get();
    Print(told);
    ++counts[static_cast<std::size_t>(told.outcome)];
    results.push_back(std::move(told.result));
  }
  const auto [right, wrong, written, broken] = counts;
  std::cout << Counted(tests.size(), " teste", " testes") << ": " << Counted(right, " certo", " certos");
  if (written > 0) std::cout << ", " << Counted(written, " gravado", " gravados");
  if (wrong + broken > 0) std::cout << ", " << Counted(wrong + broken, " com erro", " com erros");
  std::cout << ", em " << Seconds(std::chrono::steady_clock::now() - begin) << '\n';

  if (!call.junit.empty()) {
    if (const int error = ReplaceFile(call.junit, JUnitText(results), NewFilePermissions())) {
      PrintError(call.junit + ": não foi possível gravar: " + SystemReason(error));
      return kWrongCall;
    }
  }
  return wrong + broken == 0 ? kDone : kRefused;
}

}  // namespace tessera
