#include "tool/program_package.h"

#include <pwd.h>
#include <sys/utsname.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdlib>
#include <fstream>

#include "platform/desktop_entry.h"
#include "platform/system_reason.h"
#include "tool/child.h"
#include "tool/workshop.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kSystemLibrary = "libc6";

// Letters with accents, and those that stand for them in a package's name.
constexpr std::array<std::pair<std::string_view, char>, 26> kPlainLetters = {{
    {"á", 'a'}, {"à", 'a'}, {"â", 'a'}, {"ã", 'a'}, {"ä", 'a'}, {"Á", 'a'}, {"À", 'a'},
    {"Â", 'a'}, {"Ã", 'a'}, {"é", 'e'}, {"ê", 'e'}, {"É", 'e'}, {"Ê", 'e'}, {"í", 'i'},
    {"Í", 'i'}, {"ó", 'o'}, {"ô", 'o'}, {"õ", 'o'}, {"Ó", 'o'}, {"Ô", 'o'}, {"Õ", 'o'},
    {"ú", 'u'}, {"ü", 'u'}, {"Ú", 'u'}, {"ç", 'c'}, {"Ç", 'c'},
}};

std::string Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? std::string() : value;
}

// Who answers for the package: the variables of Debian's own tools, else the user.
std::string Maintainer() {
  const passwd* user = getpwuid(getuid());
  const std::string login = user == nullptr ? "usuario" : user->pw_name;
  std::string name = Environment("DEBFULLNAME");
  if (name.empty() && user != nullptr)
    name = std::string(user->pw_gecos).substr(0, std::string(user->pw_gecos).find(','));
  if (name.empty()) name = login;
  const std::string address = Environment("DEBEMAIL");
  return name + " <" + (address.empty() ? login + "@localhost" : address) + ">";
}

std::string Architecture() {
  utsname system{};
  uname(&system);
  const std::string machine = system.machine;
  return machine == "x86_64" ? "amd64" : machine == "aarch64" ? "arm64" : machine;
}

// A text as one word of a shell's line.
std::string ShellWord(std::string_view text) {
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? "'\\''" : std::string(1, c);
  return word + "'";
}

std::string Command(const std::string& name, const std::string& stem) {
  return "#!/bin/sh\n"
         "# O programa grava ao lado de si mesmo: cada usuário tem dele uma pasta sua.\n"
         "set -e\n"
         "from=/usr/lib/" +
         name + "\nto=\"${XDG_DATA_HOME:-$HOME/.local/share}/" + name + "\"\nprogram=" + ShellWord(stem) +
         "\nmkdir -p \"$to\"\n"
         "if ! cmp -s \"$from/$program\" \"$to/$program\"; then\n"
         "  cp \"$from/$program\" \"$to/.novo.$$\"\n"
         "  mv -f \"$to/.novo.$$\" \"$to/$program\"\n"
         "fi\n"
         "cp -rn \"$from/.\" \"$to/\"\n"
         "exec \"$to/$program\" \"$@\"\n";
}

// The newest version of the C library whose parts the file asks for, as "2.36"; empty where it asks for none.
std::string NewestGlibc(std::string_view file) {
  constexpr std::string_view kMark = "GLIBC_2.";
  int newest = 0;
  for (std::size_t at = file.find(kMark); at != std::string_view::npos; at = file.find(kMark, at)) {
    at += kMark.size();
    int minor = 0;
    std::from_chars(file.data() + at, file.data() + file.size(), minor);
    newest = std::max(newest, minor);
  }
  return newest == 0 ? std::string() : "2." + std::to_string(newest);
}

std::string Control(const ProgramPackage& package, const std::string& name, std::uintmax_t bytes) {
  std::string depends;
  const std::string glibc = NewestGlibc(package.file);
  for (const NeededPackage& needed : package.needs) {
    depends.append(depends.empty() ? "" : ", ").append(needed.package);
    if (needed.package == kSystemLibrary && !glibc.empty()) depends += " (>= " + glibc + ")";
  }
  return "Package: " + name + "\nVersion: " + package.version + "\nArchitecture: " + Architecture() +
         "\nMaintainer: " + Maintainer() + "\nInstalled-Size: " + std::to_string((bytes + 1023) / 1024) +
         "\nDepends: " + depends + "\nSection: misc\nPriority: optional\nDescription: " + package.stem +
         "\n Programa feito com Tessera.\n";
}

bool Write(const fs::path& file, std::string_view bytes, bool isProgram = false) {
  std::error_code error;
  fs::create_directories(file.parent_path(), error);
  std::ofstream stream(file, std::ios::binary);
  stream << bytes;
  stream.close();
  fs::permissions(file, static_cast<fs::perms>(isProgram ? 0755 : 0644), error);
  return !stream.fail() && !error;
}

