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

Moldura::Moldura(ObjectFrame& frame) : ObjectFamily(frame, "SpFrame", {}, kSuffixes) {}

std::shared_ptr<Control> Moldura::NewControl(Form& form, std::string_view, int index) {
  return std::make_shared<MolduraControl>(form, *this, index);
}

void Moldura::Create(Control& control, ObjectRow&, const Settings& arguments) {
  auto& box = static_cast<MolduraControl&>(control);
  box.SetCaption(arguments.Number(1).ToText());
  Place(box, arguments, 2);
  SetHeight(box, arguments, 4);
  SetWidth(box, arguments, 5);
}

}  // namespace tessera
