#include "qt/surface_pane.h"

#include <QCursor>
#include <QPaintEvent>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <utility>

#include "qt/colour.h"
#include "qt/pictures.h"
#include "qttext/fonts.h"
#include "qttext/text.h"

namespace tessera {

namespace {

constexpr int kPaintInterval = 16;  // milliseconds
constexpr int kTouchedAreas = 16;

}  // namespace

SurfacePane::SurfacePane(QWidget& widget, Surface& surface, Raster& raster, DrawnPanes& drawn)
    : widget_(widget), surface_(surface), drawn_(drawn), print_(raster) {
  nextPaint_.setSingleShot(true);
  nextPaint_.setInterval(kPaintInterval);
  nextPaint_.callOnTimeout(&widget_, [this] { widget_.update(std::exchange(touched_, {})); });
  sincePaint_.start();
}

SurfacePane::~SurfacePane() {
  std::erase(drawn_, this);
}

void SurfacePane::Fit() {
  print_.Fit(widget_.size(), widget_.devicePixelRatioF());
}

void SurfacePane::Print(std::string_view text, const TextMask& mask) {
  Fit();
  print_.Print(QPointF(surface_.CurrentX, surface_.CurrentY), ToQLines(text), ToQFont(surface_.Font),
               ToQColor(surface_.ForeColor));
  Touch(QRect(mask.corner.x, mask.corner.y, mask.size.width, mask.size.height));
}

void SurfacePane::Draw(const Spans& spans, Pixel pixel) {
  Fit();
  Refresh(print_.Draw(spans, pixel));
}

void SurfacePane::Paint(const PlacedPictures& pictures, bool erased) {
  Fit();
  QRect touched = erased ? widget_.rect() : QRect();
  if (erased) print_.Clear();
  for (const PlacedPicture& placed : pictures) touched |= print_.Paint(placed);
  Refresh(touched & widget_.rect());
}

void SurfacePane::Clear() {
  print_.Clear();
  Touch(widget_.rect());
}

void SurfacePane::TakeGround() {
  const PictureRef& picture = surface_.Background();
  background_ = picture ? ToQImage(*picture, widget_.devicePixelRatioF()) : QImage();
  Touch(widget_.rect());
}

// A picture names no point of its own to point with: it is the upper left corner.
void SurfacePane::TakeMouseIcon() {
  if (const PictureRef& picture = surface_.MouseIcon()) {
    widget_.setCursor(QCursor(QPixmap::fromImage(ToQImage(*picture, widget_.devicePixelRatioF())), 0, 0));
  } else {
    widget_.unsetCursor();
  }
}

void SurfacePane::WaitToBeShown() {
  if (std::find(drawn_.begin(), drawn_.end(), this) == drawn_.end()) drawn_.push_back(this);
}

void SurfacePane::Touch(const QRect& area) {
  // Many small areas cost more to tell apart than to paint as one.
  touched_ = touched_.rectCount() > kTouchedAreas ? QRegion(touched_.boundingRect() | area) : touched_ | area;
  WaitToBeShown();
  if (nextPaint_.isActive()) return;
  if (sincePaint_.elapsed() >= kPaintInterval) {
    widget_.update(std::exchange(touched_, {}));
  } else {
    nextPaint_.start();
  }
}

// What was drawn too soon behind the last painting to show at once.
void SurfacePane::ShowDrawn() {
  if (touched_.isEmpty()) return;
  if (sincePaint_.elapsed() < kPaintInterval) {
    WaitToBeShown();
  } else {
    widget_.repaint(std::exchange(touched_, {}));
  }
}

// A drawing shows at once, though the program lets no event through, but not oftener than the screen does.
void SurfacePane::Refresh(const QRect& area) {
  if (sincePaint_.elapsed() < kPaintInterval) return Touch(area);
  sincePaint_.restart();
  widget_.repaint(std::exchange(touched_, {}) | area);
}

void SurfacePane::OnPaint(const QPaintEvent& event) {
  QPainter painter(&widget_);
  for (const QRect& area : event.region()) {
    painter.setClipRect(area);
    painter.fillRect(area, ToQColor(surface_.BackColor()));
    painter.drawImage(QPoint(0, 0), background_);
    print_.PaintOn(painter, area);
  }
  sincePaint_.restart();
  isPainted_ = true;
}

}  // namespace tessera
