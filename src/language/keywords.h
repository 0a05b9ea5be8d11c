// The keywords of words that take a word first, or words with values: `Janela TAMANHO = 20, 50`.
#pragma once

#include "language/word.h"

namespace tessera::language {

using enum Values;

inline constexpr WordForm kJanelaKeywords[] = {
    {"TAMANHOPONTO", Equals, "pixels:n", "Muda a largura da caneta."},
    {"FIXA", Equals, "valor:SIM|NAO", "Tira ou põe os botões de minimizar e maximizar."},
    {"BOX", Equals, "valor:SIM|NAO", "Põe ou tira o menu da janela."},
    {"ATIVAENTER", Equals, "valor:SIM|NAO", "Faz a tecla Enter passar ao próximo objeto."},
    {"ATIVACURSOR", Equals, "valor:SIM|NAO", "Mostra ou esconde o ponteiro do mouse."},
    {"VISIVEL", Equals, "valor:SIM|NAO", "Mostra ou esconde a janela."},
    {"MOUSEGERAL", Equals, "valor:SIM|NAO", "Conta o lugar do ponteiro na tela toda."},
    {"MOUSEICONE", Equals, "arquivo:p", "Muda o desenho do ponteiro."},
    {"RESOLUCAO", Equals, "linhas:n, colunas:n", "Divide a janela em linhas e colunas."},
    {"TAMANHO", Equals, "[linhas:n], [colunas:n]", "Muda o tamanho; MAXIMO é o da tela."},
    {"POSICAO", Equals, "[linha:n], [coluna:n]", "Muda o lugar; CENTRO é o meio da tela."},
    {"FUNDO", Equals, "fundo:v, [linha:n], [coluna:n]",
     "Muda o fundo: uma cor, um nome do sistema ou um arquivo."},
    {"RESVIDEO", Equals, "largura:n, altura:n, bits:n", "Muda o modo da tela."},
    {"BORDA", Equals, "valor:SIM|NAO", "Mostra ou tira a borda."},
};

inline constexpr WordForm kFonteKeywords[] = {
    {"Nome", Equals, "valor:t", "Muda a fonte.", Result::None, true},
    {"Tamanho", Equals, "valor:n", "Muda o tamanho.", Result::None, true},
    {"Cor", Equals, "valor:n", "Muda a cor da letra.", Result::None, true},
    {"Negrito", Equals, "valor:SIM|NAO", "Liga ou desliga o negrito.", Result::None, true},
    {"Italico", Equals, "valor:SIM|NAO", "Liga ou desliga o itálico.", Result::None, true},
};

inline constexpr WordForm kEstiloBotaoKeywords[] = {
    {"FIGSOLTO", Equals, "valor:p", "Figura do botão solto."},
    {"FIGDESTAQUE", Equals, "valor:p", "Figura do botão sob o ponteiro."},
    {"FIGFOCO", Equals, "valor:p", "Figura do botão com o foco."},
    {"FIGCLIQUE", Equals, "valor:p", "Figura do botão apertado."},
    {"FIGINATIVO", Equals, "valor:p", "Figura do botão desligado."},
    {"CORFUNDO", Equals, "valor:n", "Cor do fundo."},
    {"CORLETRA", Equals, "valor:n", "Cor da letra."},
};

inline constexpr WordForm kMenuSistemaKeywords[] = {
    {"INICIA", List, "", "Esvazia os menus."},
    {"GUIA", List, "guia:n, [tipo:OPCAO], texto:v", "Põe o texto de uma guia ou mais uma opção no seu menu."},
};

inline constexpr WordForm kAguardeKeywords[] = {
    {"EVENTOS", List, "", "Deixa passar os eventos."},
    {"CLIQUEBOTAO", List, "", "Espera um clique; Retorno recebe o nome do botão."},
    {"CLIQUEOBJETO", List, "", "O mesmo que CliqueBotao."},
    {"CLIQUEBOX", List, "", "Espera um clique em uma grade; Retorno recebe o evento."},
};

inline constexpr WordForm kNavegadorKeywords[] = {
    {"ATIVA", List, "linha:n, coluna:n, altura:n, largura:n", "Mostra o navegador na janela."},
    {"URL", List, "endereço:t", "Abre uma página."},
    {"VOLTAR", List, "", "Volta à página anterior."},
    {"AVANCAR", List, "", "Avança à página seguinte."},
    {"PARAR", List, "", "Para de carregar."},
    {"HOME", List, "", "Vai à página inicial."},
    {"ATUALIZAR", List, "", "Carrega a página de novo."},
};

inline constexpr WordForm kTransicaoKeywords[] = {
    {"POSICAO", List, "linha:n, coluna:n", "Diz o lugar da transição."},
    {"FIGURAINICIAL", List, "arquivo:p", "Diz a primeira figura."},
    {"FIGURAFINAL", List, "arquivo:p", "Diz a segunda figura."},
    {"VALOR", List, "opacidade:n", "Mostra a segunda figura sobre a primeira, de 0 a 255."},
};

inline constexpr WordForm kApiKeywords[] = {
    {"BIBLIOTECA", List, "nome:t", "Escolhe a biblioteca."},
    {"NOMEFUNCAO", List, "nome:t", "Escolhe a função."},
    {"EXECUTE", List, "argumento:v...", "Chama a função; Retorno recebe o resultado."},
    {"ARGUMENTO", List, "índice:n", "Retorno recebe um argumento como a função o deixou."},
};

inline constexpr WordForm kGravaSomKeywords[] = {
    {"INICIAR", List, "", "Começa a gravar."},
    {"PARAR", List, "", "Para de gravar."},
    {"SALVAR", List, "arquivo:p", "Salva o que foi gravado."},
};

inline constexpr WordForm kWebCamKeywords[] = {
    {"CONFIG", List, "linha:n, coluna:n, altura:n, largura:n, [intervalo:n], [arquivo:p], [qualidade:n]",
     "Diz o lugar da imagem e onde guardar as fotos."},
    {"INICIA", List, "", "Liga a câmera."},
    {"PARE", List, "", "Desliga a câmera."},
};

// Words of a database and of a table: `SQL Base.Abre`, `SQL Base.Tabela.Abre`.
inline constexpr WordForm kSqlKeywords[] = {
    {"BASE.ABRE", List, "conexão:t, [lugar:USECLIENTE|USESERVIDOR]", "Abre um banco de dados."},
    {"BASE.FECHA", List, "", "Fecha o banco de dados."},
    {"BASE.EXECUTE", List, "comando:t", "Executa um comando SQL."},
    {"BASE.TABELA.ABRE", List,
     "consulta:t, [cursor:SOMENTEAVANCAR|DEFINECHAVE|DINAMICO|ESTATICO], "
     "[bloqueio:SOMENTELEITURA|PESSIMISTA|OTIMISTA|OTIMISTAEMLOTE]",
     "Abre uma tabela com o resultado de uma consulta."},
    {"BASE.TABELA.MOVEPRIMEIRO", List, "", "Vai ao primeiro registro."},
    {"BASE.TABELA.MOVEULTIMO", List, "", "Vai ao último registro."},
    {"BASE.TABELA.MOVEPROXIMO", List, "", "Vai ao registro seguinte."},
    {"BASE.TABELA.MOVEANTERIOR", List, "", "Vai ao registro anterior."},
    {"BASE.TABELA.EDITA", List, "", "Começa a mudar o registro."},
    {"BASE.TABELA.REMOVE", List, "", "Remove o registro."},
    {"BASE.TABELA.ATUALIZA", List, "", "Grava o registro."},
    {"BASE.TABELA.ADICIONA", List, "", "Começa um registro novo."},
    {"BASE.TABELA.PROCURE", List, "critério:t", "Procura um registro."},
    {"BASE.TABELA.TOTALREGISTROS", List, "", "Dá o número de registros.", Result::Number},
    {"BASE.TABELA.PONTEIRO", List, "", "Dá OK, EOF ou BOF.", Result::Text},
    {"BASE.TABELA.FECHA", List, "", "Fecha a tabela."},
    {"BASE.TABELA.CAMPO", Equals, "[valor:v]", "Muda um campo; em uma expressão, dá o seu valor.",
     Result::Text},
};

// Words behind a prefix and its point: `Rel.Config`.
inline constexpr WordForm kRelKeywords[] = {
    {"CONFIG", List, "texto:t", "Começa um relatório e diz a sua saída."},
    {"ALTURAPAPEL", List, "altura:n", "Muda a altura do papel."},
    {"ALTURALINHA", List, "altura:n", "Muda a altura da linha."},
    {"COL", List, "coluna:n, texto:v",
     "Muda uma coluna: TAM, NFONT, TFONT, BOLD, ALIGN, TABVER, TABHOR, CORTAB."},
    {"ADD", List, "texto:v, [cor:n], [fundo:n]", "Preenche a próxima célula."},
    {"ADICIONA", List, "texto:v, [cor:n], [fundo:n]", "O mesmo que Rel.Add."},
    {"IMPRIME", List, "texto:v, x:n", "Escreve um texto em um lugar da linha."},
    {"LINHA", List, "x1:n, x2:n, cor:n, altura:n", "Desenha uma linha."},
    {"IMG", List, "arquivo:p, x:n, [avança:SIM|NAO]", "Põe uma figura."},
    {"NOVAPAGINA", List, "", "Começa uma página."},
    {"NOVALINHA", List, "", "Começa uma linha."},
    {"TESTAFIMPAG", List, "", "Retorno recebe SIM no fim da página."},
    {"FIM", List, "", "Mostra ou imprime o relatório; Retorno diz se a pessoa quer imprimir."},
};

inline constexpr WordForm kImpKeywords[] = {
    {"FONTE", List, "palavra:NOME|TAMANHO|NEGRITO|ITALICO, valor:v...", "Muda a letra da impressora."},
    {"POSICIONE", List, "linha:n, coluna:n", "Muda a posição na página."},
    {"ESCREVA", List, "valor:v...", "Imprime uma linha de texto."},
    {"DESENHE", List, "arquivo:p", "Imprime uma figura."},
    {"NOVAPAGINA", List, "", "Começa uma página."},
    {"FIM", List, "", "Manda o documento à impressora."},
};

}  // namespace tessera::language
