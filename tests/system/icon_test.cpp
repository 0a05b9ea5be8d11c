// `MudaIcone` on executables that the test writes byte by byte: what changes, what never does, and the
// messages.
#include "system/icon_changer.h"

#include <gtest/gtest.h>
#include <sys/file.h>

#include <cerrno>
#include <memory>
#include <random>
#include <stdexcept>

#include "platform/failure.h"
#include "platform/system_files.h"
#include "support/file_program.h"
#include "support/pe_file.h"
#include "text/little_endian.h"

namespace tessera::test {

namespace {

constexpr const char* kDone = "\"Ícone alterado com sucesso!\"";
constexpr const char* kNotDone = "\"Ocorreu um erro ao tentar mudar o ícone!\"";
constexpr const char* kNoDirectories =
    "Unable to modify directories in target executable.  File may not contain any icon resources.";

class MudaIcone : public testing::Test {
 protected:
  std::string Change() { return program.Answer("MudaIcone", "\"alvo.exe\", \"novo.ico\""); }
  // The change is refused with this text, and the file stays as it is.
  void ExpectRefused(std::string_view bytes, std::string_view text) {
    program.folder.Write("alvo.exe", bytes);
    EXPECT_EQ(Change(), kNotDone) << text;
    ASSERT_FALSE(program.Boxes().empty());
    EXPECT_EQ(program.Boxes().back(), text);
    EXPECT_EQ(program.folder.Read("alvo.exe"), bytes) << text;
    EXPECT_FALSE(program.folder.Has("alvo.exe.antigo"));
  }
  std::string Folder() const { return program.folder.path().string() + "\\"; }

  FileProgram program;
};

// An executable whose second write fails, or ends the process.
class TroubledFile final : public StoredFile {
 public:
  TroubledFile(std::unique_ptr<StoredFile> file, bool ends) : file_(std::move(file)), ends_(ends) {}

  int ReadAt(std::uint64_t offset, std::size_t most, std::string& bytes) const override {
    return file_->ReadAt(offset, most, bytes);
  }
  int WriteAt(std::uint64_t offset, std::string_view& bytes) override {
    if (++writes_ < 2) return file_->WriteAt(offset, bytes);
    if (ends_) throw std::runtime_error("killed");
    return ENOSPC;
  }
  int Size(std::uint64_t& size) const override { return file_->Size(size); }
  int Resize(std::uint64_t size) override { return file_->Resize(size); }
  int Sync() override { return file_->Sync(); }
  int TryLock() override { return file_->TryLock(); }
  void Unlock() override { file_->Unlock(); }
  void AwaitOthers() const override { file_->AwaitOthers(); }
  bool IsAt(const std::string& path) const override { return file_->IsAt(path); }

 private:
  std::unique_ptr<StoredFile> file_;
  bool ends_;
  int writes_ = 0;
};

class TroubledFiles final : public SystemFiles {
 public:
  explicit TroubledFiles(bool ends) : ends_(ends) {}

  Opened Open(const std::string& path, OpenAs how) override {
    Opened opened = SystemFiles::Open(path, how);
    if (how == OpenAs::Alone) opened.file = std::make_unique<TroubledFile>(std::move(opened.file), ends_);
    return opened;
  }