std::uintmax_t BytesBelow(const fs::path& folder) {
  std::uintmax_t bytes = 0;
  std::error_code error;
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, error))
    if (entry.is_regular_file(error)) bytes += entry.file_size(error);
  return bytes;
}

// Whoever installs the package may read it, whatever the files' owner keeps to himself.
void OpenToAll(const fs::path& folder) {
  std::error_code error;
  fs::permissions(folder, static_cast<fs::perms>(0755), error);
  for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder, error)) {
    const bool runs = entry.is_directory(error) ||
                      (entry.status(error).permissions() & fs::perms::owner_exec) != fs::perms::none;
    if (!entry.is_symlink(error)) fs::permissions(entry, static_cast<fs::perms>(runs ? 0755 : 0644), error);
  }
}

}  // namespace

std::string PackageName(const std::string& stem) {
  std::string name;
  for (std::size_t i = 0; i < stem.size();) {
    const std::string_view rest = std::string_view(stem).substr(i);
    const auto accented = std::find_if(kPlainLetters.begin(), kPlainLetters.end(),
                                       [&](const auto& row) { return rest.starts_with(row.first); });
    if (accented != kPlainLetters.end()) {
      name += accented->second;
      i += accented->first.size();
      continue;
    }
    const auto c = static_cast<unsigned char>(stem[i++]);
    if (std::isalnum(c) != 0) name += static_cast<char>(std::tolower(c));
    if ((c == ' ' || c == '-' || c == '_' || c == '.') && !name.empty() && name.back() != '-') name += '-';
  }
  while (name.ends_with('-')) name.pop_back();
  return name.size() < 2 ? std::string() : name;
}

std::string CopyBeside(const std::vector<fs::path>& included, const fs::path& folder) {
  for (const fs::path& path : included) {
    std::error_code error;
    const fs::path given = path.has_filename() ? path : path.parent_path();
    if (fs::equivalent(given, folder / given.filename(), error)) continue;
    fs::copy(given, folder / given.filename(),
             fs::copy_options::recursive | fs::copy_options::overwrite_existing, error);
    if (error) return path.string() + ": não foi possível copiar: " + SystemReason(error.value());
  }
  return {};
}

std::variant<fs::path, std::string> WritePackage(const ProgramPackage& package, const fs::path& folder) {
  const std::string name = PackageName(package.stem);
  if (name.empty())
    return package.stem + ": o nome não serve a um pacote; ele precisa de duas letras ou algarismos";
  const Workshop workshop;
  const fs::path root = workshop / "pacote";
  const fs::path share = root / "usr/share";
  const fs::path home = root / "usr/lib" / name;
  const std::string icon = package.icon == nullptr ? std::string() : name + package.icon->extension;
  const DesktopEntry entry{.name = package.stem,
                           .command = {"/usr/bin/" + name},
                           .folder = {},
                           .icon = icon.empty() ? icon : "/usr/share/pixmaps/" + icon,
                           .isForMenu = true};
  const bool isWritten = workshop.IsThere() && Write(home / package.stem, package.file, true) &&
                         Write(root / "usr/bin" / name, Command(name, package.stem), true) &&
                         Write(share / "applications" / (name + ".desktop"), DesktopEntryText(entry)) &&
                         (icon.empty() || Write(share / "pixmaps" / icon, package.icon->bytes)) &&
                         Write(share / "doc" / name / "copyright",
                               package.stem + "\n\nDireitos de quem o escreveu: " + Maintainer() + "\n");
  if (!isWritten) return std::string("a pasta dos arquivos temporários não pode ser escrita");
  if (std::string problem = CopyBeside(package.included, home); !problem.empty()) return problem;
  OpenToAll(root);
  const std::string control = Control(package, name, BytesBelow(root));
  if (!Write(root / "DEBIAN/control", control))
    return std::string("a pasta dos arquivos temporários não pode ser escrita");

  fs::path file = folder / (name + "_" + package.version + "_" + Architecture() + ".deb");
  const pid_t process = StartChild({.words = {"dpkg-deb", "--build", "--root-owner-group", "-Zxz",
                                              root.string(), (workshop / "pronto.deb").string()},
                                    .output = workshop / "dito"});
  if (process < 0) return std::string("o pacote não pôde ser feito: instale o pacote dpkg");
  constexpr std::chrono::minutes kPatience{10};
  std::error_code error;
  if (AwaitChild(process, kPatience) != 0) {
    std::ifstream said(workshop / "dito");
    return "o pacote não pôde ser feito: " + std::string(std::istreambuf_iterator<char>(said), {});
  }
  fs::copy_file(workshop / "pronto.deb", file, fs::copy_options::overwrite_existing, error);
  if (error) return file.string() + ": não foi possível gravar: " + SystemReason(error.value());
  return file;
}

}  // namespace tessera
