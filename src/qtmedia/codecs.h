// Which of the packages that play files are installed. The toolkit stands on GStreamer, and ends the process
// where its base plug-ins are missing.
#pragma once

#include <string>

namespace tessera::qtmedia {

// The package that nothing can be played without; empty where all of them are there.
std::string MissingPackage();

// The package that brings the codecs most files need, where it is missing; empty where it is there.
std::string MissingCodecs();

}  // namespace tessera::qtmedia
