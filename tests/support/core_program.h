// Runs a program on the language core alone: no window, no command groups but an `Escreva` that joins its
// values into a line. What it wrote and what boxes it showed can be looked at.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "commands/command_table.h"
#include "engine/engine.h"
#include "platform/host.h"
#include "values/run.h"

namespace tessera::test {

class RecordedBoxes final : public Dialogs {
 public:
  BoxAnswer ShowBox(const Box& box) override;
  TextInputAnswer AskText(const TextInput&) override { return {InputEnd::Cancelled, {}}; }
  std::optional<std::string> AskFile(const FileRequest&) override { return std::nullopt; }
  std::optional<std::int32_t> AskColour(std::string_view) override { return std::nullopt; }
  std::optional<ChosenFont> AskFont(std::string_view) override { return std::nullopt; }
  std::optional<std::string> AskPrinter(std::string_view) override { return std::nullopt; }

  std::vector<Box> boxes;
  BoxAnswer answer = BoxAnswer::Ok;
};

class NoEvents final : public EventDispatch {
 public:
  void ProcessEvents() override {}
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
  LocalTime Now() override { return {}; }
};

class FixedRandom final : public Random {
 public:
  double Next() override { return 0.5; }
};

// One run. Editors are given in UTF-8 with LF line ends; what comes back is UTF-8 too.
class CoreProgram {
 public:
  CoreProgram();

  // Prepares and runs; what `Escreva` wrote, a line each. A failure that reaches the outermost guard is
  // written as a last line "falha N".
  std::string Run(std::string_view editor0, const std::vector<std::string_view>& furtherEditors = {});

  // Texts of the boxes shown so far, each CR as "|".
  std::vector<std::string> Boxes() const;

  RecordedBoxes dialogs;
  NoEvents events;
  FixedClock clock;
  FixedRandom random;
  tessera::Run run;
  CommandTable commands;
  Engine engine;

 private:
  std::string output_;
};

// What a program in editor 0 alone writes.
std::string Output(std::string_view source);

// What a program with routines writes: the routines stand in editor 1.
std::string OutputWithRoutines(std::string_view source, std::string_view routines);

std::string FromSource(std::string_view utf8);

}  // namespace tessera::test