 private:
  bool ends_;
};

std::string With(std::string bytes, std::size_t at, std::string_view other) {
  return bytes.replace(at, other.size(), other);
}

}  // namespace

TEST_F(MudaIcone, PutsTheFirstImageIntoBothKindsOfExecutables) {
  for (const bool is64Bits : {false, true}) {
    const PeFile pe = MakePe({.is64Bits = is64Bits});
    for (const std::size_t length :
         {1U, 39U, 40U, 41U, 64U}) {  // the old image has 40 bytes, the next one 24
      const std::string image(length, 'n');
      program.folder.Write("alvo.exe", pe.bytes);
      program.folder.Write("novo.ico", MakeIco({image, "outra", "mais outra"}, 48));
      ASSERT_EQ(Change(), kDone) << length;
      std::string wanted = With(pe.bytes, pe.images[0], image);
      wanted = With(wanted, pe.dataEntries[0] + 4, ToLittleEndian(length, 4));
      wanted = With(wanted, pe.group + 6, "\x30\x30");
      wanted = With(wanted, pe.group + 6 + 8, ToLittleEndian(length, 4));
      EXPECT_TRUE(program.folder.Read("alvo.exe") == wanted) << length;
      EXPECT_FALSE(program.folder.Has("alvo.exe.antigo"));
    }
  }
  EXPECT_TRUE(program.Boxes().empty());
}

TEST_F(MudaIcone, ALargerImageCoversWhatFollowsUpToTheFilesEnd) {
  const PeFile pe = MakePe({});
  const std::size_t room = pe.bytes.size() - pe.images[0];
  program.folder.Write("alvo.exe", pe.bytes);
  program.folder.Write("novo.ico", MakeIco({std::string(room, 'n')}));
  EXPECT_EQ(Change(), kDone);
  EXPECT_TRUE(program.folder.Read("alvo.exe").ends_with(std::string(room, 'n')));
  program.folder.Write("novo.ico", MakeIco({std::string(room + 1, 'n')}));
  ExpectRefused(pe.bytes, kNoDirectories);
}

TEST_F(MudaIcone, AFullDiskLeavesTheOldFileAndAKilledProcessItsWholeCopy) {
  const PeFile pe = MakePe({});
  const std::string target = (program.folder.path() / "alvo.exe").string();
  const std::string icon = (program.folder.path() / "novo.ico").string();
  program.folder.Write("alvo.exe", pe.bytes);
  program.folder.Write("novo.ico", MakeIco({std::string(24, 'n')}));
  TroubledFiles full(false);
  const auto failure = Guard([&] { IconChanger(full).ReplaceIcon(icon, target); });
  ASSERT_TRUE(failure);
  EXPECT_EQ(failure->number(), 61);
  EXPECT_TRUE(program.folder.Read("alvo.exe") == pe.bytes);
  EXPECT_FALSE(program.folder.Has("alvo.exe.antigo"));

  TroubledFiles killed(true);
  EXPECT_THROW(IconChanger(killed).ReplaceIcon(icon, target), std::runtime_error);
  EXPECT_FALSE(program.folder.Read("alvo.exe") == pe.bytes);
  EXPECT_TRUE(program.folder.Read("alvo.exe.antigo") == pe.bytes);
  // The next change leaves it alone.
  EXPECT_EQ(Change(), kDone);
  EXPECT_TRUE(program.folder.Read("alvo.exe.antigo") == pe.bytes);
}

TEST_F(MudaIcone, AnImageThatCoversTheWayToItselfIsRefused) {
  const PeFile pe = MakePe({.groupStandsFirst = false});
  const std::size_t room = pe.group - pe.images[0];
  program.folder.Write("novo.ico", MakeIco({std::string(room + 1, 'n')}));
  ExpectRefused(pe.bytes, kNoDirectories);
  program.folder.Write("novo.ico", MakeIco({std::string(room, 'n')}));
  program.folder.Write("alvo.exe", pe.bytes);
  EXPECT_EQ(Change(), kDone);
  // A damaged entry tells that the image stands where the next image's entry does.
  const std::size_t address = FromLittleEndian(pe.bytes.substr(pe.dataEntries[0], 4), 4);
  const std::size_t moved = address - pe.images[0] + pe.dataEntries[1];
  ExpectRefused(With(pe.bytes, pe.dataEntries[0], ToLittleEndian(moved, 4)), kNoDirectories);
}

TEST_F(MudaIcone, EachFaultOfAnExecutableHasItsMessage) {
  program.folder.Write("novo.ico", MakeIco({"imagem"}));
  const PeFile pe = MakePe({});
  const std::string notExecutable = Folder() + "alvo.exe is not a valid Win32 executable.";
  const std::string noTree =
      Folder() + "alvo.exe does not contain a valid resource tree.  File may be corrupt.";
  ExpectRefused("", notExecutable);
  ExpectRefused("#!/bin/sh\n" + std::string(100, ' '), notExecutable);
  ExpectRefused(pe.bytes.substr(0, 63), notExecutable);
  ExpectRefused(With(pe.bytes, 0x80, "NE"), notExecutable);
  ExpectRefused(With(pe.bytes, 60, "\xFF\xFF\xFF\xFF"), notExecutable);
  ExpectRefused(pe.bytes.substr(0, 0x84), noTree);
  ExpectRefused(With(pe.bytes, 0x98, "\x01\x07"), noTree);                        // neither 32 nor 64 bits
  ExpectRefused(With(pe.bytes, 0x98 + 108, std::string("\2\0\0\0", 4)), noTree);  // too few directories
  ExpectRefused(With(pe.bytes, 0x98 + 240 + 20, std::string("\x34\1\0\0", 4)), noTree);  // begins at 308
  ExpectRefused(With(pe.bytes, pe.root + 14, "\xFF\xFF"), noTree);  // entries behind the file's end
  ExpectRefused(With(pe.bytes, pe.dataEntries[0], "\xFF\xFF\xFF\xFF"), noTree);  // data in no section
  ExpectRefused(MakePe({.icons = {}, .group = {}}).bytes, kNoDirectories);
  ExpectRefused(MakePe({.group = {2}}).bytes, kNoDirectories);  // the first icon is in no group
}

TEST_F(MudaIcone, EachFaultOfAnIconFileHasItsMessage) {
  const PeFile pe = MakePe({});
  const std::string ico = MakeIco({"imagem"});
  const std::string invalid = Folder() + "novo.ico is not a valid icon resource file.";
  for (const std::string& bad :
       {std::string(), ico.substr(0, 5), ico.substr(0, 21), ico.substr(0, ico.size() - 1), With(ico, 2, "\2"),
        With(ico, 0, "\1"), With(ico, 4, std::string("\0\0", 2))}) {
    program.folder.Write("novo.ico", bad);
    ExpectRefused(pe.bytes, invalid);
  }
}

TEST_F(MudaIcone, FilesThatCannotBeOpenedAreNamed) {
  const auto cannotOpen = [](const std::string& name) {
    return "Failed to open " + name + ". Make sure file is not in use by another program.";
  };
  const PeFile pe = MakePe({});
  ExpectRefused(pe.bytes, cannotOpen("novo.ico"));
  program.folder.Write("novo.ico", MakeIco({"imagem"}));
  EXPECT_EQ(program.Answer("MudaIcone", "\"falta.exe\", \"novo.ico\""), kNotDone);
  EXPECT_EQ(program.Boxes().back(), cannotOpen("falta.exe"));
  EXPECT_FALSE(program.folder.Has("falta.exe"));
  // Another program has it locked as a whole, in either way that the system knows.
  const int other = open((program.folder / "alvo.exe").c_str(), O_RDWR);
  flock(other, LOCK_EX);
  ExpectRefused(pe.bytes, cannotOpen(Folder() + "alvo.exe"));
  flock(other, LOCK_UN);
  for (const short kind : {short{F_WRLCK}, short{F_RDLCK}}) {
    struct flock whole {};
    whole.l_type = kind;
    fcntl(other, F_OFD_SETLK, &whole);
    ExpectRefused(pe.bytes, cannotOpen(Folder() + "alvo.exe"));
  }
  close(other);
  EXPECT_EQ(Change(), kDone);
}

// What a killed process left is somebody's whole copy.
TEST_F(MudaIcone, AnOlderCopyIsNotTouched) {
  program.folder.Write("alvo.exe", MakePe({}).bytes);
  program.folder.Write("alvo.exe.antigo", "inteiro");
  program.folder.Write("novo.ico", MakeIco({"imagem"}));
  EXPECT_EQ(Change(), kDone);
  EXPECT_EQ(program.folder.Read("alvo.exe.antigo"), "inteiro");
  EXPECT_FALSE(program.folder.Has("alvo.exe.antigo2"));
}

TEST(IconChange, DamagedExecutablesNeverLeadOutOfTheFile) {
  std::mt19937 random(12);
  const std::string ico = MakeIco({std::string(30, 'n')});
  const IconImage icon = *ReadFirstIcon(ico);
  for (int round = 0; round < 20'000; ++round) {
    std::string bytes = MakePe({.is64Bits = round % 2 == 0}).bytes;
    for (int i = 0; i < 1 + round % 4; ++i) bytes[random() % bytes.size()] = static_cast<char>(random());
    bytes.resize(bytes.size() - (round % 3 == 0 ? random() % bytes.size() : 0));
    const auto plan = PlanIconChange(bytes, icon);
    if (!std::holds_alternative<std::vector<Patch>>(plan)) continue;
    for (const Patch& patch : std::get<std::vector<Patch>>(plan)) {
      ASSERT_LE(patch.offset + patch.bytes.size(), bytes.size());
    }
  }
}

}  // namespace tessera::test
