#include "platform/failure.h"

#include <algorithm>
#include <array>

#include "text/literal.h"

namespace tessera {

namespace {

struct Description {
  long number;
  std::string_view text;
};

constexpr std::array kDescriptions = {
    Description{5, "Argumento ou chamada de procedimento inválida"_w},
    Description{6, "Estouro"_w},
    Description{7, "Memória insuficiente"_w},
    Description{9, "Subscrito fora do intervalo"_w},
    Description{11, "Divisão por zero"_w},
    Description{13, "Tipos incompatíveis"_w},
    Description{28, "Espaço insuficiente para pilha"_w},
    Description{52, "Nome ou número de arquivo inválido"_w},
    Description{53, "Arquivo não encontrado"_w},
    Description{54, "Modo de arquivo inválido"_w},
    Description{55, "O arquivo já está aberto"_w},
    Description{58, "O arquivo já existe"_w},
    Description{61, "Disco cheio"_w},
    Description{62, "Entrada depois do fim do arquivo"_w},
    Description{67, "Arquivos em excesso"_w},
    Description{70, "Permissão negada"_w},
    Description{75, "Erro de acesso a caminho/arquivo"_w},
    Description{76, "Caminho não encontrado"_w},
    Description{91, "Variável de objeto não definida"_w},
    Description{340, "Elemento de matriz de controles inexistente"_w},
    Description{481, "Figura inválida"_w},
};

}  // namespace

void Fail(long number) {
  const auto found = std::find_if(kDescriptions.begin(), kDescriptions.end(),
                                  [&](const Description& d) { return d.number == number; });
  throw RunFailure(number, found == kDescriptions.end() ? "Erro definido pelo aplicativo"_w : found->text);
}

void FailArgument() {
  Fail(5);
}
void FailOverflow() {
  Fail(6);
}
void FailMemory() {
  Fail(7);
}
void FailSubscript() {
  Fail(9);
}
void FailDivision() {
  Fail(11);
}
void FailType() {
  Fail(13);
}
void FailStack() {
  Fail(28);
}

}  // namespace tessera
