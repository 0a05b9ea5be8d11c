#include "image/image_reader.h"

#include "image/codec.h"
#include "image/elf_file.h"
#include "image/image_layout.h"
#include "image/seal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// Cuts off and returns what stands before the first `separator`; nothing where there is none.
std::optional<std::string_view> TakeField(std::string_view& package, std::string_view separator) {
  const std::size_t end = package.find(separator);
  if (end == std::string_view::npos) return std::nullopt;
  const std::string_view field = package.substr(0, end);
  package.remove_prefix(end + separator.size());
  return field;
}

// OPEN: a field whose count disagrees with its length is refused, where plain decoding would give its
// remains. Half a program must not run.
std::variant<std::string, ImageProblem> DecodeField(std::optional<std::string_view> field) {
  if (!field) return ImageProblem::CutPackage;
  if (field->size() < kEncodedOverhead || EncodedCount(*field) != field->size() - (kEncodedOverhead - 1)) {
    return ImageProblem::DamagedField;
  }
  std::optional<std::string> plain = TryDecodeText(*field);
  if (!plain) return ImageProblem::DamagedField;
  return *std::move(plain);
}

// Moves a decoded field to its place, or returns the problem.
std::optional<ImageProblem> Store(std::variant<std::string, ImageProblem> decoded, std::string& place) {
  if (const ImageProblem* problem = std::get_if<ImageProblem>(&decoded)) return *problem;
  place = std::get<std::string>(std::move(decoded));
  return std::nullopt;
}

}  // namespace

std::string MarkerName(std::string_view name) {
  std::string upper = Upper(name);
  if (Contains(upper, ".")) upper.resize(upper.size() < 4 ? 0 : upper.size() - 4);
  return upper;
}

std::optional<std::string_view> ReadProgramFromImage(std::string_view image, std::string_view name) {
  const std::string markerName = MarkerName(name);
  const std::string startKey = kOpeningMarker.text() + markerName + kNameEnd.text();
  const std::string endKey = kClosingMarker.text() + markerName;
  const std::size_t start = image.find(startKey);
  const std::size_t end = image.find(endKey);
  if (start == std::string_view::npos || end == std::string_view::npos) return std::nullopt;
  const std::size_t packageStart = start + startKey.size();
  if (end < packageStart) return std::nullopt;
  return image.substr(packageStart, end - packageStart);
}

std::variant<SplitEditors, ImageProblem> SplitPackage(std::string_view package) {
  SplitEditors editors;
  if (const auto problem = Store(DecodeField(TakeField(package, kSourceEnd)), editors.EditorText[0])) {
    return *problem;
  }
  for (std::size_t i = 1; i < kEditors; ++i) {
    const std::optional<std::string_view> name = TakeField(package, kEditorNameEnd);
    if (!name) break;
    if (const auto problem = Store(DecodeField(name), editors.EditorName[i - 1])) return *problem;
    if (const auto problem = Store(DecodeField(TakeField(package, kSourceEnd)), editors.EditorText[i])) {
      return *problem;
    }
  }
  return editors;
}

std::variant<PackedProgram, ImageProblem> ReadProgram(std::string_view image) {
  const SealState seal = CheckSeal(image);
  if (seal == SealState::Cut) return ImageProblem::CutFile;
  if (seal == SealState::Changed) return ImageProblem::ChangedFile;

  // The package's own section is the shorter way to what stands first in the whole file.
  image = elf::FindSection(image, kPackageSection).value_or(image);
  const std::string opening = kOpeningMarker.text();
  const std::size_t a = image.find(opening);
  const std::size_t b = image.find(kNameEnd.text());
  if (b == std::string_view::npos) return ImageProblem::NoProgram;
  if (a == std::string_view::npos || b < a + opening.size()) return ImageProblem::NoPackage;

  const std::string_view name = image.substr(a + opening.size(), b - a - opening.size());
  const std::optional<std::string_view> package = ReadProgramFromImage(image, name);
  if (!package) return ImageProblem::NoPackage;
  auto split = SplitPackage(*package);
  if (const ImageProblem* problem = std::get_if<ImageProblem>(&split)) return *problem;
  SplitEditors& editors = std::get<SplitEditors>(split);
  return PackedProgram{std::string(name), std::move(editors.EditorText), std::move(editors.EditorName)};
}

ProjectStyle ScanProjectStyle(const EditorTexts& editors) {
  for (std::size_t i = 0; i < kEditors; ++i) {
    for (const std::string_view word : {"JanelaTransparente", "SemBorda"}) {
      if (Contains(editors[i], word)) return {.ProjectStyleWord = word, .MessageHookFlag = false};
    }
    if (Contains(editors[i], "API Biblioteca")) return {.ProjectStyleWord = "", .MessageHookFlag = true};
  }
  return {};
}

}  // namespace tessera
