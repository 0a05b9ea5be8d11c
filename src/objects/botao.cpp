#include "objects/botao.h"

#include <chrono>
#include <utility>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/form.h"
#include "windows/picture_commands.h"
#include "windows/stock_pictures.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr ControlPlace kButtonSize = {.Width = 80, .Height = 28};
constexpr std::string_view kSkinWord = "TIPO";

Value Descricao(const SuffixCall& call) {
  call.As<BotaoControl>().SetCaption(call.Word());
  return {};
}

Value Figura(const SuffixCall& call) {
  static_cast<Botao&>(call.family).SetPicture(call.As<BotaoControl>(), call.arguments.Raw(2));
  return {};
}

constexpr SuffixRow kSuffixes[] = {
    {".ATIVO", suffix::Ativo},         {".CORFUNDO", suffix::CorFundo},
    {".CORLETRA", suffix::CorLetra},   {".INDICETAB", suffix::IndiceTab},
    {".NOMEFONTE", suffix::NomeFonte}, {".TAMFONTE", suffix::TamFonte},
    {".NEGRITO", suffix::Negrito},     {".ITALICO", suffix::Italico},
    {".MOVEFOCO", suffix::MoveFoco},   {".PAI", suffix::Pai},
    {".DESCRICAO", Descricao},         {".FIGURA", Figura},
};

}  // namespace

// The skins

const PictureRef& ButtonSkin::Of(BtnEsp::Picture state) const {
  switch (state) {
    case BtnEsp::Picture::kBtnDisabled:
      return BtnDisabled;
    case BtnEsp::Picture::kBtnDown:
      return BtnDown;
    case BtnEsp::Picture::kBtnHigh:
      return BtnHigh;
    case BtnEsp::Picture::kBtnFocus:
      return BtnFocus;
    case BtnEsp::Picture::kBtnUp:
      break;
  }
  return BtnUp;
}

void SkinStore::Unpack() {
  constexpr Colour kWhite = 0xFFFFFF;
  for (std::vector<PictureRef> skin = StockSkin(0); !skin.empty();
       skin = StockSkin(static_cast<std::int32_t>(skins_.size()))) {
    skins_.push_back({.BtnUp = skin[0],
                      .BtnHigh = skin[1],
                      .BtnFocus = skin[2],
                      .BtnDown = skin[3],
                      .BtnDisabled = skin[4],
                      .foreColor = kWhite});
  }
}

ButtonSkin& SkinStore::Element(std::int32_t number) {
  if (skins_.empty()) Unpack();
  if (number < 0 || static_cast<std::size_t>(number) >= skins_.size()) Fail(340);
  return skins_[static_cast<std::size_t>(number)];
}

// The control

BotaoControl::BotaoControl(Form& form, ControlEvents& events, int index, EventDispatch& dispatch)
    : Control(form, events, index, kButtonSize), dispatch_(dispatch) {}

void BotaoControl::SetPlain() {
  style_ = Style::Plain;
  Set(skin_, {});
}

void BotaoControl::SetSkin(const ButtonSkin& skin) {
  style_ = Style::Skinned;
  skin_ = skin;
  SetBackColor(skin.backColor);
  SetForeColor(skin.foreColor);
}

void BotaoControl::PointerDown() {
  state_.PointerDown();
  Refresh();
}

void BotaoControl::PointerMove(bool inside) {
  state_.PointerMove(inside);
  Refresh();
}

void BotaoControl::PointerUp(bool inside) {
  const bool isClick = state_.PointerUp(inside);
  Refresh();
  if (isClick) Events().OnClick(*this);
}

void BotaoControl::Click() {
  PointerDown();
  PointerUp(true);
}

void BotaoControl::OnKeyDown(int keyCode, KeyShift) {
  switch (state_.KeyDown(keyCode)) {
    case BtnEsp::KeyEffect::kFocusNext:
      form().FocusNext(true);
      break;
    case BtnEsp::KeyEffect::kFocusPrevious:
      form().FocusNext(false);
      break;
    case BtnEsp::KeyEffect::kPress:
      PressByKey();
      break;
    case BtnEsp::KeyEffect::kNone:
      break;
  }
}

void BotaoControl::PressByKey() {
  Refresh();
  dispatch_.ProcessEvents();
  dispatch_.Pause(std::chrono::milliseconds(BtnEsp::kPressPauseMs));
  state_.EndKeyPress();
  Refresh();
  Events().OnClick(*this);
}

// The family

Botao::Botao(ObjectFrame& frame) : ObjectFamily(frame, "BtnNovo", {}, kSuffixes) {}

std::shared_ptr<Control> Botao::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<BotaoControl>(form, *this, index, run().host.events);
}

