#include "objects/suffix.h"

#include <utility>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/window_model.h"

namespace tessera {

std::vector<std::string> SuffixCall::Values() const {
  std::vector<std::string> values;
  const std::string& first = arguments.Part(0);
  const Position blank = Find(first, " ");
  if (blank > 0) values.emplace_back(Trim(Mid(first, blank)));
  std::size_t place = 1;
  if (arguments.Part(place) == "=") ++place;
  std::size_t end = arguments.Places();
  while (end > place && arguments.Part(end - 1).empty()) --end;
  for (; place < end; ++place) values.push_back(arguments.Part(place));
  return values;
}

std::string SuffixCall::NthRaw(ArgumentName name) const {
  const std::size_t place = form.arguments.PlaceOf(name);
  const std::vector<std::string> values = Values();
  return place < values.size() ? values[place] : std::string();
}

Value SuffixCall::Nth(ArgumentName name) const {
  const std::string raw = NthRaw(name);
  return raw.empty() ? Value(std::string()) : EvalNumber(run, raw);
}

namespace suffix {

namespace {

Value SetFace(const SuffixCall& call, void (*change)(FontFace& face, const SuffixCall& call)) {
  FontFace face = call.control.Font();
  change(face, call);
  call.control.SetFont(face);
  return {};
}

}  // namespace

// KEPT: the words stand in upper case here and in any case where a font is set
// (programs.objects_share_their_suffixes).
Value Ativo(const SuffixCall& call) {
  SetBySimNao(call.Word(), [&](bool on) { call.control.SetEnabled(on); });
  return {};
}

Value Visivel(const SuffixCall& call) {
  SetBySimNao(call.Word(), [&](bool on) { call.control.SetVisible(on); });
  return {};
}

Value CorFundo(const SuffixCall& call) {
  call.control.SetBackColor(call.Number().ToInteger());
  return {};
}

Value CorLetra(const SuffixCall& call) {
  call.control.SetForeColor(call.Number().ToInteger());
  return {};
}

Value IndiceTab(const SuffixCall& call) {
  call.control.SetTabIndex(call.Number().ToInteger());
  return {};
}

Value MoveFoco(const SuffixCall& call) {
  call.control.SetFocus();
  return {};
}

Value Dica(const SuffixCall& call) {
  call.control.SetToolTipText(call.Word());
  return {};
}

Value NomeFonte(const SuffixCall& call) {
  return SetFace(call, [](FontFace& face, const SuffixCall& c) { face.name = c.Text(); });
}

Value TamFonte(const SuffixCall& call) {
  return SetFace(call, [](FontFace& face, const SuffixCall& c) { face.size = c.Number().ToDouble(); });
}

Value Negrito(const SuffixCall& call) {
  return SetFace(call, [](FontFace& face, const SuffixCall& c) { face.bold = IsSim(c); });
}

Value Italico(const SuffixCall& call) {
  return SetFace(call, [](FontFace& face, const SuffixCall& c) { face.italic = IsSim(c); });
}

Value Pai(const SuffixCall& call) {
  if (Control* picture = call.frame.FindPicture(call.Text())) call.control.SetParent(*picture);
  return {};
}

namespace {

Value MoveBy(const SuffixCall& call, double ControlPlace::*side, std::int16_t WindowModel::*unit) {
  const double pixels = call.Number().ToDouble() * (call.frame.windows().*unit);
  ControlPlace place = call.control.Place();
  place.*side = pixels;
  call.control.Move(place);
  return {};
}

}  // namespace

Value Altura(const SuffixCall& call) {
  return MoveBy(call, &ControlPlace::Height, &WindowModel::TamLin);
}

Value Largura(const SuffixCall& call) {
  return MoveBy(call, &ControlPlace::Width, &WindowModel::TamCol);
}

Value Linha(const SuffixCall& call) {
  return MoveBy(call, &ControlPlace::Top, &WindowModel::TamLin);
}

Value Coluna(const SuffixCall& call) {
  return MoveBy(call, &ControlPlace::Left, &WindowModel::TamCol);
}

bool IsSim(const SuffixCall& call) {
  return Upper(call.Word()) == "SIM";
}

TextAlign AlignmentOf(const SuffixCall& call) {
  const std::int32_t number = call.Number().ToInteger();
  if (number < 0 || number > 2) throw RunFailure(380, "Valor de propriedade inválido"_w);
  return static_cast<TextAlign>(number);
}

}  // namespace suffix

}  // namespace tessera
