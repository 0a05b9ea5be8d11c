#include "platform/shared_page.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mman.h>
#include <unistd.h>

#include <memory>
#include <string>
#include <vector>

#include "platform/descriptor.h"

namespace tessera {
namespace {

constexpr std::size_t kPage = 4096;

// A file of blanks, in memory: such files are on this machine wherever the tests run.
Descriptor FileOf(std::size_t size) {
  Descriptor file(memfd_create("page", 0));
  const std::string blanks(size, ' ');
  EXPECT_EQ(write(file.number(), blanks.data(), size), static_cast<ssize_t>(size));
  return file;
}

TEST(SharedPage, IsWhatTheSystemReadsAndWrites) {
  const Descriptor file = FileOf(kPage);
  const auto page = SharedPage::Of(file.number());
  ASSERT_NE(page, nullptr);
  EXPECT_TRUE(page->Put(0, SharedPage::Unit{'a', 'b', 'c'}));
  EXPECT_TRUE(page->Put(kPage - 2, 'z'));
  std::string read(3, '\0');
  ASSERT_EQ(pread(file.number(), read.data(), read.size(), 0), 3);
  EXPECT_EQ(read, "abc");
  ASSERT_EQ(pwrite(file.number(), "xy", 2, 1), 2);
  std::string bytes = "=";
  EXPECT_TRUE(page->Read(0, 3, bytes));
  EXPECT_EQ(bytes, "=axy");
  EXPECT_TRUE(page->Read(kPage - 2, 2, bytes));
  EXPECT_EQ(bytes, "=axyz ");
  EXPECT_FALSE(page->Read(kPage - 2, 3, bytes));
  EXPECT_FALSE(page->Put(kPage - 15, SharedPage::Unit{}));
  EXPECT_EQ(bytes, "=axyz ");
}

TEST(SharedPage, IsOfAWholePageThatCanBeWritten) {
  EXPECT_EQ(SharedPage::Of(FileOf(kPage - 1).number()), nullptr);
  const Descriptor file = FileOf(kPage);
  const Descriptor read(open(("/proc/self/fd/" + std::to_string(file.number())).c_str(), O_RDONLY));
  ASSERT_TRUE(read.IsOpen());
  EXPECT_EQ(SharedPage::Of(read.number()), nullptr);
}

TEST(SharedPage, RefusesWhatWasCutAndLeavesItsPlaceToAnother) {
  for (const off_t size : {off_t{0}, off_t{100}}) {
    const Descriptor file = FileOf(kPage);
    const auto page = SharedPage::Of(file.number());
    ASSERT_NE(page, nullptr);
    ASSERT_EQ(ftruncate(file.number(), size), 0);
    std::string bytes;
    EXPECT_FALSE(page->Put(0, 'x'));
    EXPECT_FALSE(page->Read(0, 1, bytes));
    EXPECT_EQ(bytes, "");
  }
  // There are 64 places, each good for another file once its own is gone.
  const Descriptor file = FileOf(kPage);
  for (int round = 0; round < 2; ++round) {
    std::vector<std::unique_ptr<SharedPage>> pages;
    while (auto page = SharedPage::Of(file.number())) {
      EXPECT_TRUE(page->Put(0, 'x'));
      pages.push_back(std::move(page));
    }
    EXPECT_EQ(pages.size(), 64u);
  }
}

}  // namespace
}  // namespace tessera
