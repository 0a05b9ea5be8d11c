#include "qtmedia/frames.h"

#include <QImage>
#include <QVideoFrame>
#include <cstring>
#include <exception>

namespace tessera::qtmedia {

PictureRef PictureOf(const QVideoFrame& frame) {
  const QImage image = frame.toImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  if (image.isNull()) return nullptr;
  try {
    Picture picture{.raster = Raster({.width = image.width(), .height = image.height()})};
    for (int y = 0; y < image.height(); ++y) {
      std::memcpy(picture.raster.Row(y), image.constScanLine(y),
                  static_cast<std::size_t>(image.width()) * sizeof(Pixel));
    }
    return std::make_shared<const Picture>(std::move(picture));
  } catch (const std::exception&) {
    return nullptr;
  }
}

}  // namespace tessera::qtmedia
