// Painting while a program sleeps.
#pragma once

namespace tessera {

// Runs what is pending save what a person does, which stays for the next full dispatch.
void DispatchAllButInput();

}  // namespace tessera
