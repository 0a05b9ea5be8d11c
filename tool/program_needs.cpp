#include "tool/program_needs.h"

#include <dlfcn.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <set>
#include <string>
#include <string_view>

#include "language/statements.h"
#include "language/words.h"
#include "runtime/own_folder.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// What every program stands on, besides the libraries of its windows.
constexpr std::array kAlways = {
    NeededPackage{"libffi8", "libffi.so.8", "funções de bibliotecas"},
    NeededPackage{"libstdc++6", "libstdc++.so.6", "linguagem C++"},
    NeededPackage{"libgcc-s1", "libgcc_s.so.1", "linguagem C++"},
    NeededPackage{"libc6", "libc.so.6", "sistema"},
};

// What the words of a topic load when they are first used.
struct PartRow {
  Topic topic;
  NeededPackage needed;
};
constexpr NeededPackage kPictures = {"tessera-picture", "libtessera_picture.so", "arquivos de figuras"};
constexpr std::array kParts = {
    PartRow{Topic::Pictures, kPictures},
    PartRow{Topic::Reports, {"tessera-paper", "libtessera_paper.so", "relatórios e impressão"}},
    PartRow{Topic::Reports, kPictures},
    PartRow{Topic::Printing, {"tessera-paper", "libtessera_paper.so", "relatórios e impressão"}},
    PartRow{Topic::Sql, {"tessera-sql", "libtessera_sql.so", "bancos de dados SQL"}},
    PartRow{Topic::Network, {"tessera-net", "libtessera_net.so", "servidores FTP"}},
    PartRow{Topic::Media, {"tessera-media", "libtessera_media.so", "som, vídeo e câmera"}},
    PartRow{Topic::Media, kPictures},
    PartRow{Topic::Web, {"tessera-web", "libtessera_web.so", "páginas da internet"}},
};

// Whether a literal speaks of files of pictures, whatever word takes it.
bool NamesPicture(std::string_view literal) {
  constexpr std::array<std::string_view, 7> kExtensions = {".BMP", ".CUR",  ".GIF", ".ICO",
                                                           ".JPG", ".JPEG", ".PNG"};
  const std::string upper = Upper(literal);
  return std::any_of(kExtensions.begin(), kExtensions.end(),
                     [&](std::string_view extension) { return Contains(upper, extension); });
}

std::set<Topic> TopicsOf(const EditorTexts& editors) {
  std::set<Topic> topics;
  ScanState state;
  for (const std::string& text : editors) {
    const ScannedText scanned = ScanStatements(text, state);
    for (const Piece& piece : scanned.pieces) {
      const std::string_view written = std::string_view(text).substr(piece.begin, piece.size);
      if (piece.kind == PieceKind::Literal && NamesPicture(written)) topics.insert(Topic::Pictures);
      const Word* word = piece.kind == PieceKind::Word ? FindWord(written) : nullptr;
      if (word != nullptr) topics.insert(word->topic);
    }
  }
  return topics;
}

}  // namespace

std::vector<NeededPackage> NeedsOf(const PackedProgram& program) {
  std::vector<NeededPackage> needs(kWindowsLibraries.begin(), kWindowsLibraries.end());
  needs.insert(needs.end(), kAlways.begin(), kAlways.end());
  const std::set<Topic> topics = TopicsOf(program.EditorText);
  for (const PartRow& part : kParts) {
    const bool isThere = std::any_of(needs.begin(), needs.end(), [&](const NeededPackage& other) {
      return other.package == part.needed.package;
    });
    if (topics.contains(part.topic) && !isThere) needs.push_back(part.needed);
  }
  return needs;
}

bool IsOnThisMachine(const NeededPackage& needed) {
  const std::string library(needed.library);
  if (void* loaded = dlopen(library.c_str(), RTLD_LAZY | RTLD_LOCAL)) {
    dlclose(loaded);
    return true;
  }
  const std::vector<std::filesystem::path> folders = PartFolders();
  return std::any_of(folders.begin(), folders.end(), [&](const std::filesystem::path& folder) {
    std::error_code error;
    return std::filesystem::exists(folder / library, error);
  });
}

}  // namespace tessera
