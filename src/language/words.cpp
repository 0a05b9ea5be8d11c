#include "language/words.h"

#include <algorithm>
#include <array>
#include <initializer_list>
#include <unordered_map>

#include "language/keywords.h"
#include "language/suffixes.h"
#include "text/one_based.h"

namespace tessera {

namespace {

using namespace language;
using namespace trait;
using enum Topic;
using enum Role;

constexpr Result kNothing = Result::None;
constexpr Result kANumber = Result::Number;
constexpr Result kAText = Result::Text;

constexpr WordForm kBotaoForms[] = {
    {"estilo", None, "nome:w, estilo:t, linha:n, coluna:n, [legenda:v], [figura:p], [dica:v]",
     "Cria um botão de estilo: TIPO e o número do estilo."},
    {"longa", None, "nome:w, linha:n, coluna:n, [altura:n], [largura:n], [legenda:v], [figura:p], [dica:v]",
     "Cria um botão com tamanho, figura e dica."},
};

constexpr More Keywords(std::span<const WordForm> keywords, std::size_t places = 0) {
  return {.keywords = keywords, .places = places};
}
constexpr More Suffixes(std::span<const WordForm> suffixes, std::span<const WordForm> otherForms = {}) {
  return {.suffixes = suffixes, .otherForms = otherForms};
}
constexpr More ListOf(std::size_t places) {
  return {.places = places};
}

constexpr Word kWords[] = {
    {"Unir", Texts, Value, kAText, kTakesCommas | kText, "valor:v...", "Junta os valores em um texto só."},
    {"Mensagem", System, Both, kAText, kPlain, "valor:v...",
     "Mostra uma mensagem; com OpcaoSimNao, dá SIM ou NAO."},
    {"Escreva", Windows, Statement, kNothing, kPlain, "valor:v...",
     "Escreve uma linha na janela; com TituloJanela, muda o título."},
    {"Formata", Texts, Value, kAText, kTakesCommas | kText, "valor:v, formato:t",
     "Dá um número ou uma data no formato pedido."},
    {"Comprimento", Texts, Value, kANumber, kPlain, "texto:t", "Dá o número de caracteres."},
    {"Separe", Texts, Value, kAText, kTakesCommas, "texto:t, início:n, [tamanho:n]",
     "Dá uma parte do texto."},
    {"PosicaoInicial", Texts, Value, kANumber, kPlain, "texto:t, procurado:t, [início ou modo:t], [início:n]",
     "O mesmo que PosIni."},
    {"AbreArquivo", Files, Statement, kNothing, kPlain,
     "apelido:t, arquivo:p, modo:BINARIO|TEXTOLEITURA|TEXTOGRAVACAO",
     "Abre um arquivo e dá a ele um apelido."},
    {"AbreBD", Records, Statement, kNothing, kPlain, "banco:t, [senha:t]", "Abre um banco de dados.",
     ListOf(11)},
    {"AdicionaRegistro", Records, Statement, kNothing, kPlain, "banco:t",
     "Grava um registro novo com os valores dos campos.", ListOf(11)},
    {"AdicioneIconeBarra", Windows, Statement, kNothing, kPlain, "",
     "Põe o ícone da janela na bandeja do sistema."},
    {"AdicioneSistema", System, Statement, kNothing, kPlain, "entrada:v",
     "Faz o programa começar com o sistema."},
    {"Aguarde", Events, Statement, kNothing, kPlain, "milissegundos:n", "Espera um tempo ou um evento.",
     Keywords(kAguardeKeywords)},
    {"Aleatorio", Numbers, Value, kANumber, kPlain, "limite:n",
     "Dá um número inteiro ao acaso, de 0 ao limite."},
    {"AlturaJanela", Windows, Value, kANumber, kPlain, "", "Dá a altura da janela, em linhas."},
    {"Antilogaritmo", Numbers, Value, kANumber, kNumeric, "valor:n", "Dá e elevado ao valor."},
    {"Apara", Texts, Value, kAText, kPlain, "texto:t", "Tira os brancos dos dois lados."},
    {"API", Libraries, Both, kAText, kPlain, "palavra:BIBLIOTECA|NOMEFUNCAO|EXECUTE|ARGUMENTO, [valor:v...]",
     "Chama uma função de uma biblioteca.", Keywords(kApiKeywords, 31)},
    {"Arcotangente", Numbers, Value, kANumber, kNumeric, "valor:n", "Dá o arco tangente, em radianos."},
    {"Arredonda", Numbers, Value, kANumber, kNumeric, "valor:n, casas:n",
     "Arredonda a tantas casas decimais."},
    {"Asc", Texts, Value, kANumber, kPlain, "texto:t", "Dá o código do primeiro caractere."},
    {"AtualizaRegistro", Records, Statement, kNothing, kPlain, "banco:t, posição:n",
     "Grava os valores dos campos sobre um registro.", ListOf(11)},
    {"BaixaArquivoFTP", Network, Both, kAText, kPlain, "remoto:t, local:p", "Baixa um arquivo do servidor."},
    {"BarraRolagem", Objects, Statement, kNothing, kEqualSign,
     "nome:w, máximo:n, linha:n, coluna:n, tipo:n, comprimento:n",
     "Cria uma barra de rolagem: tipo 0 vertical, 1 horizontal.", Suffixes(kBarraRolagemSuffixes)},
    {"BinDec", Numbers, Value, kANumber, kPlain, "texto:t",
     "Dá o número que os algarismos binários escrevem."},
    {"Box", Objects, Both, kAText, kEqualSign, "nome:w, linha:n, coluna:n, [altura:n], [títulos:n]",
     "Cria uma grade.", Suffixes(kBoxSuffixes)},
    {"CaixaDialogo", System, Statement, kNothing, kPlain,
     "título:v, descrição:v, filtro:v, modo:ABRIR|SALVAR|COR|FONTE|IMPRESSORA, [proposto:v]",
     "Mostra um diálogo do sistema; Retorno ou ValorRetorno recebe a resposta."},
    {"Calendario", Objects, Statement, kNothing, kEqualSign, "nome:w, linha:n, coluna:n, [largura:n]",
     "Cria um campo de data.", Suffixes(kCalendarioSuffixes)},
    {"CaptureJanela", Events, Statement, kNothing, kPlain, "",
     "Deixa arrastar a janela principal pelo seu interior."},
    {"Caractere", Texts, Value, kAText, kText, "código:n", "O mesmo que Car."},
    {"Chame", System, Both, kANumber, kTakesCommas,
     "comando:t, [janela:OCULTO|NORMAL|MINIMIZADO|MAXIMIZADO|NORMALSEMFOCO|MINIMIZADOSEMFOCO]",
     "Executa outro programa e dá o número do processo."},
    {"Check", Objects, Statement, kNothing, kEqualSign, "nome:w, linha:n, coluna:n, legenda:v, [valor:n]",
     "Cria uma caixa de marcar.", Suffixes(kCheckSuffixes)},
    {"Circulo", Drawing, Statement, kNothing, kTakesCommas, "linha:n, coluna:n, raio:n, cor:n",
     "Pinta um círculo cheio."},
    {"Cls", Windows, Statement, kNothing, kPlain, "", "Limpa a janela."},
    {"Combo", Objects, Statement, kNothing, kEqualSign, "nome:w, linha:n, coluna:n, [largura:n]",
     "Cria um campo com uma lista.", Suffixes(kComboSuffixes)},
    {"ConectaFTP", Network, Statement, kNothing, kPlain, "servidor:t, usuário:t, senha:t",
     "Conecta a um servidor de arquivos."},
    {"ConectaP2P", Network, Statement, kNothing, kPlain, "computador:t, porta:n",
     "Conecta a outro programa."},
    {"ConvStr", Texts, Value, kAText, kPlain, "valor:v", "Dá o texto de um número."},
    {"Copia", Files, Both, kAText, kTakesCommas, "origem:p, destino:p", "Copia um arquivo."},
    {"Cosseno", Numbers, Value, kANumber, kNumeric, "valor:n", "Dá o cosseno de um ângulo em radianos."},
    {"CriaPasta", Files, Both, kAText, kPlain, "pasta:p", "Cria uma pasta."},
    {"ConverteData", Dates, Value, kAText, kPlain, "data:t, formato:t",
     "Dá a data em outro formato, como DD/MM/AAAA."},
    {"DataAdiciona", Dates, Value, kAText, kTakesCommas,
     "unidade:SEGUNDO|MINUTO|HORA|SEMANA|DIASEMANA|DIA|DIAANO|MES|ANO, quantidade:n, data:v",
     "Soma um tempo a uma data."},
    {"DataDif", Dates, Value, kAText, kTakesCommas,
     "unidade:SEGUNDO|MINUTO|HORA|SEMANA|DIASEMANA|DIA|DIAANO|MES|ANO, primeira:v, segunda:v",
     "Dá o tempo entre duas datas."},
    {"DecBin", Numbers, Value, kAText, kPlain, "valor:n", "Dá os oito algarismos binários de um número."},
    {"DescaptureJanela", Events, Statement, kNothing, kPlain, "",
     "A janela principal não se deixa mais arrastar pelo seu interior."},
    {"DesenheFiguras", Pictures, Statement, kNothing, kPlain, "[fundo:PRESERVE]",
     "Desenha todas as figuras; com Preserve, sem limpar a janela."},
    {"DiaSemana", Dates, Value, kAText, kPlain, "data:v", "Dá o nome do dia da semana."},
    {"Diretorio", Files, Value, kAText, kText, "[filtro:p]", "Dá o próximo nome de uma pasta."},
    {"EntraTexto", System, Value, kAText, kPlain, "pergunta:t, [proposto:t]", "Pede um texto à pessoa."},
    {"EnviaP2P", Network, Statement, kNothing, kPlain, "texto:t", "Envia um texto ao outro programa."},
    {"EnviaPorta", System, Statement, kNothing, kPlain, "porta:n, valor:n",
     "Escreve um byte em uma porta do computador."},
    {"EscutaP2P", Network, Statement, kNothing, kPlain, "porta:n", "Espera a conexão de outro programa."},
    {"EstiloBotao", Objects, Statement, kNothing, kEqualSign, "palavra:w, igual:w, valor:v",
     "Muda as figuras e cores dos botões de estilo.", Keywords(kEstiloBotaoKeywords)},
    {"Evento", Events, Value, kAText, kPlain, "evento:TECLADO|CLIQUE|REDIM|BOX|GIFANIMADO",
     "Dá o último evento e o esquece."},
    {"ExcluiRegistro", Records, Statement, kNothing, kPlain, "banco:t, posição:n", "Exclui um registro.",
     ListOf(11)},
    {"ExtraiArquivo", Files, Statement, kNothing, kPlain, "nome:t, destino:p, pacote:p",
     "Tira um arquivo de um pacote."},
    {"FechaArquivo", Files, Statement, kNothing, kPlain, "apelido:t", "Fecha um arquivo."},
    {"FechaBD", Records, Statement, kNothing, kPlain, "banco:t", "Fecha um banco de dados.", ListOf(11)},
    {"Figura", Pictures, Statement, kNothing, kEqualSign, "nome:w, imagem:p, linha:n, coluna:n",
     "Cria uma figura com fundo transparente.", Suffixes(kFiguraSuffixes)},
    {"Fontes", System, Value, kAText, kPlain, "índice:n", "Dá o nome de uma fonte do sistema."},
    {"Gradiente", Drawing, Statement, kNothing, kPlain, "[inicial:n], [final:n]",
     "Pinta o fundo da janela de uma cor à outra."},
    {"GravaArquivo", Files, Statement, kNothing, kPlain, "apelido:t, texto ou posição:v, [texto:t]",
     "Grava um texto em um arquivo aberto."},
    {"GravaSom", Media, Statement, kNothing, kComing, "palavra:INICIAR|PARAR|SALVAR, [arquivo:p]",
     "Grava som do microfone.", Keywords(kGravaSomKeywords)},
    {"GifAnimado", Pictures, Both, kANumber, kEqualSign, "nome:w, imagem:p, tipo:n, linha:n, coluna:n",
     "Cria uma imagem animada.", Suffixes(kGifAnimadoSuffixes)},
    {"Hexadecimal", Numbers, Value, kAText, kPlain, "valor:n", "Dá os algarismos hexadecimais de um número."},
    {"Hora", Dates, Value, kAText, kPlain, "", "Dá a hora."},
    {"Imagem", Pictures, Both, kANumber, kEqualSign,
     "nome:w, imagem:p, linha:n, coluna:n, [altura:n], [largura:n]", "Cria uma imagem, em que se desenha.",
     Suffixes(kImagemSuffixes)},
    {"InsereArquivo", Files, Statement, kNothing, kPlain, "nome:t, origem:p, pacote:p",
     "Põe um arquivo em um pacote."},
    {"InverteData", Dates, Value, kAText, kPlain, "data:t", "Troca dd/mm/aaaa por aaaammdd, e de volta."},
    {"LarguraJanela", Windows, Value, kANumber, kPlain, "", "Dá a largura da janela, em colunas."},
    {"LeArquivo", Files, Value, kAText, kTakesCommas, "apelido:t, [posição:n], [tamanho:n]",
     "Lê uma linha de um arquivo, ou bytes."},
    {"LePonto", Drawing, Value, kANumber, kTakesCommas, "linha:n, coluna:n",
     "Dá a cor de um ponto da janela."},
    {"LePorta", System, Value, kANumber, kPlain, "porta:n", "Lê um byte de uma porta do computador."},
    {"LeRegWin", System, Value, kAText, kPlain, "raiz:t, chave:t, nome:t", "Lê um valor do registro."},
    {"LeString", Files, Value, kAText, kPlain, "chave:t", "Lê um texto guardado por SalvaString."},
    {"LimpaBD", Records, Statement, kNothing, kPlain, "banco:t",
     "Tira de um banco de dados os registros excluídos."},
    {"LinhaReta", Drawing, Statement, kNothing, kPlain, "linha 1:n, coluna 1:n, linha 2:n, coluna 2:n, cor:n",
     "Pinta uma linha."},
    {"Link", Objects, Statement, kNothing, kEqualSign, "nome:w, linha:n, coluna:n, texto:v, [endereço:t]",
     "Cria um texto que abre um endereço.", Suffixes(kLinkSuffixes)},
    {"LimpaJanela", Windows, Statement, kNothing, kPlain, "", "O mesmo que Cls."},
    {"Logaritmo", Numbers, Value, kANumber, kPlain, "valor:n", "Dá o logaritmo natural."},
    {"Mascara", Objects, Statement, kNothing, kEqualSign, "nome:w, máscara:t, linha:n, coluna:n, [largura:n]",
     "Cria um campo com máscara: cada # é um lugar a preencher.", Suffixes(kMascaraSuffixes)},
    {"MenuSistema", Windows, Statement, kNothing, kEqualSign,
     "palavra:INICIA|GUIA, [guia:n], [tipo:v], [texto:v]", "Monta a barra de guias e menus da janela.",
     Keywords(kMenuSistemaKeywords)},
    {"MinimizeBarra", Windows, Statement, kNothing, kPlain, "", "Esconde a janela na bandeja do sistema."},
    {"Moeda", Objects, Statement, kNothing, kEqualSign, "nome:w, linha:n, coluna:n, [largura:n]",
     "Cria um campo de valor em dinheiro.", Suffixes(kMoedaSuffixes)},
    {"Moldura", Objects, Statement, kNothing, kEqualSign,
     "nome:w, legenda:v, linha:n, coluna:n, [altura:n], [largura:n]", "Cria uma moldura.",
     Suffixes(kMolduraSuffixes)},
    {"MudaIcone", System, Both, kAText, kPlain, "executável:p, ícone:p", "Troca o ícone de um executável."},
    {"MudaPapel", Drawing, Statement, kNothing, kPlain, "arquivo:p", "Troca o papel de parede."},
    {"Navegador", Web, Statement, kNothing, kComing,
     "palavra:ATIVA|URL|VOLTAR|AVANCAR|PARAR|HOME|ATUALIZAR, [valor:v...]",
     "Mostra páginas da internet na janela.", Keywords(kNavegadorKeywords)},
    {"NovaJanela", Windows, Statement, kNothing, kEqualSign | kEngine,
     "palavra:w, nome:w, [tipo:FIXA|SEMBOX]", "Define uma janela; as suas palavras abrem e mudam a janela.",
     Suffixes(kNovaJanelaSuffixes)},
    {"OrdemBD", Records, Statement, kNothing, kPlain, "banco:t, campo:t...",
     "Põe um banco de dados na ordem de campos, ou Sequencial.", ListOf(21)},
    {"Opcao", Objects, Statement, kNothing, kEqualSign, "nome:w, linha:n, coluna:n, legenda:v",
     "Cria uma opção, das quais uma só fica escolhida.", Suffixes(kCheckSuffixes)},
    {"ParteInteira", Numbers, Value, kANumber, kNumeric, "valor:n", "Tira a fração de um número."},
    {"Pinte", Drawing, Statement, kNothing, kPlain, "linha:n, coluna:n, cor:n", "Enche de cor uma área."},
    {"PoeArquivoFTP", Network, Both, kAText, kPlain, "local:p, remoto:t", "Envia um arquivo ao servidor."},
    {"PosIni", Texts, Value, kANumber, kPlain, "texto:t, procurado:t, [início ou modo:t], [início:n]",
     "Dá a posição de um texto dentro de outro; com Inver, do fim para o começo."},
    {"Posicione", Windows, Statement, kNothing, kPlain, "linha:n, coluna:n", "Muda o lugar da escrita."},
    {"ProcureArquivo", Files, Value, kAText, kPlain, "pasta:p, nome:v",
     "Procura um arquivo em uma pasta e nas pastas dentro dela."},
    {"Procure", Records, Value, kANumber, kTakesCommas,
     "banco:t, modo:PRIMEIRO|ULTIMO|PROXIMO|QUALQUER, valor:t...",
     "Procura um registro na ordem do banco de dados.", ListOf(51)},
    {"RaizQuadrada", Numbers, Value, kANumber, kNumeric, "valor:n", "Dá a raiz quadrada."},
    {"Rel.TestaFimPag", Reports, Both, kAText, kPlain, "", "Retorno recebe SIM no fim da página."},
    {"RGB", Numbers, Value, kANumber, kTakesCommas, "vermelho:n, verde:n, azul:n", "Dá uma cor."},
    {"RemoveArquivo", Files, Both, kAText, kPlain, "arquivo:p", "Remove um arquivo."},
    {"RemoveSistema", System, Statement, kNothing, kPlain, "entrada:v",
     "O programa não começa mais com o sistema."},
    {"RemovePasta", Files, Both, kAText, kPlain, "pasta:p", "Remove uma pasta."},
    {"Retangulo", Drawing, Statement, kNothing, kTakesCommas,
     "linha 1:n, coluna 1:n, linha 2:n, coluna 2:n, cor:n", "Pinta um retângulo."},
    {"Rotulo", Objects, Statement, kNothing, kEqualSign,
     "nome:w, texto:v, linha:n, coluna:n, [largura:n], [altura:n]", "Cria um texto fixo.",
     Suffixes(kRotuloSuffixes)},
    {"SalvaRegWin", System, Statement, kNothing, kPlain, "raiz:t, chave:t, nome:t, valor:t",
     "Grava um valor no registro."},
    {"SalvaString", Files, Statement, kNothing, kPlain, "chave:t, valor:t",
     "Guarda um texto para outra vez."},
    {"Seno", Numbers, Value, kANumber, kNumeric, "valor:n", "Dá o seno de um ângulo em radianos."},
    {"Sequencia", Texts, Value, kAText, kTakesCommas, "quantidade:n, caractere:v",
     "Dá um caractere repetido."},
    {"Sinal", Numbers, Value, kANumber, kPlain, "valor:n", "Dá -1, 0 ou 1, como o sinal do número."},
    {"Sobreponha", Texts, Statement, kNothing, kPlain, "variável:x, texto:t, início:n, [tamanho:n]",
     "Escreve um texto sobre uma parte do texto de uma variável."},
    {"SQL", Sql, Both, kAText, kText, "caminho:w, [valor:v...]", "Trabalha com bancos de dados SQL.",
     Keywords(kSqlKeywords)},
    {"TamanhoArquivo", Files, Value, kANumber, kPlain, "apelido:t",
     "Dá o tamanho de um arquivo aberto, em bytes."},
    {"Tangente", Numbers, Value, kANumber, kNumeric, "valor:n", "Dá a tangente de um ângulo em radianos."},
    {"Temporizador", Events, Both, kANumber, kPlain, "ação:w, [centésimos:n]",
     "Liga ou desliga uma sub-rotina de tempo: nome.Ativa, nome.Desativa."},
    {"TestaCPF", Checks, Value, kAText, kPlain, "número:v", "Diz se um CPF está certo."},
    {"TestaCNPJ", Checks, Value, kAText, kPlain, "número:v", "Diz se um CNPJ está certo."},
    {"TestaEmail", Checks, Value, kAText, kPlain, "endereço:v",
     "Diz se um endereço de e-mail tem a forma certa."},
    {"TestaData", Checks, Value, kAText, kPlain, "data:v, [separador:v]", "Diz se uma data existe."},
    {"TestaMouse", Events, Value, kAText, kPlain, "", "Diz que botões do mouse estão apertados."},
    {"TestaTecla", Events, Value, kAText, kPlain, "tecla:v", "Diz se uma tecla está apertada."},
    {"Texto", Objects, Both, kAText, kEqualSign, "nome:w, linha:n, coluna:n, [largura:n], [linhas:n]",
     "Cria um campo de texto.", Suffixes(kTextoSuffixes)},
    {"TotalRegistrosBD", Records, Value, kANumber, kPlain, "banco:t", "Dá o número de registros.",
     ListOf(11)},
    {"Transicao", Pictures, Statement, kNothing, kPlain,
     "palavra:POSICAO|FIGURAINICIAL|FIGURAFINAL|VALOR, [valor:v...]", "Passa de uma figura a outra.",
     Keywords(kTransicaoKeywords)},
    {"ValorAbsoluto", Numbers, Value, kANumber, kNumeric, "valor:n", "Dá o número sem o sinal."},
    {"ValorInteiro", Numbers, Value, kANumber, kNumeric, "valor:n",
     "Dá o maior inteiro que não passa do número."},
    {"ValStr", Texts, Value, kANumber, kNumeric, "texto:t", "Dá o número que um texto escreve."},
    {"Var", Structure, Declaration, kNothing, kEngine, "variável:w...", "Declara variáveis."},
    {"Variavel", Structure, Declaration, kNothing, kEngine, "variável:w...", "O mesmo que Var."},
    {"Video", Media, Statement, kNothing, kEqualSign | kComing, "nome:w, arquivo:p", "Cria um vídeo.",
     Suffixes(kSomSuffixes)},
    {"WebCam", Media, Statement, kNothing, kComing, "palavra:CONFIG|INICIA|PARE, [valor:v...]",
     "Mostra e grava a imagem da câmera.", Keywords(kWebCamKeywords)},
    {"Ano", Dates, Value, kANumber, kPlain, "[data:t]", "Dá o ano de uma data, ou o de hoje."},
    {"Botao", Objects, Statement, kNothing, kEqualSign, "nome:w, linha:n, coluna:n, [legenda:v]",
     "Cria um botão.", Suffixes(kBotaoSuffixes, kBotaoForms)},
    {"Car", Texts, Value, kAText, kText | kPrefix, "código:n", "Dá o caractere de um código."},
    {"Data", Dates, Value, kAText, kPlain, "", "Dá a data de hoje."},
    {"Dia", Dates, Value, kANumber, kPlain, "[data:t]", "Dá o dia de uma data, ou o de hoje."},
    {"Fonte", Windows, Statement, kNothing, kEqualSign, "propriedade:w, igual:w, valor:v",
     "Muda a letra da janela.", Keywords(kFonteKeywords, 11)},
    {"Icone", Windows, Statement, kNothing, kPlain, "arquivo:p", "Muda o ícone da janela."},
    {"Imp", Printing, Both, kAText, kPrefix, "[valor:v...]", "Imprime direto na impressora.",
     Keywords(kImpKeywords)},
    {"Janela", Windows, Statement, kNothing, kEqualSign, "palavra:w, igual:w, valor:v...",
     "Muda a janela principal.", Keywords(kJanelaKeywords)},
    {"LeRegistro", Records, Both, kAText, kPlain, "banco:t, posição:n",
     "Lê um registro para as variáveis dos campos.", ListOf(11)},
    {"Mes", Dates, Value, kANumber, kPlain, "[data:t]", "Dá o mês de uma data, ou o de hoje."},
    {"Ponto", Drawing, Statement, kNothing, kPlain, "linha:n, coluna:n, cor:n", "Pinta um ponto."},
    {"Rel", Reports, Both, kAText, kPrefix, "[valor:v...]", "Faz relatórios.", Keywords(kRelKeywords)},
    {"Som", Media, Statement, kNothing, kEqualSign | kComing, "nome:w, arquivo:p", "Cria um som.",
     Suffixes(kSomSuffixes)},
};

constexpr Word kStructureWords[] = {
    {"Enquanto", Structure, Role::Block, kNothing, kReserved, "condição:w",
     "Repete enquanto a condição vale."},
    {"Repita", Structure, Role::Block, kNothing, kReserved, "", "Fecha um Enquanto."},
    {"Se", Structure, Role::Block, kNothing, kReserved, "condição:w", "Executa o bloco se a condição vale."},
    {"CasoContrario", Structure, Role::Block, kNothing, kReserved, "",
     "O bloco que vale quando o Se não vale."},
    {"FimSe", Structure, Role::Block, kNothing, kReserved, "", "Fecha um Se."},
    {"VaPara", Structure, Role::Block, kNothing, kReserved, "rótulo:w", "Continua no rótulo."},
    {"FimSub", Structure, Role::Block, kNothing, kReserved | kBoundary, "", "Fecha uma sub-rotina."},
    {"FimFuncao", Structure, Role::Block, kNothing, kReserved | kBoundary, "", "Fecha uma função."},
    {"Funcao", Structure, Declaration, kNothing, kBoundary, "nome:w", "Começa uma função."},
    {"Sub", Structure, Declaration, kNothing, kBoundary, "nome:w", "Começa uma sub-rotina."},
    {"FimPrograma", Structure, Role::Block, kNothing, kBoundary, "", "Termina o programa; as janelas ficam."},
    {"FimJanela", Structure, Statement, kNothing, kEngine, "", "Fecha a janela principal e o programa."},
    {"Retorne", Structure, Statement, kNothing, kEngine, "valor:v", "Dá o resultado da função."},
    {"BD", Records, Role::Block, kNothing, kEngine, "", "Começa a descrição de um banco de dados."},
};

constexpr BlockPair kBlocks[] = {{"Se", "FimSe", "CasoContrario"}, {"Enquanto", "Repita", {}}};

constexpr std::size_t CountOf(Trait trait) {
  return static_cast<std::size_t>(
      std::count_if(std::begin(kWords), std::end(kWords), [=](const Word& word) { return word.Has(trait); }));
}

// The names of the words with a trait.
template <Trait kTrait>
constexpr auto NamesWith() {
  std::array<std::string_view, CountOf(kTrait)> names{};
  std::size_t count = 0;
  for (const Word& word : kWords) {
    if (word.Has(kTrait)) names[count++] = word.name;
  }
  return names;
}

constexpr auto kCommaNames = NamesWith<kTakesCommas>();
constexpr auto kTextNames = NamesWith<kText>();
constexpr auto kNumericNames = NamesWith<kNumeric>();

bool EndsWithOneOf(std::span<const std::string_view> names, std::string_view text) {
  return std::any_of(names.begin(), names.end(), [text](std::string_view name) {
    return text.size() >= name.size() && EqualsIgnoringCase(text.substr(text.size() - name.size()), name);
  });
}

}  // namespace

std::span<const Word> Words() {
  return kWords;
}

std::span<const Word> StructureWords() {
  return kStructureWords;
}

const Word* FindWord(std::string_view name) {
  // FAST: a map of the rows, in whose order the first of a name counts.
  static const auto kByName = [] {
    std::unordered_map<std::string, const Word*> rows;
    for (const std::span<const Word> words : {Words(), StructureWords()}) {
      for (const Word& word : words) rows.emplace(Upper(word.name), &word);
    }
    return rows;
  }();
  const auto found = kByName.find(Upper(name));
  return found == kByName.end() ? nullptr : found->second;
}

std::vector<std::string> WordNames() {
  std::vector<std::string> names;
  for (const Word& word : kWords) names.emplace_back(word.name);
  return names;
}

std::span<const BlockPair> BlockPairs() {
  return kBlocks;
}

bool BeginsWithBlockWord(std::string_view upperText) {
  return std::any_of(std::begin(kStructureWords), std::end(kStructureWords), [&](const Word& word) {
    return word.Has(kReserved) && EqualsIgnoringCase(upperText.substr(0, word.name.size()), word.name);
  });
}

bool IsRoutineBoundary(std::string_view statement) {
  return std::any_of(std::begin(kStructureWords), std::end(kStructureWords), [&](const Word& word) {
    if (!word.Has(kBoundary) || !statement.starts_with(word.name)) return false;
    const bool opens = word.role == Declaration;
    return !opens || statement.substr(word.name.size()).starts_with(' ');
  });
}

bool HoldsCallOf(Trait sought, std::string_view text) {
  const std::span<const std::string_view> names = sought == kText
                                                      ? std::span<const std::string_view>(kTextNames)
                                                      : std::span<const std::string_view>(kCommaNames);
  for (std::size_t open = text.find('('); open != std::string_view::npos; open = text.find('(', open + 1)) {
    if (EndsWithOneOf(names, text.substr(0, open))) return true;
  }
  return false;
}

bool IsNumericFunction(std::string_view name) {
  return std::any_of(kNumericNames.begin(), kNumericNames.end(),
                     [&](std::string_view numeric) { return EqualsIgnoringCase(numeric, name); });
}

}  // namespace tessera
