#include "language/builtins.h"

#include "language/types.h"

namespace tessera {

namespace {

constexpr Builtin kBuiltins[] = {
    {"Retorno", kTypeString, "O último resultado de um comando que responde por ela."},
    {"LinhaMouse", kTypeInteiro, "A linha do ponteiro do mouse."},
    {"ColunaMouse", kTypeInteiro, "A coluna do ponteiro do mouse."},
    {"CliqueMouse", kTypeString, "O último clique: CLIQUE ou DUPLOCLIQUE."},
    {"Azul", kTypeInteiro, "Uma cor."},
    {"Vermelho", kTypeInteiro, "Uma cor."},
    {"Verde", kTypeInteiro, "Uma cor."},
    {"Preto", kTypeInteiro, "Uma cor."},
    {"Branco", kTypeInteiro, "Uma cor."},
    {"Amarelo", kTypeInteiro, "Uma cor."},
    {"AzulClaro", kTypeInteiro, "Uma cor."},
    {"AzulEscuro", kTypeInteiro, "Uma cor."},
    {"VermelhoEscuro", kTypeInteiro, "Uma cor."},
    {"VerdeEscuro", kTypeInteiro, "Uma cor."},
    {"AmareloEscuro", kTypeInteiro, "Uma cor."},
    {"RetornoCampo", kTypeInteiro, "Reservada."},
    {"TotalFontes", kTypeInteiro, "O maior índice de Fontes."},
    {"PastaPrograma", kTypeString, "A pasta do programa."},
    {"PastaWindows", kTypeString, "A pasta de configuração do sistema."},
    {"AreaTrabalho", kTypeString, "A pasta da área de trabalho."},
    {"MenuProgramas", kTypeString, "A pasta do menu de programas."},
    {"ValorRetorno", kTypeInteiro, "A resposta de CaixaDialogo que é um número."},
    {"TestaBotao", kTypeString, "O nome do último botão clicado."},
    {"PastaTS", kTypeString, "A pasta do executor."},
    {"ValorObjeto", kTypeString, "O nome do objeto do último evento de uma grade."},
    {"ValorReferencia", kTypeString, "O endereço de quem se conectou."},
    {"PonteiroSQL", kTypeString, "OK, EOF ou BOF, como está a tabela SQL."},
    {"TamLin", kTypeInteiro, "A altura de uma linha, em pixels."},
    {"TamCol", kTypeInteiro, "A largura de uma coluna, em pixels."},
    {"GanhouFoco", kTypeString, "O nome do objeto que ganhou o foco."},
    {"PerdeuFoco", kTypeString, "O nome do objeto que perdeu o foco."},
    {"CorFundoPadrao", kTypeInteiro, "A cor do fundo das janelas."},
    {"IndiceRef", kTypeInteiro, "O índice do objeto do último evento."},
    {"LinhaComando", kTypeString, "Os argumentos com que o programa começou."},
    {"IniciaJanelaInvisivel", kTypeInteiro, "Se o programa a menciona, a janela começa escondida."},
    {"AlturaTela", kTypeInteiro, "A altura da tela, em linhas."},
    {"LarguraTela", kTypeInteiro, "A largura da tela, em colunas."},
};

}  // namespace

std::span<const Builtin> Builtins() {
  return kBuiltins;
}

}  // namespace tessera
