// `Box`, the grid: the control `NovoBox` in the array `GrdLstB`.
#pragma once

#include <memory>
#include <string_view>

#include "objects/box_control.h"
#include "objects/list_events.h"
#include "objects/object_family.h"

namespace tessera {

class BoxFamily final : public ObjectFamily {
 public:
  explicit BoxFamily(ObjectFrame& frame);

  // The array variable `name.Txt(n)` with an element for each title, and the page.
  void Ativa(const ObjectRow& row, BoxControl& box);

  void OnClick(Control& control) override;
  void OnDoubleClick(Control& control) override;
  void OnChange(Control& control) override;

 protected:
  std::shared_ptr<Control> NewControl(Form& form, std::string_view array, int index) override;
  void Create(Control& control, ObjectRow& row, const Arguments& arguments) override;
  // The variable comes with `.ATIVA`.
  void CreateCompanions(const ObjectRow&) override {}

 private:
  ListEvents events_;
};

}  // namespace tessera
