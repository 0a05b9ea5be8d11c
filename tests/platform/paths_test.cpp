#include "platform/paths.h"

#include <gtest/gtest.h>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/system_files.h"
#include "support/temporary_folder.h"
#include "text/code_page.h"
#include "text/literal.h"

namespace tessera {
namespace {

TEST(PathMapping, BothSeparatorsLeadFromTheProgramsFolder) {
  SystemFiles files;
  const TemporaryFolder folder;
  const PathMapping paths(files, folder.path(), folder / "data");
  EXPECT_EQ(paths.SystemPath("a.txt"), folder / "a.txt");
  EXPECT_EQ(paths.SystemPath("sub\\a/b.txt"), folder / "sub/a/b.txt");
  EXPECT_EQ(paths.SystemPath(".\\a.txt"), folder / "./a.txt");
  EXPECT_EQ(paths.SystemPath("ação.txt"_w), folder / "ação.txt");
  EXPECT_EQ(paths.SystemPath(""), "");
  EXPECT_TRUE(Guard([&] { paths.SystemPath(std::string_view("a\0b", 3)); }).has_value());
}

TEST(PathMapping, AProgramMayAppendToAFolderWithItsBackslash) {
  SystemFiles files;
  const TemporaryFolder folder;
  const PathMapping paths(files, "/nowhere", "/nowhere");
  EXPECT_EQ(paths.SystemPath(folder.path().string() + "\\\\x.txt"), folder / "x.txt");
  EXPECT_EQ(paths.SystemPath("\\"), "/");
}

TEST(PathMapping, AProgramsFolderMayHaveAnyName) {
  SystemFiles files;
  const TemporaryFolder folder;
  folder.Write("日本/x.txt", "");
  const PathMapping paths(files, folder / "日本", folder / "data");
  const std::string asSeen = FromUtf8Lossy(folder / "日本");
  EXPECT_EQ(paths.SystemPath(asSeen + "\\X.txt"), folder / "日本/x.txt");
  EXPECT_EQ(paths.SystemPath(asSeen + "x"), asSeen + "x");
}

TEST(PathMapping, DriveLettersAreFoldersMadeOnFirstUse) {
  SystemFiles files;
  const TemporaryFolder folder;
  const PathMapping paths(files, folder.path(), folder / "data");
  EXPECT_FALSE(folder.Has("data"));
  EXPECT_EQ(paths.SystemPath("c:\\dados\\x.txt"), folder / "data/C/dados/x.txt");
  EXPECT_TRUE(folder.Has("data/C"));
  EXPECT_FALSE(folder.Has("data/C/dados"));
  for (const std::string letter : {"A", "D", "Z"})
    EXPECT_EQ(paths.SystemPath(letter + ":x.txt"), folder / ("data/" + letter + "/x.txt"));
}

TEST(PathMapping, WhatIsNotThereAsSpelledIsLookedUpBlindToCase) {
  SystemFiles files;
  const TemporaryFolder folder;
  const PathMapping paths(files, folder.path(), folder / "data");
  folder.Write("Clientes/AÇÃO.Txt", "x");
  folder.Write("Clientes/b.txt", "x");
  folder.Write("Clientes/B.txt", "x");
  EXPECT_EQ(paths.SystemPath("CLIENTES\\ação.TXT"_w), folder / "Clientes/AÇÃO.Txt");
  EXPECT_EQ(paths.SystemPath("clientes\\b.txt"), folder / "Clientes/b.txt");
  EXPECT_EQ(paths.SystemPath("clientes\\b.TXT"), folder / "Clientes/B.txt");
  EXPECT_EQ(paths.SystemPath("clientes\\Novo.txt"), folder / "Clientes/Novo.txt");
  EXPECT_EQ(paths.SystemPath("outra\\CLIENTES\\b.txt"), folder / "outra/CLIENTES/b.txt");
}

TEST(PathMapping, TheDataFolderFollowsTheDesktopsConventions) {
  EXPECT_EQ(SystemDataFolder("/xdg", "/home/eu"), "/xdg/tessera");
  EXPECT_EQ(SystemDataFolder("relativo", "/home/eu"), "/home/eu/.local/share/tessera");
  EXPECT_EQ(SystemDataFolder(nullptr, "/home/eu"), "/home/eu/.local/share/tessera");
}

TEST(FitsPattern, StarAndQuestionMarkAreBlindToCase) {
  struct {
    std::string_view name;
    std::string_view pattern;
    bool fits;
  } constexpr kCases[] = {{"a.txt", "*.TXT", true}, {"a.txt", "*.*", true},     {"semponto", "*.*", true},
                          {"a.txt", "?.txt", true}, {"ab.txt", "?.txt", false}, {"abcabd", "*abd", true},
                          {"abcabd", "*b*d", true}, {"abc", "", false},         {"", "*", true},
                          {"abc", "a*c*", true},    {"abc", "abc?", false},     {"A\xC7O", "a\xE7o", true}};
  for (const auto& c : kCases)
    EXPECT_EQ(FitsPattern(c.name, c.pattern), c.fits) << c.name << " " << c.pattern;
  // A hostile pattern takes no exponential time.
  EXPECT_FALSE(FitsPattern(std::string(5000, 'a'), "*a*a*a*a*a*a*a*a*a*a*a*a*b"));
}

long FailureOf(const std::function<void()>& body) {
  const auto failure = Guard(body);
  return failure ? failure->number() : 0;
}

TEST(CopyFile, ReplacesTheTargetOnlyByAWholeCopy) {
  SystemFiles files;
  const TemporaryFolder folder;
  folder.Write("a", "novo");
  folder.Write("b", "velho e longo");
  CopyFile(files, folder / "a", folder / "b");
  EXPECT_EQ(folder.Read("b"), "novo");
  EXPECT_EQ(FailureOf([&] { CopyFile(files, folder / "a", folder / "a"); }), 70);
  EXPECT_EQ(folder.Read("a"), "novo");
  EXPECT_EQ(FailureOf([&] { CopyFile(files, folder / "x", folder / "b"); }), 53);
  EXPECT_EQ(FailureOf([&] { CopyFile(files, folder / "x/y", folder / "b"); }), 76);
  EXPECT_EQ(FailureOf([&] { CopyFile(files, folder / "a", folder / "x/y"); }), 76);
  EXPECT_EQ(FailureOf([&] { CopyFile(files, folder.path(), folder / "c"); }), 75);
  EXPECT_EQ(FailureOf([&] { CopyFile(files, folder / "a", folder.path()); }), 75);
  EXPECT_EQ(FailureOf([&] { CopyFile(files, folder / "a", "/dev/full"); }), 61);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 2);
}

TEST(CopyFile, FollowsALinkToItsFile) {
  SystemFiles files;
  const TemporaryFolder folder;
  folder.Write("a", "novo");
  folder.Write("b", "velho");
  std::filesystem::create_symlink("b", folder / "elo");
  CopyFile(files, folder / "a", folder / "elo");
  EXPECT_EQ(folder.Read("b"), "novo");
  EXPECT_TRUE(std::filesystem::is_symlink(folder / "elo"));
}

}  // namespace
}  // namespace tessera
