#include "platform/user_folders.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <map>

namespace tessera {

namespace {

UserFolders FoldersIn(const std::map<std::string, std::string>& environment) {
  return FindUserFolders([&](const char* name) {
    const auto found = environment.find(name);
    return found == environment.end() ? nullptr : found->second.c_str();
  });
}

}  // namespace

TEST(UserFolders, HaveTheConventionsDefaults) {
  const UserFolders folders = FoldersIn({{"HOME", "/lar/ana"}, {"XDG_DATA_HOME", "relativa"}});
  EXPECT_EQ(folders.configuration, "/etc/xdg");
  EXPECT_EQ(folders.desktop, "/lar/ana/Desktop");
  EXPECT_EQ(folders.applications, "/lar/ana/.local/share/applications");
}

TEST(UserFolders, FollowTheEnvironmentAndTheUsersOwnList) {
  const std::filesystem::path place = std::filesystem::temp_directory_path() / "tessera-user-folders-test";
  std::filesystem::create_directories(place);
  std::map<std::string, std::string> environment = {{"HOME", "/lar/ana"},
                                                    {"XDG_CONFIG_HOME", place.string()},
                                                    {"XDG_CONFIG_DIRS", "/um:/dois"},
                                                    {"XDG_DATA_HOME", "/dados"}};
  struct Row {
    const char* list;
    const char* desktop;
  };
  for (const Row& row : {
           Row{"# nota\nXDG_DESKTOP_DIR=\"$HOME/Área\"\n", "/lar/ana/\xC1rea"},
           Row{"XDG_DESKTOP_DIR=\"/mesa/\"\n", "/mesa"},
           Row{"XDG_DESKTOP_DIR=\"$HOME\"\n", "/lar/ana"},
           Row{"XDG_DESKTOP_DIR=\"mesa\n", "/lar/ana/Desktop"},
           Row{"XDG_DESKTOP_DIR=", "/lar/ana/Desktop"},
       }) {
    std::ofstream(place / "user-dirs.dirs") << row.list;
    EXPECT_EQ(FoldersIn(environment).desktop, row.desktop) << row.list;
  }
  EXPECT_EQ(FoldersIn(environment).configuration, "/um");
  EXPECT_EQ(FoldersIn(environment).applications, "/dados/applications");
  std::filesystem::remove_all(place);
}

}  // namespace tessera
