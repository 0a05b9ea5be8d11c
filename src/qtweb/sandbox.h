// The cage in which the processes of pages run.
#pragma once

namespace tessera::qtweb {

// Before the first view: says to the library what the system allows. The cage is left out only where the
// process would end for want of it.
void PrepareSandbox();

}  // namespace tessera::qtweb
