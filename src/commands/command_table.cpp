#include "commands/command_table.h"

#include <algorithm>
#include <array>

#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::string_view kFunctionTable =
    "Unir,Mensagem,Escreva,Formata,Comprimento,Separe,PosicaoInicial,AbreArquivo,AbreBD,AdicionaRegistro,"
    "AdicioneIconeBarra,AdicioneSistema,Aguarde,Aleatorio,AlturaJanela,Antilogaritmo,Apara,API,Arcotangente,"
    "Arredonda,Asc,AtualizaRegistro,BaixaArquivoFTP,BarraRolagem,BinDec,Box,CaixaDialogo,Calendario,"
    "CaptureJanela,Caractere,Chame,Check,Circulo,Cls,Combo,ConectaFTP,ConectaP2P,ConvStr,Copia,Cosseno,"
    "CriaPasta,ConverteData,DataAdiciona,DataDif,DecBin,DescaptureJanela,DesenheFiguras,DiaSemana,Diretorio,"
    "EntraTexto,EnviaP2P,EnviaPorta,EscutaP2P,EstiloBotao,Evento,ExcluiRegistro,ExtraiArquivo,FechaArquivo,"
    "FechaBD,Figura,Fontes,Gradiente,GravaArquivo,GravaSom,GifAnimado,Hexadecimal,Hora,Imagem,InsereArquivo,"
    "InverteData,LarguraJanela,LeArquivo,LePonto,LePorta,LeRegWin,LeString,LimpaBD,LinhaReta,Link,"
    "LimpaJanela,"
    "Logaritmo,Mascara,MenuSistema,MinimizeBarra,Moeda,Moldura,MudaIcone,MudaPapel,Navegador,NovaJanela,"
    "OrdemBD,Opcao,ParteInteira,Pinte,PoeArquivoFTP,PosIni,Posicione,ProcureArquivo,Procure,RaizQuadrada,"
    "Rel.TestaFimPag,RGB,RemoveArquivo,RemoveSistema,RemovePasta,Retangulo,Rotulo,SalvaRegWin,SalvaString,"
    "Seno,Sequencia,Sinal,Sobreponha,SQL,TamanhoArquivo,Tangente,Temporizador,TestaCPF,TestaCNPJ,TestaEmail,"
    "TestaData,TestaMouse,TestaTecla,Texto,TotalRegistrosBD,Transicao,ValorAbsoluto,ValorInteiro,ValStr,Var,"
    "Variavel,Video,WebCam,Ano,Botao,Car,Data,Dia,Fonte,Icone,Imp,Janela,LeRegistro,Mes,Ponto,Rel,Som";

constexpr std::array<std::string_view, 8> kBlockWordTable = {"ENQUANTO", "REPITA", "SE",     "CASOCONTRARIO",
                                                             "FIMSE",    "VAPARA", "FIMSUB", "FIMFUNCAO"};

}  // namespace

void CommandTable::Add(std::string_view word, CommandHandler handler) {
  handlers_.insert_or_assign(std::string(word), std::move(handler));
}

void CommandTable::AddPrefix(std::string_view prefix, CommandHandler handler) {
  prefixes_.emplace_back(prefix, std::move(handler));
}

Value CommandTable::CommandCall(std::string_view name, std::string_view arguments) const {
  const std::string upper = Upper(name);
  if (const auto found = handlers_.find(upper); found != handlers_.end())
    return found->second(name, arguments);
  for (const auto& [prefix, handler] : prefixes_) {
    if (Left(upper, 3) == prefix) return handler(name, arguments);
  }
  return {};
}

std::vector<std::string> LanguageWords() {
  std::vector<std::string> words;
  for (Position begin = 1; begin != 0;) {
    const Position comma = Find(kFunctionTable, ",", begin);
    words.emplace_back(Mid(kFunctionTable, begin, comma == 0 ? std::string_view::npos : comma - begin));
    begin = comma == 0 ? 0 : comma + 1;
  }
  return words;
}

bool IsReservedWord(const FunctionTable& functions, std::string_view word) {
  const std::string upper = Upper(word);
  const auto opens = [&](std::string_view block) { return upper.starts_with(block); };
  return functions.ContainsIgnoringCase(word) ||
         std::any_of(kBlockWordTable.begin(), kBlockWordTable.end(), opens) || upper.ends_with(':') ||
         upper.ends_with('+') || upper.ends_with('-');
}

}  // namespace tessera
