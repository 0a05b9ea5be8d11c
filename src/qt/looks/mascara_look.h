// The look of `TxtMask`: an entry.
#pragma once

#include "objects/mascara.h"
#include "qt/looks/entry_look.h"

namespace tessera {

class MascaraLook final : public EntryLook {
 public:
  MascaraLook(MascaraControl& control, LogicEntry& entry) : EntryLook(control, entry) {}
};

}  // namespace tessera
