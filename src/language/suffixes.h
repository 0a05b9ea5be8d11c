// The suffixes of objects, family by family: `name.SUFFIX = value`.
#pragma once

#include "language/word.h"

namespace tessera::language {

using enum Values;

// What many families have.
inline constexpr WordForm kRemove = {".Remove", None, "", "Remove o objeto.", Result::None, true};
inline constexpr WordForm kAtivo = {".ATIVO", Equals, "valor:SIM|NAO", "Liga ou desliga o objeto."};
inline constexpr WordForm kVisivel = {".VISIVEL", Equals, "valor:SIM|NAO", "Mostra ou esconde o objeto."};
inline constexpr WordForm kCorFundo = {".CORFUNDO", Equals, "cor:n", "Muda a cor do fundo."};
inline constexpr WordForm kCorLetra = {".CORLETRA", Equals, "cor:n", "Muda a cor da letra."};
inline constexpr WordForm kIndiceTab = {".INDICETAB", Equals, "ordem:n",
                                        "Muda o lugar do objeto na ordem da tecla Tab."};
inline constexpr WordForm kMoveFoco = {".MOVEFOCO", None, "", "Leva o foco ao objeto."};
inline constexpr WordForm kDica = {".DICA", Equals, "texto:v", "Muda o texto que aparece sob o ponteiro."};
inline constexpr WordForm kNomeFonte = {".NOMEFONTE", Equals, "fonte:t", "Muda a fonte."};
inline constexpr WordForm kTamFonte = {".TAMFONTE", Equals, "tamanho:n", "Muda o tamanho da fonte."};
inline constexpr WordForm kNegrito = {".NEGRITO", Equals, "valor:SIM|NAO", "Liga ou desliga o negrito."};
inline constexpr WordForm kItalico = {".ITALICO", Equals, "valor:SIM|NAO", "Liga ou desliga o itálico."};
inline constexpr WordForm kPai = {".PAI", Equals, "imagem:w", "Põe o objeto dentro de uma imagem."};
inline constexpr WordForm kTxt = {".TXT", Equals, "texto:v", "Muda o texto."};
inline constexpr WordForm kJustifica = {".JUSTIFICA", Equals, "lado:n",
                                        "Alinha o texto: 0 à esquerda, 1 à direita, 2 no centro."};
inline constexpr WordForm kAlturaLinhas = {".ALTURA", Equals, "linhas:n", "Muda a altura, em linhas."};
inline constexpr WordForm kLargura = {".LARGURA", Equals, "colunas:n", "Muda a largura, em colunas."};
inline constexpr WordForm kLinha = {".LINHA", Equals, "linha:n", "Muda a linha do objeto."};
inline constexpr WordForm kColuna = {".COLUNA", Equals, "coluna:n", "Muda a coluna do objeto."};

inline constexpr WordForm kBotaoSuffixes[] = {
    kAtivo,
    {".Visivel", Equals, "valor:SIM|NAO", "Mostra ou esconde o botão; escreva Visivel exatamente assim.",
     Result::None, true},
    kCorFundo,
    kCorLetra,
    kIndiceTab,
    kNomeFonte,
    kTamFonte,
    kNegrito,
    kItalico,
    kMoveFoco,
    kPai,
    {".DESCRICAO", Equals, "texto:v", "Muda o texto do botão."},
    {".FIGURA", Equals, "figura:p", "Muda a figura do botão."},
    kRemove,
};

inline constexpr WordForm kTextoSuffixes[] = {
    kAtivo,
    kVisivel,
    kCorFundo,
    kCorLetra,
    kIndiceTab,
    kMoveFoco,
    kDica,
    kNomeFonte,
    kTamFonte,
    kNegrito,
    kItalico,
    kPai,
    kTxt,
    kJustifica,
    kRemove,
    {".TEXTORTF", Equals, "[texto:t]", "Muda o texto com as suas letras; sem valor, dá esse texto.",
     Result::Text},
    {".SELECIONA", List, "[início:n], [tamanho:n], [fonte:t], [altura:n], [negrito:NEGRITO], [cor:n]",
     "Marca uma parte do texto e muda a sua letra; sem valores, marca tudo."},
    {".MAXIMO", Equals, "caracteres:n", "Limita o número de caracteres."},
    {".MARGEMDIREITA", Equals, "pixels:n", "Muda a margem direita."},
    {".POSCURSOR", Equals, "posição:n", "Leva o cursor a uma posição do texto."},
    {".NUMERICO", Equals, "valor:SIM|NAO", "Aceita só números."},
};

inline constexpr WordForm kRotuloSuffixes[] = {
    kAtivo,   kVisivel,   kCorFundo, kCorLetra, kNomeFonte, kTamFonte, kNegrito,
    kItalico, kIndiceTab, kTxt,      kDica,     kJustifica, kPai,      kRemove,
};

inline constexpr WordForm kMascaraSuffixes[] = {
    kAtivo,
    kVisivel,
    kCorFundo,
    kCorLetra,
    kIndiceTab,
    kMoveFoco,
    kDica,
    kNomeFonte,
    kTamFonte,
    kNegrito,
    kItalico,
    kPai,
    kAlturaLinhas,
    kTxt,
    kRemove,
    {".SELECIONA", None, "", "Marca o texto todo."},
    {".MASCARA", Equals, "máscara:t", "Muda a máscara: cada # é um lugar a preencher."},
};

inline constexpr WordForm kMoedaSuffixes[] = {
    kAtivo,
    kVisivel,
    kCorFundo,
    kCorLetra,
    kIndiceTab,
    kMoveFoco,
    kDica,
    kNomeFonte,
    kTamFonte,
    kNegrito,
    kItalico,
    kPai,
    kAlturaLinhas,
    kRemove,
    {".CASAS", Equals, "casas:n", "Muda o número de casas decimais."},
    {".VALOR", Equals, "valor:n", "Muda o valor."},
};

inline constexpr WordForm kCheckSuffixes[] = {
    kAtivo,     kVisivel, kCorFundo, kCorLetra, kMoveFoco,
    kIndiceTab, kDica,    kPai,      kRemove,   {".VALOR", Equals, "valor:n", "Marca (1) ou desmarca (0)."},
};

inline constexpr WordForm kComboSuffixes[] = {
    kAtivo,
    kVisivel,
    kCorFundo,
    kCorLetra,
    kIndiceTab,
    kMoveFoco,
    kDica,
    kNomeFonte,
    kTamFonte,
    kNegrito,
    kItalico,
    kPai,
    kTxt,
    kRemove,
    {".ADICIONA", List, "texto:v", "Põe mais um texto na lista."},
    {".LINHAS", Equals, "linhas:n", "Muda a altura da lista aberta, em linhas."},
};

inline constexpr WordForm kCalendarioSuffixes[] = {
    kAtivo,     kVisivel,
    kCorFundo,  kCorLetra,
    kIndiceTab, kMoveFoco,
    kDica,      kNomeFonte,
    kTamFonte,  kNegrito,
    kItalico,   kPai,
    kRemove,    {".TXT", Equals, "data:t", "Muda a data."},
};

inline constexpr WordForm kBarraRolagemSuffixes[] = {
    kAtivo,
    kVisivel,
    kIndiceTab,
    kPai,
    kRemove,
    {".MAXIMO", Equals, "valor:n", "Muda o maior valor."},
    {".PASSOMENOR", Equals, "passo:n", "Muda o passo das setas."},
    {".PASSOMAIOR", Equals, "passo:n", "Muda o passo de um clique na barra."},
    {".VALOR", Equals, "valor:n", "Muda o valor."},
};

inline constexpr WordForm kMolduraSuffixes[] = {kVisivel, kDica, kPai, kRemove};

inline constexpr WordForm kLinkSuffixes[] = {
    kAtivo,
    kVisivel,
    kCorFundo,
    kCorLetra,
    kNomeFonte,
    kTamFonte,
    kNegrito,
    kItalico,
    kTxt,
    kDica,
    kRemove,
    {".SUBLINHADO", Equals, "valor:SIM|NAO", "Liga ou desliga o sublinhado."},
    {".LINK", Equals, "endereço:t", "Muda o endereço que um clique abre."},
};

inline constexpr WordForm kBoxSuffixes[] = {
    kAtivo,
    kVisivel,
    kCorFundo,
    kCorLetra,
    kMoveFoco,
    kIndiceTab,
    kDica,
    kPai,
    kRemove,
    {".TITULO", List, "texto:v, [largura:n], [lado:ESQ|DIR|CENTRO], [tipo:NUMERICO]", "Põe mais uma coluna."},
    {".ATIVA", None, "", "Monta a grade com os títulos que recebeu."},
    {".ADD", List, "texto:v, [cor:n], [fundo:n], [fonte:v], [tamanho:n], [negrito:NEGRITO]",
     "Preenche a próxima célula da linha nova."},
    {".ADICIONA", List, "texto:v, [cor:n], [fundo:n], [fonte:v], [tamanho:n], [negrito:NEGRITO]",
     "O mesmo que .Add."},
    {".NEW", None, "", "Começa uma linha nova."},
    {".NOVALINHA", None, "", "O mesmo que .New."},
    {".FIM", None, "", "Mostra as linhas que foram postas."},
    {".CLS", None, "", "Tira todas as linhas."},
    {".SELECIONA", List, "linha:n", "Leva o cursor a uma linha."},
    {".TOTALITENS", None, "", "Dá o número de linhas.", Result::Number},
    {".COLBOXREF", None, "", "Dá a coluna do cursor.", Result::Number},
    {".LINBOXREF", None, "", "Dá a linha do cursor, contada na página.", Result::Number},
    {".LINLISTREF", None, "", "Dá a linha do cursor, contada do começo.", Result::Number},
    {".LININILIST", None, "", "Dá a primeira linha da página.", Result::Number},
    {".TOTALLINBOX", None, "", "Dá o número de linhas da página.", Result::Number},
    {".TOTALCOLBOX", None, "", "Dá o número de colunas.", Result::Number},
    {".LELISTAGEM", List, "[linha:n], [coluna:n]", "Dá o texto de uma célula.", Result::Text},
    {".ALTERACELULA", Equals, "valor:SIM|NAO", "Deixa ou não mudar as células com o teclado."},
};

inline constexpr WordForm kImagemSuffixes[] = {
    kCorFundo,
    kCorLetra,
    kNomeFonte,
    kTamFonte,
    kVisivel,
    kNegrito,
    kPai,
    kAlturaLinhas,
    kLargura,
    kLinha,
    kColuna,
    kRemove,
    {".IMG", Equals, "arquivo:p", "Pinta o arquivo na posição do cursor da imagem."},
    {".POSX", Equals, "pixels:n", "Leva o cursor da imagem a esta distância da esquerda."},
    {".POSY", Equals, "pixels:n", "Leva o cursor da imagem a esta distância do alto."},
    {".PONTO", List, "x:n, y:n, cor:n", "Pinta um ponto."},
    {".LEPONTO", List, "x:n, y:n", "Dá a cor de um ponto.", Result::Number},
    {".MOUSEX", None, "", "Dá o lugar do ponteiro, da esquerda.", Result::Number},
    {".MOUSEY", None, "", "Dá o lugar do ponteiro, do alto.", Result::Number},
    {".MOUSEBOTAO", None, "", "Dá o botão do mouse que foi apertado.", Result::Number},
    {".TAMANHOPONTO", Equals, "pixels:n", "Muda a largura da caneta."},
    {".MOUSEICONE", Equals, "arquivo:p", "Muda o desenho do ponteiro."},
    {".AJUSTAIMAGEM", None, "", "A imagem toma o tamanho da figura."},
    {".REDIMENSIONA", List, "altura:n, largura:n", "Pinta a figura de novo neste tamanho."},
    {".ESCREVA", List, "valor:v...", "Escreve na imagem."},
    {".CLS", None, "", "Limpa a imagem."},
    {".SALVAFIGURA", List, "arquivo:p, [qualidade:n]", "Grava a imagem em um arquivo .bmp ou .jpg."},
    {".LINHARETA", List, "x1:n, y1:n, x2:n, y2:n, cor:n", "Pinta uma linha."},
    {".USE", None, "", "Os comandos de desenho passam a pintar nesta imagem."},
    {".ORDEM", Equals, "lugar:FRENTE|ATRAS", "Põe a imagem na frente ou atrás dos outros objetos."},
    {".HWND", None, "", "Dá o número da janela da imagem.", Result::Number},
    {".HDC", None, "", "Dá o número do desenho da imagem.", Result::Number},
};

inline constexpr WordForm kFiguraSuffixes[] = {
    kAlturaLinhas,
    kLargura,
    kLinha,
    kColuna,
    kRemove,
    {".DESATIVA", None, "", "A figura deixa de ser desenhada."},
    {".POSICAO", Equals, "lugar:ATRAS|FRENTE", "Desenha a figura atrás ou na frente das outras."},
};

inline constexpr WordForm kGifAnimadoSuffixes[] = {
    kLinha,
    kColuna,
    kAlturaLinhas,
    kLargura,
    kVisivel,
    kRemove,
    {".PROXIMOFRAME", None, "", "Mostra o quadro seguinte."},
    {".FRAMEANTERIOR", None, "", "Mostra o quadro anterior."},
    {".FRAMENUMERO", Equals, "[quadro:n]",
     "Mostra um quadro; sem valor, dá o número do quadro, a partir de 1.", Result::Number},
    {".ATRAS", None, "", "Põe a animação atrás dos outros objetos."},
    {".FRENTE", None, "", "Põe a animação na frente dos outros objetos."},
    {".ANIMAR", None, "", "Começa a animação."},
    {".PARAR", None, "", "Para a animação."},
    {".LOOP", Equals, "vezes:n",
     "Repete a animação tantas vezes; 0 não repete, um número negativo repete sem fim."},
    {".IMAGEM", Equals, "arquivo:p", "Troca a animação."},
};

inline constexpr WordForm kSomSuffixes[] = {
    kAtivo,
    kVisivel,
    kIndiceTab,
    kLinha,
    kColuna,
    kAlturaLinhas,
    kLargura,
    kRemove,
    {".NOMEARQUIVO", Equals, "arquivo:p", "Diz o arquivo do próximo .Tocar."},
    {".TOCAR", None, "", "Toca do começo."},
    {".PARAR", None, "", "Para."},
    {".CONTINUAR", None, "", "Toca de onde parou."},
    {".PAUSAR", None, "", "Faz uma pausa."},
    {".FIM", None, "", "Fecha o arquivo."},
    {".LOOP", Equals, "valor:SIM|NAO", "Toca de novo no fim."},
};

inline constexpr WordForm kNovaJanelaSuffixes[] = {
    {".TAMANHOPONTO", Equals, "pixels:n", "Muda a largura da caneta."},
    {".RESOLUCAO", Equals, "linhas:n, colunas:n", "Divide a janela em linhas e colunas."},
    {".TAMANHO", Equals, "[linhas:n], [colunas:n]", "Muda o tamanho; MAXIMO é o da tela."},
    {".POSICAO", Equals, "[linha:n], [coluna:n]", "Muda o lugar; CENTRO é o meio da tela."},
    {".FUNDO", Equals, "fundo:v, [linha:n], [coluna:n]", "Muda o fundo: uma cor ou um arquivo."},
    {".BORDA", Equals, "valor:SIM|NAO", "Mostra ou tira a borda."},
    {".VISIVEL", Equals, "valor:SIM|NAO", "Mostra ou esconde a janela."},
    {".USE", None, "", "Os comandos passam a valer para esta janela."},
    {".ATIVA", List, "[modo:DINAMICA|ESTATICA]", "Abre a janela e executa a sua rotina."},
    {".DESATIVA", None, "", "Fecha a janela e libera o seu nome."},
};

}  // namespace tessera::language
