#include "qttext/fonts.h"

#include <algorithm>
#include <array>

#include "qttext/text.h"

namespace tessera {

namespace {

struct Substitution {
  const char* name;
  const char* substitute;
};

constexpr std::array kSubstitutions = {
    Substitution{"Courier New", "Liberation Mono"},   Substitution{"Courier New", "DejaVu Sans Mono"},
    Substitution{"Courier", "Liberation Mono"},       Substitution{"Fixedsys", "Liberation Mono"},
    Substitution{"Terminal", "Liberation Mono"},      Substitution{"Lucida Console", "DejaVu Sans Mono"},
    Substitution{"Consolas", "DejaVu Sans Mono"},     Substitution{"Arial", "Liberation Sans"},
    Substitution{"MS Sans Serif", "Liberation Sans"}, Substitution{"Tahoma", "Liberation Sans Narrow"},
    Substitution{"Verdana", "DejaVu Sans"},           Substitution{"Times New Roman", "Liberation Serif"},
    Substitution{"MS Serif", "Liberation Serif"},     Substitution{"Times", "Liberation Serif"},
    Substitution{"Helvetica", "Liberation Sans"},
};

constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 2048;

}  // namespace

void SubstituteFontNames() {
  for (const Substitution& row : kSubstitutions) {
    QFont::insertSubstitution(QString::fromLatin1(row.name), QString::fromLatin1(row.substitute));
  }
}

QFont ToQFont(const FontFace& face) {
  QFont font(ToQString(face.name));
  font.setPointSizeF(std::clamp(face.size, kSmallestSize, kLargestSize));
  font.setBold(face.bold);
  font.setItalic(face.italic);
  // Characters of whole pixels: ten points of the default font are a column of the placement grid.
  font.setHintingPreference(QFont::PreferFullHinting);
  return font;
}

}  // namespace tessera
