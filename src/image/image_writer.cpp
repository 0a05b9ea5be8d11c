#include "image/image_writer.h"

#include "image/codec.h"
#include "image/image_layout.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// True if a reader could take a part of the field for the end of the field or of the package.
bool HoldsSeparator(std::string_view field) {
  return Contains(field, kSourceEnd) || Contains(field, kEditorNameEnd) ||
         Contains(field, kOpeningMarker.text()) || Contains(field, kNameEnd.text()) ||
         Contains(field, kClosingMarker.text());
}

// The separators are not escaped, so a field is encoded anew until its bytes hold none: first with a key by
// chance, then with each other key in turn. Only a text made for it defeats all ten.
std::optional<std::string> EncodeField(std::string_view plain, Random& random) {
  const int first = static_cast<int>(random.Next() * kKeyCount);
  for (int i = 0; i < kKeyCount; ++i) {
    std::string field = EncodeTextWithKey(plain, (first + i) % kKeyCount);
    if (!HoldsSeparator(field)) return field;
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::string> WriteProgramImage(const PackedProgram& program, Random& random) {
  const std::string name = Upper(program.name);
  const std::string markerName = MarkerName(program.name);

  std::string image = kOpeningMarker.text() + name + kNameEnd.text();
  // A name with a point is read from the first opening, and its package sought behind the shorter name.
  if (markerName != name) image += kOpeningMarker.text() + markerName + kNameEnd.text();

  std::size_t last = 0;
  for (std::size_t i = 1; i < kEditors; ++i) {
    if (!program.EditorText[i].empty() || !program.EditorName[i - 1].empty()) last = i;
  }
  for (std::size_t i = 0; i <= last; ++i) {
    if (i > 0) {
      const std::optional<std::string> editorName = EncodeField(program.EditorName[i - 1], random);
      if (!editorName) return std::nullopt;
      image.append(*editorName).append(kEditorNameEnd);
    }
    const std::optional<std::string> source = EncodeField(program.EditorText[i], random);
    if (!source) return std::nullopt;
    image.append(*source).append(kSourceEnd);
  }
  return image + kClosingMarker.text() + markerName;
}

}  // namespace tessera
