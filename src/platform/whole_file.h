// Small files that are read and written whole, so that another process sees the old content or the new one
// and never a part.
#pragma once

#include <string>
#include <string_view>

namespace tessera {

// The bytes of a file; empty for one that is missing or can't be read.
std::string ReadWholeFile(const std::string& path);

// Puts a file with these bytes in the place of the old one, and makes the folders above it. False, with the
// old file as it was, where the disk refuses.
bool ReplaceFile(const std::string& path, std::string_view bytes);

}  // namespace tessera
