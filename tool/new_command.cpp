// `tessera new`: a folder with a first program that runs.
#include <filesystem>
#include <iostream>
#include <string>

#include "platform/system_reason.h"
#include "platform/whole_file.h"
#include "tool/subcommands.h"
#include "tool/terminal.h"

namespace tessera {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFirstProgram = R"(' Um primeiro programa: pergunta o nome e conta até cinco.
Var nome String, n Inteiro

nome = EntraTexto("Qual é o seu nome?")
Se nome = "CANCELADO"
  nome = "visitante"
FimSe

Escreva "Olá, ", nome, "!"

n = 1
Enquanto n <= 5
  Escreva "Linha ", n
  n++
Repita
)";

}  // namespace

int NewSubcommand(const std::string& folder) {
  std::error_code error;
  const fs::path absolute = fs::absolute(folder, error).lexically_normal();
  const fs::path place = absolute.has_filename() ? absolute : absolute.parent_path();
  if (fs::exists(place, error)) {
    PrintError(folder + ": já existe; escolha outro nome");
    return kWrongCall;
  }
  if (!fs::create_directory(place, error)) {
    PrintError(folder + ": não foi possível criar a pasta: " + SystemReason(error.value()));
    return kWrongCall;
  }
  const fs::path file = place / (place.filename().string() + ".tsc");
  if (const int reason = CreateFile(file.string(), kFirstProgram)) {
    PrintError(file.string() + ": não foi possível gravar o programa: " + SystemReason(reason));
    return kWrongCall;
  }
  std::cout << "Programa criado: " << file.string() << "\n"
            << "Para executar: tessera run " << folder << '\n';
  return kDone;
}

}  // namespace tessera
