// The window toolkit's application, without which it has no fonts. A host with windows has made it already.
#pragma once

namespace tessera::qtpaper {

// Makes one that needs no display and says nothing, unless there is one. It lives to the end of the process.
void EnsureApplication();

}  // namespace tessera::qtpaper
