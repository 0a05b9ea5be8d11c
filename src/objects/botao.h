// `Botao`, the button, and `EstiloBotao`, which changes the skin that skinned buttons take.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "commands/command_table.h"
#include "controls/btn_esp.h"
#include "objects/object_family.h"
#include "windows/picture.h"

namespace tessera {

// The pictures of a skinned button and the colours that it gives.
struct ButtonSkin {
  PictureRef BtnUp;
  PictureRef BtnHigh;
  PictureRef BtnFocus;
  PictureRef BtnDown;
  PictureRef BtnDisabled;
  Colour backColor = kButtonFaceColour;
  Colour foreColor = kButtonTextColour;

  const PictureRef& Of(BtnEsp::Picture state) const;
};

// The skins by their numbers, unpacked when the first is asked for. The program changes element 0.
class SkinStore {
 public:
  // Failure 340 for a number that the store has not got.
  ButtonSkin& Element(std::int32_t number);

 private:
  void Unpack();

  std::vector<ButtonSkin> skins_;
};

// The control `BtnEsp` on a window.
class BotaoControl final : public Control {
 public:
  BotaoControl(Form& form, ControlEvents& events, int index, EventDispatch& dispatch);

  enum class Style { Plain = 0, Skinned = 1 };

  const std::string& Caption() const { return caption_; }
  std::string PortraitText() const override { return caption_; }
  void SetCaption(std::string_view caption) { Set(caption_, std::string(caption)); }
  const PictureRef& Picture() const { return picture_; }
  void SetPicture(PictureRef picture) { Set(picture_, std::move(picture)); }
  Style GetStyle() const { return style_; }
  void SetPlain();
  void SetSkin(const ButtonSkin& skin);
  const ButtonSkin& Skin() const { return skin_; }

  // What it shows now.
  const BtnEsp& State() const { return state_; }

  // Button 1, and the pointer's way over the control.
  void PointerDown();
  void PointerMove(bool inside);
  void PointerUp(bool inside);

  void Click() override;
  bool TakesEnter() const override { return true; }
  void OnKeyDown(int keyCode, KeyShift shift) override;

 protected:
  void FocusGained() override { state_.SetFocus(true); }
  void FocusLost() override { state_.SetFocus(false); }
  void EnabledChanged() override { state_.SetEnabled(Enabled()); }

 private:
  void PressByKey();

  EventDispatch& dispatch_;
  BtnEsp state_;
  std::string caption_ = "OK";
  PictureRef picture_;
  Style style_ = Style::Plain;
  ButtonSkin skin_;
};

class Botao final : public ObjectFamily {
 public:
  explicit Botao(ObjectFrame& frame);

  // `EstiloBotao`.
  void BindStyleCommand(CommandTable& table);

  // A stock name, or a file; none for an empty argument. A missing file is told in a box.
  void SetPicture(BotaoControl& button, std::string_view argument);

  void OnClick(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  void BeforeSuffix(Control& control, const Arguments& arguments) override;

 private:
  void CreateSkinned(BotaoControl& button, const ArgumentView& arguments);
  void CreateLong(BotaoControl& button, const ArgumentView& arguments);
  void CreateShort(BotaoControl& button, const ArgumentView& arguments);

  using StyleTable = FormTable<void (*)(Botao& family, ButtonSkin& skin, const ArgumentView& values)>;
  static StyleTable Styles();
  template <PictureRef ButtonSkin::*picture>
  static void SetStylePicture(Botao& family, ButtonSkin& skin, const ArgumentView& values);
  template <Colour ButtonSkin::*colour>
  static void SetStyleColour(Botao& family, ButtonSkin& skin, const ArgumentView& values);
  Value EstiloBotao(const WordCall& call);

  SkinStore skins_;
  const StyleTable styles_ = Styles();
};

}  // namespace tessera
