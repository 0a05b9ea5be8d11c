// What programs ask of the system: how much stack is left, chance, a whole file.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <variant>

#include "platform/descriptor.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/stack_limit.h"
#include "platform/system_clock.h"
#include "platform/system_files.h"
#include "platform/whole_file.h"
#include "support/temporary_folder.h"

namespace tessera::test {

namespace {

// Goes down until the limit fails; gives how far that is from `top`, in bytes.
std::size_t Descend(const StackLimit& limit, const char* top) {
  volatile char block[4096];
  block[0] = 0;
  if (const auto failure = Guard([&] { limit.Check(); })) {
    EXPECT_EQ(failure->number(), 28);
    return static_cast<std::size_t>(top - const_cast<const char*>(block));
  }
  const std::size_t used = Descend(limit, top);
  return used + (block[0] != 0 ? 1 : 0);  // not a last call, which would need no stack
}

// Kilobytes.
double StackBeforeFailure() {
  const char top = 0;
  return static_cast<double>(Descend(StackLimit(), &top)) / 1024;
}

double WithoutReserve(std::size_t bytes) {
  return static_cast<double>(bytes - StackLimit::kReserve) / 1024;
}

}  // namespace

// All but the reserve can be used, in the main thread as far as the system lets its stack grow.
TEST(StackLimit, ComesShortlyBeforeTheEndOfEachThreadsStack) {
  constexpr double kNear = 512;
  rlimit limit{};
  ASSERT_EQ(getrlimit(RLIMIT_STACK, &limit), 0);
  if (limit.rlim_cur != RLIM_INFINITY) {
    EXPECT_NEAR(StackBeforeFailure(), WithoutReserve(limit.rlim_cur), kNear);
    limit.rlim_cur /= 2;
    ASSERT_EQ(setrlimit(RLIMIT_STACK, &limit), 0);
    EXPECT_NEAR(StackBeforeFailure(), WithoutReserve(limit.rlim_cur), kNear);
    limit.rlim_cur *= 2;
    ASSERT_EQ(setrlimit(RLIMIT_STACK, &limit), 0);
  }
  double inThread = 0;
  pthread_attr_t attributes;
  std::size_t size = 0;
  pthread_attr_init(&attributes);
  pthread_attr_getstacksize(&attributes, &size);
  pthread_attr_destroy(&attributes);
  std::thread([&] { inThread = StackBeforeFailure(); }).join();
  EXPECT_NEAR(inThread, WithoutReserve(size), kNear);
}

// In a process of its own, since a hard limit is not raised again.
TEST(StackLimit, IsRaisedAsFarAsTheSystemLetsAndNeverLowered) {
  constexpr rlim_t kMegabyte = 1 << 20;
  const auto raised = [](rlim_t soft, rlim_t hard, std::size_t bytes) {
    rlimit limit{.rlim_cur = soft, .rlim_max = hard};
    setrlimit(RLIMIT_STACK, &limit);
    StackLimit::Raise(bytes);
    getrlimit(RLIMIT_STACK, &limit);
    return limit.rlim_cur;
  };
  const auto inChild = [&] {
    rlimit own{};
    getrlimit(RLIMIT_STACK, &own);
    const bool isRaised = raised(kMegabyte, own.rlim_max, 4 * kMegabyte) == 4 * kMegabyte;
    const bool isKept = raised(5 * kMegabyte, own.rlim_max, 4 * kMegabyte) == 5 * kMegabyte;
    const bool isBound = raised(kMegabyte, 3 * kMegabyte, 4 * kMegabyte) == 3 * kMegabyte;
    _exit(isRaised && isKept && isBound ? 0 : 1);
  };
  EXPECT_EXIT(inChild(), testing::ExitedWithCode(0), "");
}

TEST(SeededRandom, IsAnotherEachTimeWhereNoSeedIsGiven) {
  EXPECT_NE(SeededRandom().Next(), SeededRandom().Next());
  EXPECT_EQ(SeededRandom(7).Next(), SeededRandom(7).Next());
}

TEST(FitsPattern, APieceBehindAStarStandsBehindThePieceBefore) {
  EXPECT_TRUE(FitsPattern("abbx", "*ab*bx"));
  EXPECT_FALSE(FitsPattern("abx", "*ab*bx"));
  EXPECT_TRUE(FitsPattern("aab.TXT", "*ab.t?t*"));
  EXPECT_FALSE(FitsPattern("aab.tt", "*ab.t?t*"));
}

// A file may be longer than the portions that it is read in, and one of the system's own tells no size.
TEST(WholeFile, IsReadToItsEndWhateverItTellsOfItsSize) {
  const TemporaryFolder folder;
  const std::string path = (folder.path() / "a").string();
  for (const std::size_t size : {0U, 1U, 65535U, 65536U, 65537U, 200000U}) {
    std::string bytes(size, 'x');
    if (size > 0) bytes.back() = 'y';
    std::ofstream(path, std::ios::binary) << bytes;
    const auto read = ReadWholeFile(path);
    ASSERT_TRUE(std::holds_alternative<std::string>(read));
    EXPECT_EQ(std::get<std::string>(read), bytes) << size;
  }
  EXPECT_NE(std::get<std::string>(ReadWholeFile("/proc/self/status")), "");
  EXPECT_EQ(std::get<SystemError>(ReadWholeFile(folder.path().string())).number, EISDIR);
}

// Not even the machine's owner writes this one.
TEST(SystemFiles, WhatCannotBeWrittenIsOpenedToBeRead) {
  const auto [file, error] = SystemFiles().Open("/proc/sys/kernel/ostype", OpenAs::Update);
  ASSERT_EQ(error, 0);
  std::string bytes;
  EXPECT_EQ(file->ReadAt(0, 100, bytes), 0);
  EXPECT_EQ(bytes, "Linux\n");
}

TEST(SystemFiles, ALockLeavesTheDataToOtherPrograms) {
  const TemporaryFolder folder;
  const std::string path = folder.Write("a", std::string(100, 'x'));
  const Descriptor other(open(path.c_str(), O_RDWR));
  struct flock data {};
  data.l_type = F_WRLCK;
  data.l_len = 100;
  ASSERT_EQ(fcntl(other.number(), F_OFD_SETLK, &data), 0);
  const auto [file, error] = SystemFiles().Open(path, OpenAs::Update);
  EXPECT_EQ(file->TryLock(), 0);
}

TEST(WholeFile, GetsThePermissionsThatThePersonLeavesToNewFiles) {
  const mode_t before = umask(027);
  EXPECT_EQ(NewFilePermissions(0666), 0640U);
  EXPECT_EQ(NewFilePermissions(0777), 0750U);
  umask(before);
}

TEST(WholeFile, AReplacementThatFailsLeavesTheOldFileAlone) {
  const TemporaryFolder folder;
  const std::string path = (folder.path() / "a").string();
  std::ofstream(path) << "velho";
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{.rlim_cur = 1000, .rlim_max = before.rlim_max};
  const auto handler = std::signal(SIGXFSZ, SIG_IGN);
  setrlimit(RLIMIT_FSIZE, &small);
  const int error = ReplaceFile(path, std::string(2000, 'n'), 0644);
  setrlimit(RLIMIT_FSIZE, &before);
  std::signal(SIGXFSZ, handler);
  EXPECT_EQ(error, EFBIG);
  EXPECT_EQ(std::get<std::string>(ReadWholeFile(path)), "velho");
  const std::filesystem::directory_iterator files(folder.path());
  EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

}  // namespace tessera::test
