#include "image/seal.h"

#include <cstdint>
#include <optional>

#include "image/byte_sum.h"
#include "image/elf_file.h"
#include "text/little_endian.h"

namespace tessera {

namespace {

constexpr std::size_t kLengthWidth = 8;
constexpr std::size_t kSumWidth = 4;
// A length that no file has: the package is a section, and the sum is that of the parts.
constexpr std::uint64_t kLengthInSection = 1;
static_assert(kLengthWidth + kSumWidth == kSealNumbers);

// The sum of a file of before, whose package stands behind its last byte: all but the numbers.
std::uint32_t SumAround(std::string_view file, std::size_t numbers) {
  const std::uint32_t before = AddToSum(~std::uint32_t{0}, file.substr(0, numbers));
  return ~AddToSum(before, file.substr(numbers + kSealNumbers));
}

// The sum of what makes the program: all that the system loads of the file but the numbers, then what the
// file keeps in sections of its own.
std::uint32_t SumOfParts(std::string_view file, std::size_t numbers, std::string_view package) {
  std::uint32_t sum = ~std::uint32_t{0};
  for (const std::string_view part : elf::LoadedBytes(file)) {
    const auto begin = static_cast<std::size_t>(part.data() - file.data());
    if (numbers >= begin && numbers + kSealNumbers <= begin + part.size()) {
      sum = AddToSum(sum, part.substr(0, numbers - begin));
      sum = AddToSum(sum, part.substr(numbers - begin + kSealNumbers));
    } else {
      sum = AddToSum(sum, part);
    }
  }
  sum = AddToSum(sum, elf::FindSection(file, kWindowsSection).value_or(std::string_view()));
  return ~AddToSum(sum, package);
}

// Offset of the seal's numbers; npos where the file has no place for them.
std::size_t FindNumbers(std::string_view file) {
  const std::size_t word = file.find(kSealWord.text());
  if (word == std::string_view::npos || file.size() - word < sizeof(SealPlace)) return std::string_view::npos;
  return word + kSealWordLength;
}

}  // namespace

SealState CheckSeal(std::string_view file) {
  const std::size_t numbers = FindNumbers(file);
  if (numbers == std::string_view::npos) return SealState::None;
  const std::uint64_t length = FromLittleEndian(file.substr(numbers), kLengthWidth);
  const std::uint64_t sum = FromLittleEndian(file.substr(numbers + kLengthWidth), kSumWidth);
  if (length == 0 && sum == 0) return elf::IsCut(file) ? SealState::Cut : SealState::None;
  if (length == kLengthInSection) {
    const std::optional<std::string_view> package = elf::FindSection(file, kPackageSection);
    if (!package) return SealState::Cut;
    return sum == SumOfParts(file, numbers, *package) ? SealState::Whole : SealState::Changed;
  }
  if (length > file.size()) return SealState::Cut;
  return length == file.size() && sum == SumAround(file, numbers) ? SealState::Whole : SealState::Changed;
}

std::string SealedFile(std::string_view runtime, std::string_view image) {
  std::optional<std::string> file = elf::WithSection(runtime, kPackageSection, image);
  const std::size_t numbers = FindNumbers(runtime);
  if (!file) return std::string(runtime).append(image);
  if (numbers == std::string_view::npos) return *std::move(file);
  file->replace(numbers, kLengthWidth, ToLittleEndian(kLengthInSection, kLengthWidth));
  file->replace(numbers + kLengthWidth, kSumWidth,
                ToLittleEndian(SumOfParts(*file, numbers, image), kSumWidth));
  return *std::move(file);
}

}  // namespace tessera
