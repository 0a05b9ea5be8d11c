#include "objects/moldura.h"

#include "objects/object_frame.h"

namespace tessera {

namespace {

constexpr ControlPlace kFrameSize = {.Width = 160, .Height = 100};

constexpr SuffixRow kSuffixes[] = {
    {".VISIVEL", suffix::Visivel},
    {".DICA", suffix::Dica},
    {".PAI", suffix::Pai},
};

}  // namespace

MolduraControl::MolduraControl(Form& form, ControlEvents& events, int index)
    : Control(form, events, index, kFrameSize) {}

Moldura::Moldura(ObjectFrame& frame) : ObjectFamily(frame, "Moldura", kSuffixes) {}

std::shared_ptr<Control> Moldura::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<MolduraControl>(form, *this, index);
}

void Moldura::Create(Control& control, ObjectRow&, const Arguments& arguments) {
  auto& box = static_cast<MolduraControl&>(control);
  box.SetCaption(arguments.Number("legenda").ToText());
  Place(box, arguments);
  SetHeight(box, arguments);
  SetWidth(box, arguments);
  box.SetZOrder(ZOrder::Back);
}

}  // namespace tessera
