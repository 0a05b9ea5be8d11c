// What `tessera build` makes beside the executable: the list of what a program needs, and packages.
#include <gtest/gtest.h>

#include <filesystem>
#include <regex>

#include "support/process.h"
#include "tool/program_needs.h"
#include "tool/program_package.h"
#include "tool/terminal.h"

namespace tessera {
namespace {

namespace fs = std::filesystem;

std::vector<std::string> PackagesOf(const std::string& source) {
  PackedProgram program;
  program.EditorText[0] = source;
  std::vector<std::string> packages;
  for (const NeededPackage& needed : NeedsOf(program)) packages.emplace_back(needed.package);
  return packages;
}

bool Needs(const std::string& source, const std::string& package) {
  const std::vector<std::string> packages = PackagesOf(source);
  return std::count(packages.begin(), packages.end(), package) == 1;
}

TEST(ProgramNeeds, AreToldByTheWordsThatAProgramUses) {
  EXPECT_TRUE(Needs("Escreva 1", "libqt6widgets6"));
  for (const char* part : {"tessera-paper", "tessera-sql", "tessera-net"})
    EXPECT_FALSE(Needs("Escreva 1", part));
  EXPECT_TRUE(Needs("rel.Add 1\r\nIMP.Fim\r\nRel.Fim", "tessera-paper"));
  EXPECT_TRUE(Needs("Imp.Escreva 1", "tessera-paper"));
  EXPECT_TRUE(Needs("x = SQL(a.b.c)", "tessera-sql"));
  EXPECT_TRUE(Needs("ConectaFTP a, b, c", "tessera-net"));
  for (const char* source : {"Figura F, \"\", 1, 1", "Icone \"casa.ICO\"", "Rel.Fim", "WebCam \"PARE\""})
    EXPECT_TRUE(Needs(source, "tessera-picture")) << source;
  EXPECT_FALSE(Needs("Botao B, 1, 1, \"Ok\", \"FigOK\"", "tessera-picture")) << "the system's own";
  EXPECT_FALSE(Needs("' SQL a.Abre\r\nEscreva \"ConectaFTP\"", "tessera-sql"));
  EXPECT_FALSE(Needs("Escreva \"ConectaFTP\"", "tessera-net"));
}

#ifdef TESSERA_DESKTOP
std::string Runtime() {
  return fs::path(TESSERA_TOOL).parent_path() / "tessera-runtime";
}

// The library inside the runtime's file that shows windows.
std::string Windows(const TemporaryFolder& folder) {
  std::string file = folder / "janelas.so";
  EXPECT_EQ(RunProcess({.words = {"/usr/bin/objcopy", "--dump-section", ".tessera.windows=" + file, Runtime(),
                                  "/dev/null"}})
                .status,
            0);
  return file;
}

std::vector<std::string> LibrariesOf(const std::string& file) {
  const std::string said = RunProcess({.words = {"/usr/bin/readelf", "-d", file}}).out;
  const std::regex needed("\\(NEEDED\\).*\\[(.*)\\]");
  std::vector<std::string> libraries;
  for (std::sregex_iterator line(said.begin(), said.end(), needed), end; line != end; ++line)
    libraries.push_back((*line)[1]);
  return libraries;
}

// What the runtime's file and its windows name is what every program is said to need; without windows none of
// theirs is loaded.
TEST(ProgramNeeds, AreThoseOfTheRuntimesFile) {
  const TemporaryFolder folder;
  std::vector<std::string> libraries = LibrariesOf(Runtime());
  for (const std::string& library : libraries) EXPECT_FALSE(library.starts_with("libQt6")) << library;
  const std::vector<std::string> ofWindows = LibrariesOf(Windows(folder));
  EXPECT_EQ(std::count(ofWindows.begin(), ofWindows.end(), "libQt6Widgets.so.6"), 1);
  libraries.insert(libraries.end(), ofWindows.begin(), ofWindows.end());
  const std::vector<NeededPackage> always = NeedsOf({});
  for (const std::string& library : libraries) {
    if (library == "libm.so.6" || library.starts_with("libasan") || library.starts_with("libubsan")) continue;
    EXPECT_TRUE(std::any_of(always.begin(), always.end(), [&](const auto& row) {
      return row.library == library;
    })) << library;
  }
  for (const NeededPackage& row : always) {
    EXPECT_EQ(std::count(libraries.begin(), libraries.end(), row.library) > 0, true) << row.library;
    EXPECT_TRUE(IsOnThisMachine(row)) << row.library;
  }
  EXPECT_FALSE(IsOnThisMachine({"tessera-nada", "libtessera_nada.so", ""}));
}

// The newest version of the C library that the files' symbols ask for, as the system's reader of executables
// tells it.
std::string NewestGlibcOf(const std::vector<std::string>& files) {
  const std::regex version("Name: GLIBC_2\\.([0-9]+)");
  int newest = 0;
  for (const std::string& file : files) {
    const std::string told = RunProcess({.words = {"/usr/bin/readelf", "--version-info", file}}).out;
    for (std::sregex_iterator found(told.begin(), told.end(), version), end; found != end; ++found)
      newest = std::max(newest, std::stoi((*found)[1]));
  }
  EXPECT_GT(newest, 0);
  return "2." + std::to_string(newest);
}

class Package : public testing::Test {
 protected:
  ProcessResult Build(std::vector<std::string> words) {
    words.insert(words.begin(), {TESSERA_TOOL, "build", "Loja Ação.tsc"});
    return RunProcess({.words = std::move(words), .folder = folder_.path()});
  }
  std::string Unpacked(const std::string& name) { return folder_ / ("raiz/" + name); }

