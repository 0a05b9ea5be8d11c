// A surface as a widget shows it, be it a window's or that of an object: its ground, what was printed and
// drawn, painted at once but no more often than the screen can show.
#pragma once

#include <QElapsedTimer>
#include <QImage>
#include <QRegion>
#include <QTimer>
#include <string_view>
#include <vector>

#include "qt/print_surface.h"
#include "windows/surface.h"

class QPaintEvent;
class QWidget;

namespace tessera {

class SurfacePane;

// Those on which something drawn waits to be shown.
using DrawnPanes = std::vector<SurfacePane*>;

class SurfacePane {
 public:
  // All outlive it; `raster` is the surface's.
  SurfacePane(QWidget& widget, Surface& surface, Raster& raster, DrawnPanes& drawn);
  ~SurfacePane();
  SurfacePane(const SurfacePane&) = delete;
  SurfacePane& operator=(const SurfacePane&) = delete;

  // Room for the widget's size at its screen's resolution.
  void Fit();

  // What the surface tells of its changes.
  void Print(std::string_view text, const TextMask& mask);
  void Draw(const Spans& spans, Pixel pixel);
  void Paint(const PlacedPictures& pictures, bool erased);
  void Clear();
  void TakeGround();
  void TakeMouseIcon();

  // Shows what waits to be shown, where the screen is ready for it.
  void ShowDrawn();
  // The widget's own painting.
  void OnPaint(const QPaintEvent& event);
  bool IsPainted() const { return isPainted_; }

 private:
  void WaitToBeShown();
  void Touch(const QRect& area);
  void Refresh(const QRect& area);

  QWidget& widget_;
  Surface& surface_;
  DrawnPanes& drawn_;
  PrintSurface print_;
  QImage background_;
  // Areas that changed since the last painting.
  QRegion touched_;
  QElapsedTimer sincePaint_;
  QTimer nextPaint_;
  bool isPainted_ = false;
};

}  // namespace tessera
