#include "qt/pictures.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <cstdlib>
#include <map>
#include <vector>

#include "qt/svg_painting.h"
#include "windows/stock_pictures.h"

namespace tessera::test {

namespace {

struct Stock {
  StockKind kind;
  int count;
};

constexpr Stock kStock[] = {{StockKind::Figure, 33}, {StockKind::Background, 2}, {StockKind::Animation, 4}};

// All pictures of a kind, an animation's frames one behind the other.
std::vector<PictureRef> AllOf(const Stock& stock) {
  std::vector<PictureRef> all;
  for (int number = 0; number < stock.count; ++number) {
    if (stock.kind == StockKind::Animation) {
      for (const PictureRef& frame : StockFrames(number)) all.push_back(frame);
    } else {
      all.push_back(StockPicture(stock.kind, number));
    }
  }
  return all;
}

double ShareOfOpaque(const QImage& image) {
  int opaque = 0;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) opaque += qAlpha(image.pixel(x, y)) > 200;
  }
  return double(opaque) / (image.width() * image.height());
}

// For the eye: a sheet of all pictures of a kind, where TESSERA_LOOK_AT names a folder.
void SaveSheet(const std::vector<PictureRef>& pictures, const QString& name, int ratio) {
  const char* folder = std::getenv("TESSERA_LOOK_AT");
  if (folder == nullptr) return;
  const Size size = pictures.front()->size();
  const int columns = std::max(1, std::min(11, 700 / size.width));
  const int rows = (static_cast<int>(pictures.size()) + columns - 1) / columns;
  QImage sheet(QSize(columns * (size.width + 12), rows * (size.height + 12)) * ratio, QImage::Format_RGB32);
  sheet.setDevicePixelRatio(ratio);
  sheet.fill(QColor(240, 240, 240));
  QPainter painter(&sheet);
  for (int i = 0; i < static_cast<int>(pictures.size()); ++i) {
    const QPoint at(i % columns * (size.width + 12) + 6, i / columns * (size.height + 12) + 6);
    painter.drawImage(at, ToQImage(*pictures[std::size_t(i)], ratio));
  }
  painter.end();
  sheet.save(QString(folder) + "/" + name + QString::number(ratio) + "x.png");
}

}  // namespace

TEST(Pictures, EveryStockPictureIsDrawnFillsItsPlaceAndIsLikeNoOther) {
  for (const Stock& stock : kStock) {
    std::map<QByteArray, int> seen;
    const auto pictures = AllOf(stock);
    for (const int ratio : {1, 2}) SaveSheet(pictures, QString("stock%1_").arg(int(stock.kind)), ratio);
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i) {
      const QImage image = ToQImage(*pictures[std::size_t(i)], 1);
      const double share = ShareOfOpaque(image);
      EXPECT_GT(share, stock.kind == StockKind::Background ? 0.99 : 0.15) << int(stock.kind) << " " << i;
      const QByteArray bytes(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
      // An animation may come back to a frame, but two neighbours differ.
      if (stock.kind == StockKind::Animation && i % 4 == 0) seen.clear();
      const bool isNew = seen.emplace(bytes, i).second;
      EXPECT_TRUE(isNew) << int(stock.kind) << " " << i;
    }
  }
}

TEST(Pictures, AStockPictureIsPaintedAnewForAFineScreen) {
  const PictureRef figure = StockPicture(StockKind::Figure, StockNumber(StockKind::Figure, "FigTerra"));
  const QImage coarse = ToQImage(*figure, 1);
  QImage fine = ToQImage(*figure, 2);
  EXPECT_EQ(fine.size(), QSize(64, 64));
  EXPECT_EQ(fine.devicePixelRatio(), 2);
  fine.setDevicePixelRatio(1);
  EXPECT_NE(fine, coarse.scaled(64, 64));
}

TEST(Pictures, ThePixelsAreThoseOfTheDrawing) {
  for (const Stock& stock : kStock) {
    for (const PictureRef& picture : AllOf(stock)) {
      const QImage drawn = PaintSvg(picture->vector, 1);
      ASSERT_EQ(drawn.size(), QSize(picture->size().width, picture->size().height));
      const QImage shown = ToQImage(*picture, 1);
      for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
          const QRgb wanted = drawn.pixel(x, y);
          const QRgb pixel = shown.pixel(x, y);
          ASSERT_EQ(qAlpha(pixel), qAlpha(wanted));
          // Where a pixel is nearly transparent its colours have few steps.
          if (qAlpha(wanted) == 255) {
            ASSERT_EQ(pixel, wanted);
          }
        }
      }
    }
  }
}

TEST(Pictures, TheStockIsAsLargeAsProgramsKnowIt) {
  const Size sizes[] = {{32, 32}, {640, 420}, {96, 96}};
  for (const Stock& stock : kStock) {
    for (const PictureRef& picture : AllOf(stock)) {
      EXPECT_EQ(picture->size(), sizes[static_cast<std::size_t>(stock.kind)]);
    }
  }
}

}  // namespace tessera::test