  TemporaryFolder folder_;
};

// The command of the package gives each user a folder of the program's own.
TEST_F(Package, KeepsEachUsersRecordsAndRenewsTheProgram) {
  folder_.Write("Loja Ação.tsc",
                "AbreArquivo a, \"conta.txt\", TEXTOLEITURA\nEscreva LeArquivo(\"a\")\nFechaArquivo a\n"
                "AbreArquivo a, \"conta.txt\", TEXTOGRAVACAO\nGravaArquivo a, \"minha\"\nFechaArquivo a\n");
  folder_.Write("conta.txt", "primeira\n");
  folder_.Write("fotos/uma.txt", "1");
  ASSERT_EQ(Build({"--deb", "--deb-version", "2.1", "--include", "conta.txt", "fotos/"}).status, kDone);
  const std::string deb = folder_ / "loja-acao_2.1_amd64.deb";
  ASSERT_TRUE(fs::exists(deb)) << "on another machine than this one's kind the name tells it";
  const std::string depends = RunProcess({.words = {"/usr/bin/dpkg-deb", "-f", deb, "Depends"}}).out;
  EXPECT_NE(depends.find("libc6 (>= " + NewestGlibcOf({Runtime(), Windows(folder_)}) + ")"),
            std::string::npos)
      << depends;
  EXPECT_NE(depends.find("libqt6widgets6"), std::string::npos) << depends;
  ASSERT_EQ(RunProcess({.words = {"/usr/bin/dpkg-deb", "-x", deb, folder_ / "raiz"}}).status, 0);
  EXPECT_TRUE(fs::exists(Unpacked("usr/lib/loja-acao/fotos/uma.txt")));
  EXPECT_NE(
      ReadBytes(Unpacked("usr/share/applications/loja-acao.desktop")).find("Exec=\"/usr/bin/loja-acao\""),
      std::string::npos);

  // The package lies elsewhere than a real one.
  std::string command = ReadBytes(Unpacked("usr/bin/loja-acao"));
  command.replace(command.find("/usr/lib"), 8, Unpacked("usr/lib"));
  WriteBytes(Unpacked("usr/bin/loja-acao"), command);
  const auto run = [&] {
    return RunProcess({.words = {"/bin/sh", Unpacked("usr/bin/loja-acao")},
                       .environment = {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORM",
                                       "XDG_DATA_HOME=" + (folder_ / "dados")}});
  };
  EXPECT_EQ(run().out, "primeira\n");
  EXPECT_EQ(run().out, "minha\n");
  WriteBytes(Unpacked("usr/lib/loja-acao/Loja Ação"), "#!/bin/sh\necho nova\n");
  EXPECT_EQ(run().out, "nova\n");
  EXPECT_EQ(ReadBytes(folder_ / "dados/loja-acao/conta.txt"), "minha\r\n");
}

TEST_F(Package, RefusesWhatCannotBeThere) {
  folder_.Write("Loja Ação.tsc", "Escreva 1\n");
  EXPECT_NE(Build({"--deb", "--include", "nada"}).err.find("nada: não encontrado"), std::string::npos);
  EXPECT_NE(Build({"--deb", "--deb-version", "a b"}).err.find("o pacote não pôde ser feito"),
            std::string::npos);
  EXPECT_EQ(Build({"--needs"}).out.find("tessera-sql"), std::string::npos);
  EXPECT_FALSE(fs::exists(folder_ / "Loja Ação"));
  folder_.Write("de/lado.txt", "x");
  EXPECT_EQ(Build({"--include", "de/lado.txt"}).status, kDone);
  EXPECT_EQ(ReadBytes(folder_ / "lado.txt"), "x");
  EXPECT_EQ(Build({"--include", "lado.txt"}).status, kDone) << "it lies there already";
}
#endif

TEST(PackageName, IsWhatDebianTakes) {
  EXPECT_EQ(PackageName("Loja Ação"), "loja-acao");
  EXPECT_EQ(PackageName("A_b.C--"), "a-b-c");
  EXPECT_EQ(PackageName("X"), "");
  EXPECT_EQ(PackageName("日本"), "");
}

}  // namespace
}  // namespace tessera
