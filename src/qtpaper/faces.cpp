#include "qtpaper/faces.h"

#include <QFontMetricsF>
#include <QImage>
#include <algorithm>

#include "qttext/fonts.h"
#include "text/code_page.h"

namespace tessera::qtpaper {

namespace {

constexpr double kTwipsOfPoint = 20;
constexpr double kSmallestSize = 1;
constexpr double kLargestSize = 500;
constexpr unsigned char kFirstPrinted = ' ';

// One pixel of the font is a twip.
QFont PaperFont(const FontFace& face) {
  QFont font = ToQFont(face);
  font.setPixelSize(qRound(std::clamp(face.size, kSmallestSize, kLargestSize) * kTwipsOfPoint));
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setKerning(false);
  // A page looks the same whatever screen the person has.
  font.setStyleStrategy(QFont::NoSubpixelAntialias);
  return font;
}

Face Measured(const FontFace& wanted) {
  Face face{.font = PaperFont(wanted), .raw = {}, .measures = {}};
  face.raw = QRawFont::fromFont(face.font);
  const QFontMetricsF metrics(face.font);
  face.measures.ascent = metrics.ascent();
  face.measures.descent = metrics.descent();
  for (unsigned code = kFirstPrinted; code < face.glyphs.size(); ++code) {
    const QChar character(CodeOfByte(static_cast<unsigned char>(code)));
    const QList<quint32> glyphs = face.raw.glyphIndexesForString(QString(character));
    face.glyphs[code] = glyphs.value(0);
    // What the font lacks comes from another one.
    face.measures.advances[code] = face.glyphs[code] == 0
                                       ? metrics.horizontalAdvance(character)
                                       : face.raw.advancesForGlyphIndexes({face.glyphs[code]}).value(0).x();
  }
  return face;
}

}  // namespace

const Face& Faces::Of(const FontFace& face) {
  const auto key = std::make_tuple(face.name, face.size, face.bold, face.italic);
  auto found = faces_.find(key);
  if (found == faces_.end()) found = faces_.emplace(key, Measured(face)).first;
  return found->second;
}

}  // namespace tessera::qtpaper