void Botao::Create(Control& control, ObjectRow&, const Settings& arguments) {
  auto& button = static_cast<BotaoControl&>(control);
  const auto isGiven = [&](std::size_t place) { return !arguments.Raw(place).empty(); };
  if (Upper(EvalText(run(), arguments.Raw(1)).ToText()).starts_with(kSkinWord)) {
    CreateSkinned(button, arguments);
  } else if (isGiven(4) || isGiven(5) || isGiven(6) || isGiven(7)) {
    CreateLong(button, arguments);
  } else {
    CreateShort(button, arguments);
  }
}

// OPEN: a skinned button takes the size of its skin, as far as the skin has a picture.
void Botao::CreateSkinned(BotaoControl& button, const Settings& arguments) {
  Place(button, arguments, 2);
  const bool isCaptioned =
      !arguments.Raw(4).empty() || !arguments.Raw(5).empty() || !arguments.Raw(6).empty();
  button.SetCaption(isCaptioned ? arguments.Number(4).ToText() : "OK");
  SetPicture(button, arguments.Raw(5));
  button.SetToolTipText(arguments.Number(6).ToText());
  const std::string word = EvalText(run(), arguments.Raw(1)).ToText();
  const ButtonSkin& skin = skins_.Element(RoundToInteger(LeadingNumber(Mid(word, kSkinWord.size() + 1))));
  button.SetSkin(skin);
  if (!skin.BtnUp) return;
  ControlPlace place = button.Place();
  place.Width = skin.BtnUp->size().width;
  place.Height = skin.BtnUp->size().height;
  button.Move(place);
}

void Botao::CreateLong(BotaoControl& button, const Settings& arguments) {
  button.SetPlain();
  Place(button, arguments, 1);
  SetHeight(button, arguments, 3);
  SetWidth(button, arguments, 4);
  button.SetCaption(arguments.Number(5).ToText());
  SetPicture(button, arguments.Raw(6));
  button.SetToolTipText(arguments.Number(7).ToText());
}

void Botao::CreateShort(BotaoControl& button, const Settings& arguments) {
  button.SetPlain();
  Place(button, arguments, 1);
  button.SetCaption(arguments.Raw(3).empty() ? "OK" : arguments.Number(3).ToText());
  SetPicture(button, {});
  button.SetToolTipText({});
}

void Botao::SetPicture(BotaoControl& button, std::string_view argument) {
  const std::string name = EvalText(run(), argument).ToText();
  if (name.empty()) return button.SetPicture(nullptr);
  const std::int32_t number = StockNumber(StockKind::Figure, name);
  if (number != kNoStockNumber) return button.SetPicture(StockPicture(StockKind::Figure, number));
  if (PictureRef picture = PictureOfFile(run(), name)) return button.SetPicture(std::move(picture));
  ShowCritical(
      run(),
      std::string("Erro ao carregar figura, caminho não encontrado!\r"_w).append(SourcePositionText(run())));
}

// KEPT: "Visivel" counts in this case alone, wherever it stands (programs.buttons_are_made_in_three_forms).
void Botao::BeforeSuffix(const SuffixCall& call) {
  if (Contains(call.arguments.Raw(0), "Visivel")) {
    SetBySimNao(call.Word(), [&](bool on) { call.control.SetVisible(on); });
  }
}

void Botao::OnClick(Control& control) {
  ObjectFamily::OnClick(control);
  const ObjectRow* row = RowOf(control);
  if (row == nullptr) return;
  windows().events.UltimoBotao = row->name;
  Tell("TestaBotao", row->name);
}

// The style command

void Botao::EstiloBotao(std::string_view arguments) {
  const Settings settings(run(), arguments);
  const std::string keyword = Upper(settings.Raw(0));
  const std::string& value = settings.Raw(2);
  ButtonSkin& skin = skins_.Element(0);
  const auto picture = [&] { return PictureOfFile(run(), EvalText(run(), value).ToText()); };
  if (Contains(keyword, "FIGSOLTO")) skin.BtnUp = picture();
  if (Contains(keyword, "FIGDESTAQUE")) skin.BtnHigh = picture();
  if (Contains(keyword, "FIGFOCO")) skin.BtnFocus = picture();
  if (Contains(keyword, "FIGCLIQUE")) skin.BtnDown = picture();
  if (Contains(keyword, "FIGINATIVO")) skin.BtnDisabled = picture();
  if (Contains(keyword, "CORFUNDO")) skin.backColor = settings.Number(2).ToInteger();
  if (Contains(keyword, "CORLETRA")) skin.foreColor = settings.Number(2).ToInteger();
}

void Botao::AddStyleCommand(CommandTable& table) {
  table.Add("ESTILOBOTAO", [this](std::string_view, std::string_view arguments) {
    EstiloBotao(arguments);
    return Value();
  });
}

}  // namespace tessera
