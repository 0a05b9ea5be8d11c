// The look of `EntraNum`: an entry whose number stands at the right.
#pragma once

#include "objects/moeda.h"
#include "qt/looks/entry_look.h"

namespace tessera {

class MoedaLook final : public EntryLook {
 public:
  MoedaLook(MoedaControl& control, LogicEntry& entry) : EntryLook(control, entry) {}

 protected:
  bool IsRightAligned() const override { return true; }
};

}  // namespace tessera
