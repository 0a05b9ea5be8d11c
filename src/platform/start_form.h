// The window form that one program asks of another when it starts it. It is handed on by its number in the
// environment variable TESSERA_JANELA, for a program that follows it; others open their windows as they
// please.
#pragma once

#include <string>

namespace tessera {

enum class StartForm {
  Hidden = 0,
  Normal = 1,
  Minimised = 2,
  Maximised = 3,
  NormalWithoutFocus = 4,
  MinimisedWithoutFocus = 6,
};

// The variable for a program to be started, "NAME=value".
std::string StartFormVariable(StartForm form);

// The form that this process was started with, which is normal where nobody asked for one. It leaves the
// environment, so that what this process starts by other ways is asked for nothing.
StartForm TakeStartForm();

}  // namespace tessera
