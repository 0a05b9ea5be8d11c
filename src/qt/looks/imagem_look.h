// The look of `Imagem`: its surface, in which the widgets of other objects may lie.
#pragma once

#include "objects/imagem.h"
#include "qt/looks/look.h"
#include "qt/surface_pane.h"

namespace tessera {

class ImagemLook final : public PaintedLook<ImagemControl>, private SurfaceView {
 public:
  ImagemLook(ImagemControl& control, LogicEntry& entry);
  ~ImagemLook() override;
  ImagemLook(const ImagemLook&) = delete;
  ImagemLook& operator=(const ImagemLook&) = delete;

  // The surface tells of its changes by itself.
  void FollowControl() override {}
  // The control goes, and its surface with it; the widget may have to wait for the end of an event.
  void LoseControl() override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;

 private:
  void ShowGround() override { pane_->TakeGround(); }
  void ShowMouseIcon() override { pane_->TakeMouseIcon(); }
  void ShowErased() override { pane_->Clear(); }
  void ShowDrawn(const Spans& spans, Pixel pixel) override { pane_->Draw(spans, pixel); }
  void ShowPainted(const PlacedPictures& pictures, bool erased) override { pane_->Paint(pictures, erased); }
  void ShowPrinted(std::string_view text, const TextMask& mask) override { pane_->Print(text, mask); }

  std::unique_ptr<SurfacePane> pane_;
  bool isDoubleClick_ = false;  // until the second release
};

}  // namespace tessera
