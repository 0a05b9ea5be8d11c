#include "recorddb/comparable_text.h"

#include <algorithm>
#include <array>

#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kComparedLength = 131;

// KEPT: letters that the table does not name keep their accents, "Â" among them
// (RecordPrograms.ProcureFoldsTheNamedAccentsAlone).
std::array<unsigned char, 256> MakeFolding() {
  constexpr std::string_view kFrom = "ÁÀÃÉÊÍÓÕÔÚÇ"_w;
  constexpr std::string_view kTo = "AAAEEIOOOUC";
  std::array<unsigned char, 256> folding{};
  for (std::size_t i = 0; i < folding.size(); ++i) {
    const char upper = Upper(static_cast<char>(i));
    const std::size_t accent = kFrom.find(upper);
    folding[i] = static_cast<unsigned char>(accent == std::string_view::npos ? upper : kTo[accent]);
  }
  return folding;
}

const std::array<unsigned char, 256> kFolding = MakeFolding();

}  // namespace

unsigned char Folded(char character) {
  return kFolding[static_cast<unsigned char>(character)];
}

int CompareFolded(std::string_view a, std::string_view b) {
  const std::size_t shared = std::min(a.size(), b.size());
  for (std::size_t i = 0; i < shared; ++i) {
    const int difference = Folded(a[i]) - Folded(b[i]);
    if (difference != 0) return difference;
  }
  return a.size() < b.size() ? -1 : a.size() > b.size() ? 1 : 0;
}

int CompareComparable(std::string_view a, std::string_view b) {
  return CompareFolded(Left(Trim(a), kComparedLength), Left(Trim(b), kComparedLength));
}

}  // namespace tessera
