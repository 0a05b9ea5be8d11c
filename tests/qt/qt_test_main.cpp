// The tests of the window host run on real widgets, without a screen.

#include <gtest/gtest.h>

#include <QApplication>
#include <cstdlib>
#include <filesystem>

int main(int argc, char** argv) {
  setenv("QT_QPA_PLATFORM", "offscreen", 0);
  const auto runtimeFolder = std::filesystem::temp_directory_path() / "tessera-qt-test";
  std::filesystem::create_directories(runtimeFolder);
  std::filesystem::permissions(runtimeFolder, std::filesystem::perms::owner_all);
  setenv("XDG_RUNTIME_DIR", runtimeFolder.c_str(), 0);
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
