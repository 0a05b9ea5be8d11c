// The modal boxes: messages, the input form of `EntraTexto`, the notice of a bare runtime.
#pragma once

#include "platform/host.h"

class QWidget;

namespace tessera {

// Each shows its box above `parent` (which may be null) and returns when it is closed.
BoxAnswer ShowMessageBox(const Box& box, QWidget* parent);
TextInputAnswer ShowEntraTxt(const TextInput& input, QWidget* parent);

// The notice `MsgExec`: this file is the runtime alone and holds no program.
inline constexpr const char* kRuntimeNotice =
    "Este arquivo é o executor do Tessera e não tem um programa dentro. Grave um programa com tessera build.";
void ShowMsgExec();

}  // namespace tessera
