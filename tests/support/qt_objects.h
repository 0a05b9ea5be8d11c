// Objects on the host with windows, as a person with real pointer and keys meets them.
#pragma once

#include <memory>
#include <string_view>

#include "windows/person_object.h"

class QWindow;

namespace tessera::test {

// The object's widget, acted on by events of the window system; null for what has no widget.
std::unique_ptr<PersonObject> RealEventsOn(PersonObject& object);

// Types a program's text where the focus is.
void TypeCharacters(QWindow* window, std::string_view text);

}  // namespace tessera::test
