// The end of the process, on its way out: thrown where the main window unloads, so that nothing of the
// program's text runs behind it. It is no failure; the guards for failures let it pass, and only the
// program's first call takes it. A host that met it below an event loop hands it on when that loop is left.
#pragma once

namespace tessera {

struct ProcessEnd {
  int status = 0;  // of the process, where the host has a reason of its own
};

}  // namespace tessera
