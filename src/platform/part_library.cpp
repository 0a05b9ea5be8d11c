#include "platform/part_library.h"

#include <dlfcn.h>

#include "text/code_page.h"
#include "text/literal.h"

namespace tessera {

PartEntry LoadPart(std::span<const std::filesystem::path> folders, std::string_view name, const char* entry,
                   std::string_view package) {
  const std::string file = std::string("libtessera_").append(name).append(".so");
  for (const std::filesystem::path& folder : folders) {
    std::error_code unreadable;
    if (!std::filesystem::exists(folder / file, unreadable)) continue;
    // Local, so that a part brings no name into the rest; never closed, since what it made may live to the
    // end.
    if (void* part = dlopen((folder / file).c_str(), RTLD_NOW | RTLD_LOCAL)) return {dlsym(part, entry), {}};
    return {nullptr, std::string("Uma biblioteca não pôde ser carregada ("_w)
                         .append(FromUtf8Lossy(dlerror()))
                         .append("). Instale o pacote ")
                         .append(package)};
  }
  return {nullptr, std::string("Instale o pacote tessera-").append(name)};
}

}  // namespace tessera
