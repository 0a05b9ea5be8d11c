// Every seed, and so every finding of the past that was made one, goes through its target.
#include <gtest/gtest.h>

#include <filesystem>

#include "fuzz/targets.h"
#include "support/temporary_folder.h"

namespace tessera::fuzz {

class FuzzSeeds : public testing::TestWithParam<Target> {};

TEST_P(FuzzSeeds, AreNoFindings) {
  const std::filesystem::path folder = std::filesystem::path(TESSERA_FUZZ_SEEDS) / GetParam().name;
  int seeds = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    SCOPED_TRACE(entry.path().string());
    GetParam().feed(ReadBytes(entry.path()));
    ++seeds;
  }
  EXPECT_GT(seeds, 0) << folder;
}

INSTANTIATE_TEST_SUITE_P(All, FuzzSeeds, testing::ValuesIn(kTargets),
                         [](const auto& target) { return std::string(target.param.name); });

}  // namespace tessera::fuzz
