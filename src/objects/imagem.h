// `Imagem`, a surface that programs draw on, and the one container of other objects: the control `Img` on the
// main window.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include "objects/object_family.h"
#include "windows/surface.h"

namespace tessera {

// A host's picture of a surface: one call behind each change.
class SurfaceView {
 public:
  virtual ~SurfaceView() = default;
  virtual void ShowGround() = 0;
  virtual void ShowMouseIcon() = 0;
  virtual void ShowErased() = 0;
  virtual void ShowDrawn(const Spans& spans, Pixel pixel) = 0;
  virtual void ShowPainted(const PlacedPictures& pictures, bool erased) = 0;
  virtual void ShowPrinted(std::string_view text, const TextMask& mask) = 0;
};

// The surface of an `Imagem`, as large as its control.
class ImagemSurface final : public Surface {
 public:
  // Both outlive it.
  ImagemSurface(const Control& control, TextPainter* painter) : Surface(painter), control_(control) {}

  double ScaleWidth() const override { return control_.Place().Width; }
  double ScaleHeight() const override { return control_.Place().Height; }

  // As a new one, but for the place.
  void Reset();

  // Where its changes are shown; null where nothing is.
  SurfaceView* view = nullptr;
  Raster& Pixels() { return raster_; }

 protected:
  void ShowGround() override;
  void ShowMouseIcon() override;
  void ShowErased() override;
  void ShowDrawn(const Spans& spans, Pixel pixel) override;
  void ShowPainted(const PlacedPictures& pictures, bool erased) override;
  void ShowPrinted(std::string_view text, const TextMask& mask) override;

 private:
  const Control& control_;
};

class ImagemControl final : public Control {
 public:
  ImagemControl(Form& form, ControlEvents& events, int index);
  // Its view looks at the surface, and goes before it.
  ~ImagemControl() override { TakeView(nullptr); }

  ImagemSurface& surface() { return surface_; }
  // The surface for whoever holds it no longer than the control lives.
  std::weak_ptr<Surface> SharedSurface();

  // As large as the picture that is its ground.
  void FitPicture();

  // A new object in an element that stands already.
  void Reset();

  // What the pointer left behind: its place on the surface, and the button pressed last, 0 when none.
  double MouseX() const { return mouse_.x; }
  double MouseY() const { return mouse_.y; }
  int MouseBotao() const { return mouseBotao_; }

  bool TakesPointer() const override { return true; }
  void OnMouseDown(MouseButton button, PointerPlace at) override;
  void OnMouseMove(PointerPlace to) override { mouse_ = to; }
  void OnMouseUp(MouseButton button, PointerPlace at) override;
  // In its middle.
  void Click() override;
  void DoubleClick() override { Events().OnDoubleClick(*this); }

  bool DrawOn(Raster& face) const override;

 private:
  ImagemSurface surface_;
  PointerPlace mouse_;
  int mouseBotao_ = 0;
};

class Imagem final : public ObjectFamily {
 public:
  explicit Imagem(ObjectFrame& frame);

  void OnDoubleClick(Control& control) override { OnClick(control); }

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  void TellMissing(std::string_view name, std::string_view suffix) override;
  void Gone(Control& control) override;
};

}  // namespace tessera
