// Tells whether windows can be shown, before anything tries: the window toolkit ends the process where no
// display answers.
#pragma once

namespace tessera {

bool DisplayIsReachable();

}  // namespace tessera
