#include "tool/program_looks.h"

#include <cstdlib>
#include <string_view>

#include "platform/desktop_entry.h"
#include "platform/system_reason.h"
#include "platform/user_folders.h"
#include "platform/whole_file.h"
#include "runtime/own_folder.h"
#include "text/code_page.h"
#include "windows/icon_picture.h"
#include "windows/picture_codec.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

// A drawing tells so in its first lines.
bool IsSvg(std::string_view bytes) {
  constexpr std::size_t kFirstLines = 4096;
  return bytes.substr(0, kFirstLines).find("<svg") != std::string_view::npos;
}

// The largest picture of an icon as a PNG file; what can't be read stays as it is.
std::string PngOfIcon(PictureCodec& codec, std::string_view icon) {
  const std::string_view image = LargestIconImage(icon);
  const PictureRef bitmap = image.starts_with(kPngStart) ? nullptr : DecodeIconBitmap(image);
  return bitmap ? codec.EncodePng(bitmap->raster) : std::string(image);
}

// Where the desktop's files lie, and how they are called there.
// OPEN: an icon alone makes an entry beside the program, to be put anywhere by hand; the menu's entry and its
// icon go into the user's folders, by full paths, so that no theme need be told.
struct Places {
  fs::path entry;
  fs::path icon;
};

Places PlacesOf(const ProgramLooks& looks) {
  const std::string stem = looks.program.filename().string();
  const std::string extension = looks.icon == nullptr ? std::string() : looks.icon->extension;
  if (!looks.inMenu) {
    const fs::path folder = looks.program.parent_path();
    return {.entry = folder / (stem + ".desktop"), .icon = folder / (stem + ".icone" + extension)};
  }
  const fs::path data = UserDataFolder(std::getenv);
  return {.entry = data / "applications" / ("tessera-" + stem + ".desktop"),
          .icon = data / "icons" / ("tessera-" + stem + extension)};
}

}  // namespace

std::variant<ProgramIcon, std::string> ReadProgramIcon(const std::string& path) {
  auto read = ReadWholeFile(path);
  if (const SystemError* error = std::get_if<SystemError>(&read)) {
    return path + ": o ícone não pode ser lido: " + SystemReason(error->number);
  }
  std::string bytes = std::get<std::string>(std::move(read));
  if (IsIcon(bytes) || bytes.starts_with(kPngStart)) {
    const FoundCodec found = CodecOfPart(PartFolders())();
    if (found.codec == nullptr) return path + ": o ícone não pode ser lido: " + ToUtf8(found.problem);
    if (IsIcon(bytes)) bytes = PngOfIcon(*found.codec, bytes);
    if (bytes.starts_with(kPngStart) && found.codec->Decode(bytes))
      return ProgramIcon{std::move(bytes), ".png"};
  }
  if (IsSvg(bytes)) return ProgramIcon{std::move(bytes), ".svg"};
  return path + ": o ícone não é uma figura PNG, ICO ou SVG que se possa ler";
}

std::string LooksProblem(const ProgramLooks& looks) {
  const Places places = PlacesOf(looks);
  const auto there = ReadWholeFile(places.entry.string());
  const std::string* text = std::get_if<std::string>(&there);
  if (text == nullptr || text->find(looks.program.filename().string()) != std::string::npos) return {};
  return places.entry.string() + ": já existe e é de outro programa; mude o nome com -o, ou apague-o";
}

std::variant<std::vector<std::string>, std::string> WriteLooks(const ProgramLooks& looks) {
  const Places places = PlacesOf(looks);
  std::vector<std::string> written;
  std::string problem;
  const auto write = [&](const fs::path& place, std::string_view bytes) {
    MakeFoldersFor(place.string());
    if (const int error = ReplaceFile(place.string(), bytes, NewFilePermissions())) {
      problem = place.string() + ": não foi possível gravar: " + SystemReason(error);
    }
    written.push_back(place.string());
    return problem.empty();
  };
  if (looks.icon != nullptr && !write(places.icon, looks.icon->bytes)) return problem;
  const DesktopEntry entry{.name = looks.program.filename().string(),
                           .command = {looks.program.string()},
                           .folder = looks.program.parent_path().string(),
                           .icon = looks.icon == nullptr ? std::string() : places.icon.string(),
                           .isForMenu = true};
  if (!write(places.entry, DesktopEntryText(entry))) return problem;
  return written;
}

}  // namespace tessera
