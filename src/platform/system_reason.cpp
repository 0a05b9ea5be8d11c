#include "platform/system_reason.h"

#include <algorithm>
#include <array>
#include <cerrno>

namespace tessera {

namespace {

struct Reason {
  int error;
  const char* text;
};

constexpr std::array kReasons = {
    Reason{ENOENT, "o caminho não existe"},
    Reason{ENOTDIR, "uma parte do caminho não é uma pasta"},
    Reason{EISDIR, "é uma pasta"},
    Reason{EEXIST, "já existe"},
    Reason{EACCES, "sem permissão"},
    Reason{EPERM, "sem permissão"},
    Reason{EROFS, "o disco só pode ser lido"},
    Reason{ENOSPC, "o disco está cheio"},
    Reason{ETXTBSY, "o arquivo está em execução"},
    Reason{EDQUOT, "a parte do disco que lhe cabe está cheia"},
    Reason{EFBIG, "o arquivo ficaria grande demais"},
    Reason{EIO, "o disco não respondeu"},
    Reason{ELOOP, "os atalhos não levam a nenhum arquivo"},
    Reason{ENAMETOOLONG, "o nome é longo demais"},
    Reason{ENOEXEC, "não é um executável desta máquina"},
    Reason{ENOMEM, "não há memória bastante"},
    Reason{EADDRINUSE, "já está em uso"},
    Reason{EMFILE, "há arquivos abertos demais"},
};

}  // namespace

std::string SystemReason(int error) {
  const auto found = std::find_if(kReasons.begin(), kReasons.end(),
                                  [&](const Reason& reason) { return reason.error == error; });
  return found == kReasons.end() ? "erro " + std::to_string(error) + " do sistema" : found->text;
}

}  // namespace tessera
