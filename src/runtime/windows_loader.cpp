#include "runtime/windows_loader.h"

#include <dlfcn.h>
#include <sys/mman.h>

#include <algorithm>
#include <cerrno>
#include <optional>
#include <vector>

#include "image/elf_file.h"
#include "image/seal.h"
#include "platform/child_process.h"
#include "platform/descriptor.h"
#include "platform/descriptor_io.h"
#include "platform/failure.h"
#include "platform/system_reason.h"
#include "runtime/display_names.h"
#include "runtime/windows_libraries.h"

namespace tessera {

namespace {

// The loader's last words, where it did not find a library: the library's name. Else empty.
std::string AbsentLibrary(const std::string& said) {
  const std::size_t end = said.find(": cannot open shared object file");
  return end == std::string::npos ? std::string() : said.substr(0, end);
}

void AddOnce(std::vector<std::string>& names, const std::string& name) {
  if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
}

// The loader tells the first library that it misses; a person wants to know of all at once.
std::vector<std::string> AbsentLibraries(const std::string& said) {
  std::vector<std::string> absent;
  for (const NeededPackage& row : kWindowsLibraries) {
    if (dlopen(std::string(row.library).c_str(), RTLD_LAZY | RTLD_LOCAL) == nullptr)
      AddOnce(absent, AbsentLibrary(dlerror()));
  }
  AddOnce(absent, AbsentLibrary(said));
  return absent;
}

std::string_view PackageOf(std::string_view library) {
  const auto* row = std::find_if(kWindowsLibraries.begin(), kWindowsLibraries.end(),
                                 [&](const NeededPackage& other) { return other.library == library; });
  return row == kWindowsLibraries.end() ? std::string_view() : row->package;
}

// What keeps the part from being loaded, by what the loader said: a library that is absent, or one that is
// not as new as it must be.
std::string Lacking(const std::string& said) {
  std::string names;
  std::string packages;
  for (const std::string& library : AbsentLibraries(said)) {
    names.append(names.empty() ? "" : ", ").append(library);
    const std::string_view package = PackageOf(library);
    if (!package.empty()) names.append(" (pacote ").append(package).append(")");
    if (!package.empty()) packages.append(" ").append(package);
  }
  if (packages.empty()) {
    for (const NeededPackage& row : kWindowsLibraries) packages.append(" ").append(row.package);
  }
  return (names.empty() ? "as janelas não puderam ser carregadas (" + said + ")"
                        : "as janelas precisam de bibliotecas que faltam nesta máquina: " + names) +
         "; instale com: sudo apt install" + packages;
}

// The library out of an unnamed file, which goes with its descriptor and its mappings. Null, and what the
// loader says of it.
void* Load(std::string_view library, std::string& said) {
  const Descriptor file(memfd_create("janelas", MFD_CLOEXEC));
  const int error = file.IsOpen() ? WriteAll(file.number(), library) : errno;
  if (error != 0) {
    said = SystemReason(error);
    return nullptr;
  }
  // Functions are bound at their first call, as those of an executable are. It is never closed.
  void* part = dlopen(("/proc/self/fd/" + std::to_string(file.number())).c_str(), RTLD_LAZY | RTLD_LOCAL);
  if (part == nullptr) said = dlerror();
  return part;
}

}  // namespace

LoadedWindows LoadWindows(std::string_view file, const WindowsCall& call) {
  if (!call.mayStandUnseen && NamedDisplays().empty())
    return {.found = {.problem = "nenhuma tela ao alcance"}, .lacking = {}};
  const std::optional<std::string_view> library = elf::FindSection(file, kWindowsSection);
  if (!library) return {.found = {}, .lacking = "este arquivo perdeu as suas janelas; instale-o de novo"};
  std::string said;
  void* part = Load(*library, said);
  if (part == nullptr) return {.found = {}, .lacking = Lacking(said)};
  LoadedWindows loaded;
  reinterpret_cast<WindowsEntry>(dlsym(part, kWindowsEntry))(call, loaded.found);
  return loaded;
}

void ShowByDesktop(const std::string& message) {
  const std::vector<std::vector<std::string>> programs = {
      {"zenity", "--error", "--no-markup", "--title=Tessera", "--text=" + message},
      {"kdialog", "--title", "Tessera", "--error", message},
      {"xmessage", "-center", message}};
  for (const std::vector<std::string>& program : programs) {
    try {
      StartProgram(program, {});
      return;
    } catch (const RunFailure&) {
      // Not there: the next one.
    }
  }
}

}  // namespace tessera
