// A tool for whoever changes a drawing of the stock: paints each anew into the picture file beside it. These
// are the pixels that every host shows and reads, so that a program sees the same on all, with any library.
// Their format is told in windows/stock_pixels.h.
//
//   stock_painter DRAWING.svg...
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <array>
#include <cstdio>

#include "qt/svg_painting.h"

namespace {

class QoiWriter {
 public:
  explicit QoiWriter(QSize size) : bytes_("qoif") {
    for (const int extent : {size.width(), size.height()}) {
      for (const int shift : {24, 16, 8, 0}) Add(extent >> shift);
    }
    Add(4);  // with opacity
    Add(0);
  }

  void Put(QRgb pixel) {
    if (pixel == last_) {
      if (++run_ == kLongestRun) EndRun();
      return;
    }
    EndRun();
    QRgb& seen = seen_[Slot(pixel)];
    if (seen == pixel) {
      Add(static_cast<int>(Slot(pixel)));
    } else if (seen = pixel; qAlpha(pixel) == qAlpha(last_)) {
      PutColour(pixel);
    } else {
      for (const int part : {0xFF, qRed(pixel), qGreen(pixel), qBlue(pixel), qAlpha(pixel)}) Add(part);
    }
    last_ = pixel;
  }

  QByteArray End() {
    EndRun();
    bytes_.append(7, '\0').append('\1');
    return bytes_;
  }

 private:
  static constexpr int kLongestRun = 62;

  static std::size_t Slot(QRgb pixel) {
    return static_cast<std::size_t>(qRed(pixel) * 3 + qGreen(pixel) * 5 + qBlue(pixel) * 7 +
                                    qAlpha(pixel) * 11) %
           64;
  }
  static bool Fits(int change, int bits) { return change >= -(1 << bits >> 1) && change < 1 << bits >> 1; }

  void Add(int byte) { bytes_.append(static_cast<char>(byte)); }

  void PutColour(QRgb pixel) {
    const auto change = [](int to, int from) { return static_cast<qint8>(to - from); };
    const int red = change(qRed(pixel), qRed(last_));
    const int green = change(qGreen(pixel), qGreen(last_));
    const int blue = change(qBlue(pixel), qBlue(last_));
    const int redByGreen = change(red, green);
    const int blueByGreen = change(blue, green);
    if (Fits(red, 2) && Fits(green, 2) && Fits(blue, 2)) {
      Add(0x40 | (red + 2) << 4 | (green + 2) << 2 | (blue + 2));
    } else if (Fits(green, 6) && Fits(redByGreen, 4) && Fits(blueByGreen, 4)) {
      Add(0x80 | (green + 32));
      Add((redByGreen + 8) << 4 | (blueByGreen + 8));
    } else {
      for (const int part : {0xFE, qRed(pixel), qGreen(pixel), qBlue(pixel)}) Add(part);
    }
  }

  void EndRun() {
    if (run_ > 0) Add(0xC0 | (run_ - 1));
    run_ = 0;
  }

  QByteArray bytes_;
  std::array<QRgb, 64> seen_{};
  QRgb last_ = qRgb(0, 0, 0);
  int run_ = 0;
};

bool Paint(const QString& drawing) {
  QFile file(drawing);
  if (!file.open(QIODevice::ReadOnly)) return false;
  const QByteArray svg = file.readAll();
  const QFileInfo info(drawing);
  const QImage image = tessera::PaintSvg({svg.constData(), static_cast<std::size_t>(svg.size())}, 1)
                           .convertToFormat(QImage::Format_ARGB32);
  QoiWriter writer(image.size());
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) writer.Put(image.pixel(x, y));
  }
  QFile painted(info.path() + "/" + info.completeBaseName() + ".qoi");
  return !image.isNull() && painted.open(QIODevice::WriteOnly) && painted.write(writer.End()) > 0;
}

}  // namespace

int main(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (Paint(argv[i])) continue;
    std::fprintf(stderr, "%s: not painted\n", argv[i]);
    return 1;
  }
}
