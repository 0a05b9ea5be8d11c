// The windows of a process, on the host that stands on the window toolkit.
#include "runtime/windows_part.h"

#include <unistd.h>

#include <cstdlib>

#include "qt/boxes.h"
#include "qt/display_probe.h"
#include "qt/qt_author.h"
#include "qt/qt_host.h"
#include "qt/qt_stage.h"
#include "runtime/console_start.h"
#include "runtime/program_run.h"
#include "text/code_page.h"

namespace tessera {

namespace {

class QtWindows final : public Windows {
 public:
  explicit QtWindows(const WindowsCall& call)
      : host_(
            [restart = call.restart] {
              setenv(kNoDisplayVariable, "1", 1);
              restart();
            },
            call.showsPages) {}

  int Run(const ProgramStart& start) override {
    // A finished program is silent; a program that is being written tells where it failed.
    if (!start.isFinished)
      host_.TellPlaces([&](std::string_view text) { return FilePlace(start.files, text); },
                       isatty(STDERR_FILENO) != 0);
    reports::ReportHost silent;  // its windows show all that there is to tell
    const auto tellFailure = [this](std::string_view what, std::string_view position,
                                    std::string_view description) {
      host_.TellFailure(what, position, description);
    };
    return RunProgram(start, host_.host(), host_,
                      {.reports = silent, .media = host_, .hiddenFailures = tellFailure});
  }

  int RunScripted(const ProgramStart& start) override {
    QtStage stage(host_);
    return RunOnStage(start, stage);
  }

  int RunForAuthor(const ProgramStart& start) override {
    QtStage stage(host_, QtStage::Led::ByPerson);
    QtAuthor author(host_, SpeaksOf("MOUSE", start.program.EditorText));
    return RunRecorded(start, stage, author);
  }

  void TellTrouble(const std::string& message) override {
    host_.ShowBox({.text = FromUtf8Lossy(message), .title = "Tessera", .icon = BoxIcon::Critical});
  }

  void TellNotice(const std::string& notice) override { ShowMsgExec(notice); }

 private:
  QtHost host_;
};

}  // namespace

}  // namespace tessera

extern "C" __attribute__((visibility("default"))) void TesseraWindows(const tessera::WindowsCall& call,
                                                                      tessera::FoundWindows& found) {
  const tessera::DisplayProbe probe;
  found.problem = probe.problem();
  if (!found.problem.empty() && call.mayStandUnseen) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    found.problem.clear();
  }
  if (found.problem.empty()) found.windows = std::make_unique<tessera::QtWindows>(call);
}
