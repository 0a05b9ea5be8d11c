// `Figura`, a picture that `DesenheFiguras` paints into the current window, its key colour left out: the
// control arrays `Figura` and `FiguraMasc` on the main window, never shown themselves.
#pragma once

#include <memory>
#include <string_view>

#include "objects/object_family.h"
#include "windows/picture.h"

namespace tessera {

// When a figure is painted.
enum class FiguraState : std::int16_t { NotDrawn = -1, Behind = 0, InFront = 1 };

class FiguraControl final : public Control {
 public:
  FiguraControl(Form& form, ControlEvents& events, int index);

  // Its key colour is transparent; null draws nothing.
  PictureRef picture;
  // In pixels of the window.
  std::int32_t Top = 0;
  std::int32_t Left = 0;
  FiguraState state = FiguraState::Behind;

  bool TakesFocus() const override { return false; }
  bool IsInReach() const override { return false; }
  bool DrawOn(Raster&) const override { return true; }
};

class Figura final : public ObjectFamily {
 public:
  explicit Figura(ObjectFrame& frame);

  // `DesenheFiguras`.
  void BindDrawCommand(CommandTable& table);

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  void TellMissing(std::string_view name, std::string_view suffix) override;

 private:
  Value DesenheFiguras(const WordCall& call);
};

}  // namespace tessera
