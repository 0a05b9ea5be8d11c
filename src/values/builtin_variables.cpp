#include "values/builtin_variables.h"

#include <array>

#include "language/builtins.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

struct ColourRow {
  std::string_view name;
  std::int32_t red, green, blue;
};

constexpr std::array kColours = {
    ColourRow{"Azul", 0, 0, 255},
    ColourRow{"Vermelho", 255, 0, 0},
    ColourRow{"Verde", 0, 255, 0},
    ColourRow{"Preto", 0, 0, 0},
    ColourRow{"Branco", 255, 255, 255},
    ColourRow{"Amarelo", 255, 255, 0},
    ColourRow{"AzulClaro", 0, 255, 255},
    ColourRow{"AzulEscuro", 0, 0, 110},
    ColourRow{"VermelhoEscuro", 110, 0, 0},
    ColourRow{"VerdeEscuro", 0, 110, 0},
    ColourRow{"AmareloEscuro", 110, 110, 0},
};

constexpr std::int32_t kButtonFace = -2147483633;  // the system's colour 0x8000000F

std::string WithoutFinalSeparator(std::string_view folder) {
  return std::string(Left(folder, folder.empty() ? 0 : folder.size() - 1));
}

}  // namespace

void DeclareBuiltinVariables(Run& run, const BuiltinValues& values) {
  for (const Builtin& builtin : Builtins()) run.variables.VarCreateScalar(builtin.name, builtin.type);
  const auto write = [&](std::string_view name, const Value& value) {
    run.variables.VarWrite(name, value, true);
  };
  for (const ColourRow& colour : kColours) {
    write(colour.name, NumberText(colour.red + 256 * colour.green + 65536 * colour.blue));
  }
  write("CorFundoPadrao", kButtonFace);
  run.ProgramFolderText = Trim(run.ProgramFolderText);
  write("PastaPrograma", WithoutFinalSeparator(run.ProgramFolderText));
  write("PastaTS", WithoutFinalSeparator(run.RuntimeFolderText));
  write("LinhaComando", values.commandLine);
  write("PastaWindows", values.folders.configuration);
  write("AreaTrabalho", values.folders.desktop);
  write("MenuProgramas", values.folders.applications);
  write("TotalFontes", NumberText(values.fontCount - 1));
}

}  // namespace tessera
