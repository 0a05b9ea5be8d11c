// Objects on the host with windows, as a person with real pointer and keys meets them.
#pragma once

#include <memory>

#include "windows/person_object.h"

namespace tessera::test {

// The object's widget, acted on by events of the window system; null for what has no widget.
std::unique_ptr<PersonObject> RealEventsOn(PersonObject& object);

}  // namespace tessera::test
