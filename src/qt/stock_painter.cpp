// A tool for whoever changes a drawing of the stock: paints each anew into the picture file beside it. These
// are the pixels that every host shows and reads, so that a program sees the same on all, with any library.
//
//   stock_painter DRAWING.svg...
#include <QFile>
#include <QFileInfo>
#include <cstdio>

#include "qt/svg_painting.h"

namespace {

bool Paint(const QString& drawing) {
  QFile file(drawing);
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray svg = file.readAll();
  const QFileInfo info(drawing);
  return tessera::PaintSvg({svg.constData(), static_cast<std::size_t>(svg.size())}, 1)
      .save(info.path() + "/" + info.completeBaseName() + ".png");
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (Paint(argv[i])) continue;
    std::fprintf(stderr, "%s: not painted\n", argv[i]);
    return 1;
  }
}
