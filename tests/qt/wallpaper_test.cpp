// `MudaPapel` on a desktop: which of its programs is called, with what, and when events run. The programs
// are stand-ins that write down how they were called.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <string>

#include "qt/qt_host.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "support/temporary_folder.h"
#include "windows/picture_file.h"
#include "windows/stock_pictures.h"

namespace tessera::test {

namespace {

// A variable of the process' environment, as it was before when this goes.
class Variable {
 public:
  Variable(const char* name, const std::string& value) : name_(name) {
    if (const char* before = std::getenv(name)) before_ = before;
    setenv(name, value.c_str(), 1);
  }
  ~Variable() {
    if (before_) {
      setenv(name_, before_->c_str(), 1);
    } else {
      unsetenv(name_);
    }
  }
  Variable(const Variable&) = delete;
  Variable& operator=(const Variable&) = delete;

 private:
  const char* name_;
  std::optional<std::string> before_;
};

// Tells when the program lets events through.
class WatchedDispatch final : public EventDispatch {
 public:
  explicit WatchedDispatch(EventDispatch& host) : host_(host) {}

  std::function<void()> onYield = [] {};

  void ProcessEvents() override {
    onYield();
    host_.ProcessEvents();
  }
  bool AwaitEvents(std::chrono::milliseconds sleep) override { return host_.AwaitEvents(sleep); }
  bool AwaitNextEvents() override { return host_.AwaitNextEvents(); }
  void Pause(std::chrono::milliseconds time) override { host_.Pause(time); }
  void Post(std::function<void()> act) override { host_.Post(std::move(act)); }
  std::chrono::milliseconds DispatchTime() override { return host_.DispatchTime(); }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval, std::function<void()> tick) override {
    return host_.StartTimer(interval, std::move(tick));
  }

 private:
  EventDispatch& host_;
};

class WallpaperOnDesktop : public testing::Test {
 protected:
  WallpaperOnDesktop() {
    program.run.paths = PathMapping(program.run.host.files, folder.path(), folder / "dados");
    program.run.ProgramFolderText = program.run.RuntimeFolderText = folder.path().string() + "\\";
    SavePicture(TestCodec().EncodeBitmap(StockPicture(StockKind::Figure, 0)->raster), program.run.host.files,
                folder / "foto.bmp");
    folder.Write("foto.png", folder.Read("foto.bmp"));  // known by its bytes
  }

  // A program of the desktop that writes its name and arguments into the log, answers, and ends so.
  void Install(const std::string& name, const std::string& answer = "", int status = 0) {
    const std::string file = "bin/" + name;
    folder.Write(file, "#!/bin/sh\necho \"" + name + " $*\" >> " + (folder / "log") + "\nprintf '" + answer +
                           "'\nexit " + std::to_string(status) + "\n");
    std::filesystem::permissions(folder / file, std::filesystem::perms::owner_all);
  }
  void Log(const std::string& line) { std::ofstream(folder / "log", std::ios::app) << line << '\n'; }

  // What was called on that desktop.
  std::string Called(const std::string& desktop, const std::string& picture) {
    std::filesystem::remove(folder / "log");
    const Variable path("PATH", folder / "bin");
    const Variable name("XDG_CURRENT_DESKTOP", desktop);
    program.commands.CommandCall("MudaPapel", "\"" + picture + "\"");
    return folder.Read("log");
  }

  TemporaryFolder folder;
  QtHost host;
  const Host parts{host.host()};
  WatchedDispatch dispatch{parts.events};
  HostedProgram program{{parts.dialogs, dispatch, parts.clock, parts.random, parts.files}, host};
};

}  // namespace

TEST_F(WallpaperOnDesktop, EachDesktopIsAskedByItsOwnProgram) {
  const std::string file = folder / "foto.bmp";
  for (const char* name : {"gsettings", "plasma-apply-wallpaperimage", "pcmanfm", "feh"}) Install(name);
  struct Row {
    const char* desktop;
    std::string called;
  };
  const Row rows[] = {
      {"ubuntu:GNOME", "gsettings set org.gnome.desktop.background picture-uri file://" + file +
                           "\ngsettings set org.gnome.desktop.background picture-uri-dark file://" + file +
                           "\n"},
      {"X-Cinnamon", "gsettings set org.cinnamon.desktop.background picture-uri file://" + file + "\n"},
      {"MATE", "gsettings set org.mate.background picture-filename " + file + "\n"},
      {"KDE", "plasma-apply-wallpaperimage " + file + "\n"},
      {"LXDE", "pcmanfm --set-wallpaper " + file + "\n"},
      {"", "feh --bg-scale " + file + "\n"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(Called(row.desktop, "foto.bmp"), row.called) << row.desktop;
    EXPECT_EQ(program.wallpaper.Outcome(), "SUCESSO") << row.desktop;
  }
}

TEST_F(WallpaperOnDesktop, EveryScreenOfXfceTakesIt) {
  Install("xfconf-query",
          "/backdrop/screen0/a/last-image\\n/backdrop/other\\n/backdrop/screen0/b/last-image\\n");
  const std::string set = "xfconf-query -c xfce4-desktop -p /backdrop/screen0/";
  const std::string to = "/last-image -s " + (folder / "foto.bmp") + "\n";
  EXPECT_EQ(Called("XFCE", "foto.bmp"),
            "xfconf-query -c xfce4-desktop -l\n" + set + "a" + to + set + "b" + to);
  EXPECT_EQ(program.wallpaper.Outcome(), "SUCESSO");
}

TEST_F(WallpaperOnDesktop, AProgramThatIsMissingOrFailsIsAnError) {
  EXPECT_EQ(Called("MATE", "foto.bmp"), "");
  EXPECT_EQ(program.wallpaper.Outcome(), "ERRO");
  Install("gsettings", "", 1);
  EXPECT_NE(Called("MATE", "foto.bmp"), "");
  EXPECT_EQ(program.wallpaper.Outcome(), "ERRO");
  Install("gsettings");
  EXPECT_EQ(Called("MATE", "falta.bmp"), "") << "no such file";
  EXPECT_EQ(program.wallpaper.Outcome(), "ERRO");
}

TEST_F(WallpaperOnDesktop, EventsRunOnceBeforeAndOnceBehindTheCallWithACopy) {
  Install("gsettings");
  dispatch.onYield = [this] { Log("events"); };
  const std::string call = "gsettings set org.mate.background picture-filename ";
  EXPECT_EQ(Called("MATE", "foto.png"), "events\n" + call + (folder / "Temp.bmp") + "\nevents\n");
  EXPECT_EQ(Called("MATE", "foto.bmp"), call + (folder / "foto.bmp") + "\n");
}

}  // namespace tessera::test
