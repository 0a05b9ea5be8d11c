#include "objects/box.h"

#include <cstdint>
#include <string>
#include <vector>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr double kHeightFactor = 1.7;
constexpr std::string_view kTxt = ".Txt";

// The values of one suffix, evaluated; an empty one takes what is said for it.
class BoxValues {
 public:
  explicit BoxValues(const SuffixCall& call)
      : run_(call.run), signature_(call.form.arguments), values_(call.Values()) {}

  Value At(ArgumentName name) const {
    return IsEmpty(name) ? Value(std::string()) : EvalNumber(run_, values_[signature_.PlaceOf(name)]);
  }
  std::string Text(ArgumentName name) const { return At(name).ToText(); }
  std::int32_t Integer(ArgumentName name, std::int32_t otherwise) const {
    return IsEmpty(name) ? otherwise : At(name).ToInteger();
  }
  std::int16_t Short(ArgumentName name) const { return IsEmpty(name) ? std::int16_t{0} : At(name).ToShort(); }

 private:
  bool IsEmpty(ArgumentName name) const {
    const std::size_t place = signature_.PlaceOf(name);
    return place >= values_.size() || values_[place].empty();
  }

  Run& run_;
  const Signature& signature_;
  std::vector<std::string> values_;
};

NovoBox& Grid(const SuffixCall& call) {
  return call.As<BoxControl>().Grid();
}

// What a person sees changes.
template <typename Act>
Value Change(const SuffixCall& call, Act act) {
  call.As<BoxControl>().Change(act);
  return {};
}

TextAlign AlignOf(std::string_view word) {
  if (word == "DIR") return TextAlign::kRight;
  return word == "CENTRO" ? TextAlign::kCentre : TextAlign::kLeft;
}

// The 51st title lies outside the column arrays.
Value Titulo(const SuffixCall& call) {
  const BoxValues values(call);
  return Change(call, [&](NovoBox& grid) {
    const bool isNumeric = Upper(values.Text("tipo")) == "NUMERICO";
    if (!grid.Titulo(values.Text("texto"), values.Short("largura"), AlignOf(Upper(values.Text("lado"))),
                     isNumeric))
      Fail(9);
  });
}

Value Ativa(const SuffixCall& call) {
  static_cast<BoxFamily&>(call.family).Ativa(call.row, call.As<BoxControl>());
  return {};
}

// Shows with `.FIM`, however many cells come before it.
Value Add(const SuffixCall& call) {
  const BoxValues values(call);
  const std::string text = values.Text("texto");
  const CellAttributes attributes = {.fore = values.Integer("cor", -1),
                                     .back = values.Integer("fundo", -1),
                                     .font = values.Text("fonte"),
                                     .size = values.Short("tamanho"),
                                     .bold = Upper(values.Text("negrito")) == "NEGRITO"};
  if (!Grid(call).Add(text, attributes)) {
    ShowCritical(call.run, std::string(NovoBox::kTooManyCells).append(text));
  }
  return {};
}

Value NovaLinha(const SuffixCall& call) {
  Grid(call).BoxNew();
  return {};
}

Value Fim(const SuffixCall& call) {
  return Change(call, [](NovoBox& grid) { grid.AddEnd(); });
}

Value Cls(const SuffixCall& call) {
  return Change(call, [](NovoBox& grid) { grid.Clear(); });
}

Value Seleciona(const SuffixCall& call) {
  return Change(call, [&](NovoBox& grid) {
    if (!grid.Selected(call.Nth("linha").ToInteger())) ShowCritical(call.run, NovoBox::kBadIndex);
  });
}

Value AlteraCelula(const SuffixCall& call) {
  return Change(call,
                [&](NovoBox& grid) { SetBySimNao(call.Word(), [&](bool on) { grid.SetAlteraCelula(on); }); });
}

Value CorFundo(const SuffixCall& call) {
  suffix::CorFundo(call);
  call.As<BoxControl>().TakeColours();
  return {};
}

Value CorLetra(const SuffixCall& call) {
  suffix::CorLetra(call);
  call.As<BoxControl>().TakeColours();
  return {};
}

// Suffixes that give a value

Value LeListagem(const SuffixCall& call) {
  const BoxValues values(call);
  return Quote(Grid(call).LeVetor(values.Integer("linha", 0), values.Integer("coluna", 0)));
}

Value TotalItens(const SuffixCall& call) {
  return Grid(call).ListCount();
}

Value ColBoxRef(const SuffixCall& call) {
  return std::int32_t{Grid(call).ColBoxRef()};
}

Value LinBoxRef(const SuffixCall& call) {
  return std::int32_t{Grid(call).LinBoxRef()};
}

Value LinListRef(const SuffixCall& call) {
  return Grid(call).LinVetRef();
}

// The row from which `LinBoxRef` counts.
Value LinIniList(const SuffixCall& call) {
  return Grid(call).LinIniVet();
}

Value TotalLinBox(const SuffixCall& call) {
  return std::int32_t{Grid(call).TotalLinhas()};
}

Value TotalColBox(const SuffixCall& call) {
  return std::int32_t{Grid(call).TotalColunas()};
}

constexpr SuffixRow kSuffixes[] = {
    {".ATIVO", suffix::Ativo},
    {".VISIVEL", suffix::Visivel},
    {".TITULO", Titulo},
    {".ATIVA", Ativa},
    {".ADD", Add},
    {".ADICIONA", Add},
    {".NEW", NovaLinha},
    {".NOVALINHA", NovaLinha},
    {".FIM", Fim},
    {".CLS", Cls},
    {".SELECIONA", Seleciona},
    {".TOTALITENS", TotalItens},
    {".COLBOXREF", ColBoxRef},
    {".LINBOXREF", LinBoxRef},
    {".LINLISTREF", LinListRef},
    {".LININILIST", LinIniList},
    {".TOTALLINBOX", TotalLinBox},
    {".TOTALCOLBOX", TotalColBox},
    {".LELISTAGEM", LeListagem},
    {".ALTERACELULA", AlteraCelula},
    {".CORFUNDO", CorFundo},
    {".CORLETRA", CorLetra},
    {".MOVEFOCO", suffix::MoveFoco},
    {".INDICETAB", suffix::IndiceTab},
    {".DICA", suffix::Dica},
    {".PAI", suffix::Pai},
};

}  // namespace

BoxFamily::BoxFamily(ObjectFrame& frame) : ObjectFamily(frame, "Box", kSuffixes), events_(frame) {}

std::shared_ptr<Control> BoxFamily::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<BoxControl>(form, *this, index);
}

void BoxFamily::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  Place(control, arguments);
  if (!arguments.IsEmpty("altura")) {
    ControlPlace place = control.Place();
    place.Height = Lines(arguments.Number("altura")) * kHeightFactor;
    control.Move(place);
  }
  static_cast<BoxControl&>(control).Config();
}

void BoxFamily::Ativa(const ObjectRow& row, BoxControl& box) {
  const std::string count = std::to_string(box.Grid().TotalColunas());
  run().variables.VarCreateArray(row.name + std::string(kTxt) + "(" + count + ")", kTypeString);
  box.Ativa();
}

void BoxFamily::OnClick(Control& control) {
  events_.Click(control, static_cast<BoxControl&>(control).Grid());
}

void BoxFamily::OnDoubleClick(Control& control) {
  events_.DoubleClick(control);
}

void BoxFamily::OnChange(Control&) {
  windows().events.EventoBoxAlterado = "SofreuAlteracao";
}

}  // namespace tessera
