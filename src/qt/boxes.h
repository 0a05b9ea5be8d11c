// The modal boxes: messages, the input form of `EntraTexto`, the notice of a bare runtime.
#pragma once

#include <string>

#include "platform/host.h"

class QWidget;

namespace tessera {

// Each shows its box above `parent` (which may be null) and returns when it is closed.
BoxAnswer ShowMessageBox(const Box& box, QWidget* parent);
TextInputAnswer ShowEntraTxt(const TextInput& input, QWidget* parent);

// The notice `MsgExec` of a file that is the runtime alone and holds no program; the sentence is UTF-8.
void ShowMsgExec(const std::string& sentence);

}  // namespace tessera
