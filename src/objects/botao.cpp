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
  static_cast<Botao&>(call.family).SetPicture(call.As<BotaoControl>(), call.Raw());
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

Botao::Botao(ObjectFrame& frame) : ObjectFamily(frame, "Botao", kSuffixes) {}

std::shared_ptr<Control> Botao::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<BotaoControl>(form, *this, index, run().host.events);
}

void Botao::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& button = static_cast<BotaoControl&>(control);
  const ArgumentView styled = arguments.In("estilo");
  const ArgumentView longer = arguments.In("longa");
  if (Upper(styled.Text("estilo")).starts_with(kSkinWord)) {
    CreateSkinned(button, styled);
  } else if (!longer.IsEmpty("largura") || !longer.IsEmpty("legenda") || !longer.IsEmpty("figura") ||
             !longer.IsEmpty("dica")) {
    CreateLong(button, longer);
  } else {
    CreateShort(button, arguments);
  }
}

// OPEN: a skinned button takes the size of its skin, as far as the skin has a picture.
void Botao::CreateSkinned(BotaoControl& button, const ArgumentView& arguments) {
  Place(button, arguments);
  const bool isCaptioned =
      !arguments.IsEmpty("legenda") || !arguments.IsEmpty("figura") || !arguments.IsEmpty("dica");
  button.SetCaption(isCaptioned ? arguments.Number("legenda").ToText() : "OK");
  SetPicture(button, arguments.Raw("figura"));
  button.SetToolTipText(arguments.Number("dica").ToText());
  const std::string word = arguments.Text("estilo");
  const ButtonSkin& skin = skins_.Element(RoundToInteger(LeadingNumber(Mid(word, kSkinWord.size() + 1))));
  button.SetSkin(skin);
  if (!skin.BtnUp) return;
  ControlPlace place = button.Place();
  place.Width = skin.BtnUp->size().width;
  place.Height = skin.BtnUp->size().height;
  button.Move(place);
}

void Botao::CreateLong(BotaoControl& button, const ArgumentView& arguments) {
  button.SetPlain();
  Place(button, arguments);
  SetHeight(button, arguments);
  SetWidth(button, arguments);
  button.SetCaption(arguments.Number("legenda").ToText());
  SetPicture(button, arguments.Raw("figura"));
  button.SetToolTipText(arguments.Number("dica").ToText());
}

void Botao::CreateShort(BotaoControl& button, const ArgumentView& arguments) {
  button.SetPlain();
  Place(button, arguments);
  button.SetCaption(arguments.IsEmpty("legenda") ? "OK" : arguments.Number("legenda").ToText());
  SetPicture(button, {});
  button.SetToolTipText({});
}

void Botao::SetPicture(BotaoControl& button, std::string_view argument) {
  const std::string name = EvalText(run(), argument).ToText();
  if (name.empty()) return button.SetPicture(nullptr);
  const std::int32_t number = StockNumber(StockKind::Figure, name);
  if (number != kNoStockNumber) {
    return button.SetPicture(windows().pictures.Stock(StockKind::Figure, number));
  }
  if (PictureRef picture = windows().pictures.OfFile(name)) return button.SetPicture(std::move(picture));
  ShowCritical(
      run(),
      std::string("Erro ao carregar figura, caminho não encontrado!\r"_w).append(SourcePositionText(run())));
}

// KEPT: "Visivel" counts in this case alone, wherever it stands (programs.buttons_are_made_in_three_forms).
void Botao::BeforeSuffix(Control& control, const Arguments& arguments) {
  if (!Contains(arguments.Raw("nome"), "Visivel")) return;
  SetBySimNao(EvalNumber(run(), arguments.Part(2)).ToText(), [&](bool on) { control.SetVisible(on); });
}

void Botao::OnClick(Control& control) {
  ObjectFamily::OnClick(control);
  const ObjectRow* row = RowOf(control);
  if (row == nullptr) return;
  windows().events.UltimoBotao = row->name;
  Tell("TestaBotao", row->name);
}

// The style command

Value Botao::EstiloBotao(const WordCall& call) {
  const Arguments arguments(call);
  const std::string keyword = Upper(arguments.Raw("palavra"));
  ButtonSkin& skin = skins_.Element(0);
  for (const StyleTable::Bound& style : styles_) {
    if (Contains(keyword, style.form->word)) style.act(*this, skin, arguments);
  }
  return {};
}

template <PictureRef ButtonSkin::*picture>
void Botao::SetStylePicture(Botao& family, ButtonSkin& skin, const ArgumentView& values) {
  skin.*picture = family.windows().pictures.OfFile(values.Text("valor"));
}

template <Colour ButtonSkin::*colour>
void Botao::SetStyleColour(Botao&, ButtonSkin& skin, const ArgumentView& values) {
  skin.*colour = values.Number("valor").ToInteger();
}

Botao::StyleTable Botao::Styles() {
  constexpr StyleTable::Row kRows[] = {
      {"FIGSOLTO", SetStylePicture<&ButtonSkin::BtnUp>},
      {"FIGDESTAQUE", SetStylePicture<&ButtonSkin::BtnHigh>},
      {"FIGFOCO", SetStylePicture<&ButtonSkin::BtnFocus>},
      {"FIGCLIQUE", SetStylePicture<&ButtonSkin::BtnDown>},
      {"FIGINATIVO", SetStylePicture<&ButtonSkin::BtnDisabled>},
      {"CORFUNDO", SetStyleColour<&ButtonSkin::backColor>},
      {"CORLETRA", SetStyleColour<&ButtonSkin::foreColor>},
  };
  return {FindWord("EstiloBotao")->more.keywords, {kRows}};
}

void Botao::BindStyleCommand(CommandTable& table) {
  constexpr MemberRow<Botao> kRows[] = {{"EstiloBotao", &Botao::EstiloBotao}};
  Bind(table, kRows, *this);
}

}  // namespace tessera
