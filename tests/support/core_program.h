// Runs a program without windows: all words but theirs, and an `Escreva` that joins its values into a line.
// What it wrote and what boxes it showed can be looked at.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/host.h"
#include "platform/system_files.h"
#include "runtime/program_run.h"

namespace tessera::test {

class RecordedBoxes final : public Dialogs {
 public:
  BoxAnswer ShowBox(const Box& box) override;
  TextInputAnswer AskText(const TextInput&) override { return {InputEnd::Cancelled, {}}; }
  std::optional<std::string> AskFile(const FileRequest&) override { return std::nullopt; }
  std::optional<std::int32_t> AskColour(std::string_view) override { return std::nullopt; }
  std::optional<ChosenFont> AskFont(std::string_view) override { return std::nullopt; }
  std::optional<std::string> AskPrinter(std::string_view) override { return std::nullopt; }

  std::function<void()> meanwhile;  // what happens while a box is open
  std::vector<Box> boxes;
  BoxAnswer answer = BoxAnswer::Ok;
};

// No event comes by itself; a test may let something happen in a yield.
class NoEvents final : public EventDispatch {
 public:
  std::function<void()> meanwhile;

  void ProcessEvents() override {
    if (meanwhile) meanwhile();
  }
  bool AwaitEvents(std::chrono::milliseconds) override { return false; }
  bool AwaitNextEvents() override { return false; }
  void Pause(std::chrono::milliseconds) override {}
  void Post(std::function<void()>) override {}
  std::chrono::milliseconds DispatchTime() override { return {}; }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds, std::function<void()>) override {
    return nullptr;
  }
};

class FixedClock final : public Clock {
 public:
  LocalTime Now() override { return now; }

  LocalTime now{};
};

class FixedRandom final : public Random {
 public:
  double Next() override { return next; }

  double next = 0.5;
};

// The start of a program called TESTE, whose editors come later.
ProgramStart StartOf(const std::filesystem::path& folder, std::string commandLine);

// What a test gives to a run: a machine without a registry, a start list and ports, and no display.
Services TestServices(const Host& host);

// The codec of pictures that was built with the tests.
PictureCodec& TestCodec();

// From now on the program's use of a word does this instead.
void AtWord(Run& run, std::string_view word, std::function<Value(std::string_view arguments)> act);

// One run. Editors are given in UTF-8 with LF line ends; what comes back is UTF-8 too.
class CoreProgram {
 public:
  // `change` says what a test wants otherwise.
  explicit CoreProgram(const std::function<void(Services&)>& change = [](Services&) {});

  // Prepares and runs; what `Escreva` wrote, a line each. A failure that reaches the outermost guard is
  // written as a last line "falha N".
  std::string Run(std::string_view editor0, const std::vector<std::string_view>& furtherEditors = {});

  // Texts of the boxes shown so far, each CR as "|".
  std::vector<std::string> Boxes() const;

  RecordedBoxes dialogs;
  NoEvents events;
  FixedClock clock;
  FixedRandom random;
  SystemFiles files;

 private:
  ProgramRun program_;

 public:
  tessera::Run& run = program_.run;
  CommandTable& commands = program_.commands;
  Engine& engine = program_.engine;

 private:
  std::string output_;
};

// What a program in editor 0 alone writes.
std::string Output(std::string_view source);

std::string FromSource(std::string_view utf8);

}  // namespace tessera::test
