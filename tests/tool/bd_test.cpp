// `tessera bd` on files that a program wrote.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>

#include "support/process.h"
#include "tool/terminal.h"

namespace tessera {
namespace {

class ToolBd : public testing::Test {
 protected:
  void SetUp() override {
    const std::string program = folder_.Write(
        "p.tsc",
        "BD Gente, dados, segredo\nNome, String, 20\nIdade, Inteiro\nPeso, Decimal\nFimBD\n"
        "AbreBD Gente, segredo\n"
        "Gente.Nome = \"Ana; a \" & Car(34) & \"boa\" & Car(34)\nGente.Idade = 30\nGente.Peso = 60.5\n"
        "AdicionaRegistro Gente\nGente.Nome = \"José\"\nAdicionaRegistro Gente\n"
        "Gente.Nome = \"Sai\"\nAdicionaRegistro Gente\nExcluiRegistro Gente, 2\nFimJanela\n");
    const ProcessResult made = Call({"run", "--console", program});
    ASSERT_EQ(made.status, 0) << made.err;
    file_ = folder_ / "dados/Gente.Tsa";
  }

  ProcessResult Call(std::vector<std::string> words) {
    words.insert(words.begin(), TESSERA_TOOL);
    return RunProcess({.words = std::move(words), .environment = {"DISPLAY", "QT_QPA_PLATFORM"}});
  }
  void Overwrite(std::size_t offset, std::string_view bytes) {
    std::fstream out(file_, std::ios::binary | std::ios::in | std::ios::out);
    out.seekp(static_cast<std::streamoff>(offset));
    out.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

  TemporaryFolder folder_;
  std::string file_;
};

TEST_F(ToolBd, InfoTellsTheHeader) {
  const ProcessResult info = Call({"bd", "info", file_});
  EXPECT_EQ(info.status, kDone);
  for (const char* line :
       {"Banco de dados: Gente\n", "Senha: pede\n", "Ocupado: não\n", "Registros: 3\n", "Excluídos: 1\n",
        "Tamanho do registro: 47\n", "Campos: 3\n  Nome, String, 20\n  Idade, Inteiro\n  Peso, Decimal\n"}) {
    EXPECT_NE(info.out.find(line), std::string::npos) << info.out;
  }
  EXPECT_TRUE(std::regex_search(info.out, std::regex("Criado em: (../../.... ..:..:..)\nÚltimo uso: \\1\n")))
      << info.out;
}

TEST_F(ToolBd, ExportWritesTheLiveRecords) {
  const std::string csv = folder_ / "gente.csv";
  EXPECT_EQ(Call({"bd", "export", file_, "--csv", csv}).status, kWrongCall);
  EXPECT_EQ(Call({"bd", "export", file_, "--csv", csv, "--senha", "segredo"}).status, kDone);
  EXPECT_EQ(ReadBytes(csv), "Nome;Idade;Peso\r\n\"Ana; a \"\"boa\"\"\";30;60,5\r\nJosé;30;60,5\r\n");
  EXPECT_EQ(Call({"bd", "export", file_, "--csv", csv, "--senha", "segredo"}).status, kWrongCall)
      << "an output is not overwritten";
  const ProcessResult shown = Call({"bd", "export", file_, "--csv", "-", "--senha", "segredo"});
  EXPECT_EQ(shown.status, kDone) << shown.err;
  EXPECT_EQ(shown.out, ReadBytes(csv));
  EXPECT_EQ(shown.err, "");
  EXPECT_NE(Call({"bd", "export", file_, "--sqlite", "-", "--senha", "segredo"}).err.find("saída padrão"),
            std::string::npos);
  const std::string full = " bd export " + file_ + " --csv - --senha segredo > /dev/full";
  const ProcessResult lost = RunProcess({.words = {"/bin/sh", "-c", std::string(TESSERA_TOOL) + full}});
  EXPECT_EQ(lost.status, kRefused);
  EXPECT_NE(lost.err.find("não pôde ser gravada"), std::string::npos) << lost.err;

  const std::string database = folder_ / "gente.db";
  EXPECT_EQ(Call({"bd", "export", file_, "--sqlite", database, "--senha", "segredo"}).status, kDone);
  const ProcessResult rows =
      RunProcess({.words = {"/usr/bin/env", "sqlite3", database,
                            "select Nome, Idade, Peso, typeof(Peso) from Gente order by Nome desc"}});
  EXPECT_EQ(rows.out, "José|30|60.5|real\nAna; a \"boa\"|30|60.5|real\n");
}

// A death between the count and the record leaves blanks; a disk may lose the end, or keep more than is told.
TEST_F(ToolBd, RepairMendsWhatASuddenEndLeft) {
  const std::string whole = ReadBytes(file_);
  const auto at = [](std::size_t record) { return 19999 + 47 * record; };
  struct Case {
    const char* what;
    std::string bytes;
    const char* says;
    const char* after;  // what the check tells then
  };
  std::string blank = whole;
  blank.replace(at(1), 47, std::string(47, ' '));
  std::string busy = whole;
  busy[0] = '1';
  busy[134] = 'T';
  const Case cases[] = {
      {"blank", blank, "registro 1: em branco", "1 registro bom, 2 excluídos, 0 com defeito\n"},
      {"busy", busy, "marcado como ocupado", "2 registros bons, 1 excluído, 0 com defeito\n"},
      {"cut", whole.substr(0, at(2) + 20), "falta no arquivo 1 registro",
       "2 registros bons, 0 excluídos, 0 com defeito\n"},
      {"untold blank", whole + std::string(47, ' '), "1 registro além da contagem",
       "2 registros bons, 1 excluído, 0 com defeito\n"},
      {"untold record", whole + whole.substr(at(0), 47), "1 registro além da contagem",
       "3 registros bons, 1 excluído, 0 com defeito\n"},
      {"untold record behind a blank", whole + std::string(47, ' ') + whole.substr(at(0), 47),
       "2 registros além da contagem", "3 registros bons, 2 excluídos, 0 com defeito\n"},
      {"rest", whole + "lixo", "4 bytes de um registro partido",
       "2 registros bons, 1 excluído, 0 com defeito\n"},
  };
  for (const Case& c : cases) {
    std::filesystem::remove(file_ + ".copia");
    std::ofstream(file_, std::ios::binary) << c.bytes;
    const ProcessResult check = Call({"bd", "check", file_});
    EXPECT_EQ(check.status, kRefused) << c.what;
    EXPECT_NE(check.out.find(c.says), std::string::npos) << c.what << check.out;
    const ProcessResult repair = Call({"bd", "repair", file_});
    EXPECT_EQ(repair.status, kDone) << c.what << repair.err;
    EXPECT_EQ(ReadBytes(file_ + ".copia"), c.bytes) << c.what;
    EXPECT_EQ(Call({"bd", "check", file_}).out, c.after) << c.what;
    EXPECT_EQ(Call({"run", "--console",
                    folder_.Write("o.tsc",
                                  "BD Gente, dados, segredo\nNome, String, 20\nIdade, Inteiro\nPeso, "
                                  "Decimal\nFimBD\nAbreBD Gente, segredo\nOrdemBD Gente, Nome\nFimJanela")})
                  .err,
              "")
        << c.what;
  }
  EXPECT_EQ(Call({"bd", "repair", file_}).out, "Não há nada a consertar.\n");
  EXPECT_FALSE(std::filesystem::exists(file_ + ".copia2"));
}

TEST_F(ToolBd, RepairTellsACountOfFewerDigits) {
  const std::string program = folder_.Write(
      "n.tsc",
      "BD N, dados\nV, Inteiro\nFimBD\nAbreBD N\nEnquanto N.V < 10\nN.V++\nAdicionaRegistro N\nRepita\n");
  ASSERT_EQ(Call({"run", "--console", program}).status, 0);
  const std::string file = folder_ / "dados/N.Tsa";
  std::filesystem::resize_file(file, 19999 + 9 * 9);
  EXPECT_EQ(Call({"bd", "repair", file}).status, kDone);
  EXPECT_EQ(Call({"bd", "check", file}).out, "9 registros bons, 0 excluídos, 0 com defeito\n");
}

TEST_F(ToolBd, AFileWithoutRecordsIsWell) {
  const std::string program = folder_.Write("v.tsc", "BD Vazio, dados\nV, Inteiro\nFimBD\n");
  ASSERT_EQ(Call({"run", "--console", program}).status, 0);
  const ProcessResult check = Call({"bd", "check", folder_ / "dados/Vazio.Tsa"});
  EXPECT_EQ(check.status, kDone) << check.err;
  EXPECT_EQ(check.out, "0 registros bons, 0 excluídos, 0 com defeito\n");
}

TEST_F(ToolBd, CheckNamesWhatDoesNotDecode) {
  EXPECT_EQ(Call({"bd", "check", file_}).status, kDone);
  Overwrite(19999 + 47 + 25, std::string(9, ' '));
  const ProcessResult check = Call({"bd", "check", file_});
  EXPECT_EQ(check.status, kRefused);
  EXPECT_EQ(check.out,
            "registro 1: o campo Idade não se decodifica\n1 registro bom, 1 excluído, 1 com defeito\n");
}

TEST_F(ToolBd, UnlockFreesABusyFile) {
  Overwrite(0, "1");
  Overwrite(134, "T");
  EXPECT_EQ(Call({"bd", "unlock", file_}).out, "O arquivo foi liberado.\n");
  EXPECT_EQ(ReadBytes(file_)[0], '0');
  EXPECT_EQ(ReadBytes(file_)[134], ' ');
  EXPECT_EQ(Call({"bd", "unlock", file_}).out, "O arquivo não estava ocupado.\n");
}

TEST_F(ToolBd, UnsuitableFilesAreRefusedAndLeftAlone) {
  EXPECT_EQ(Call({"bd", "info", folder_ / "nada.Tsa"}).status, kWrongCall);
  EXPECT_FALSE(std::filesystem::exists(folder_ / "nada.Tsa"));
  const std::string text = folder_.Write("texto.Tsa", "isto é um texto");
  EXPECT_NE(Call({"bd", "check", text}).err.find("menor que o cabeçalho"), std::string::npos);
  EXPECT_EQ(Call({"bd", "unlock", text}).status, kWrongCall);
  EXPECT_EQ(ReadBytes(text), "isto é um texto");
  Overwrite(37, std::string(12, ' '));
  EXPECT_NE(Call({"bd", "info", file_}).err.find("não se decodifica"), std::string::npos);
  EXPECT_EQ(Call({"bd"}).status, kWrongCall);
}

TEST_F(ToolBd, ImportTakesInWhatExportWrote) {
  const std::string csv = folder_ / "gente.csv";
  const std::string sqlite = folder_ / "gente.db";
  ASSERT_EQ(Call({"bd", "export", file_, "--csv", csv, "--senha", "segredo"}).status, kDone);
  ASSERT_EQ(Call({"bd", "export", file_, "--sqlite", sqlite, "--senha", "segredo"}).status, kDone);
  for (const auto& [option, source] : {std::pair{"--csv", csv}, std::pair{"--sqlite", sqlite}}) {
    const std::string made = folder_ / (std::string("De") + (option + 2) + ".Tsa");
    const ProcessResult imported = Call({"bd", "import", made, option, source, "--senha", "nova"});
    EXPECT_EQ(imported.status, kDone) << imported.err;
    EXPECT_NE(imported.out.find("Nome, String, 12\nIdade, Inteiro\nPeso, Decimal\nFimBD\n"),
              std::string::npos)
        << imported.out;
    const std::string back = folder_ / (std::string(option + 2) + ".csv");
    EXPECT_EQ(Call({"bd", "export", made, "--csv", back, "--senha", "nova"}).status, kDone);
    EXPECT_EQ(ReadBytes(back), ReadBytes(csv)) << option;
    EXPECT_EQ(Call({"bd", "check", made}).status, kDone);
    EXPECT_EQ(Call({"bd", "import", made, option, source}).status, kWrongCall) << "an existing file stays";
  }
}

TEST_F(ToolBd, ImportFindsTheTypesOfATextOfFields) {
  const std::string csv = folder_.Write("a.csv",
                                        "\xEF\xBB\xBFNome do cliente,CPF,Idade,Peso,Idade,Vazia\n"
                                        "\"Ana, \"\"a\nboa\"\"\",00123,30,60.5,x,\n\nJosé,,2147483648,7,,\n");
  const std::string made = folder_ / "Gente.tsa";
  const ProcessResult imported = Call({"bd", "import", made, "--csv", csv});
  EXPECT_EQ(imported.status, kDone) << imported.err;
  EXPECT_EQ(imported.out.substr(imported.out.find("BD ")),
            "BD Gente, .\nNome_do_cliente, String, 12\nCPF, String, 5\nIdade, Decimal\nPeso, Decimal\n"
            "Idade2, String, 1\nVazia, String, 1\nFimBD\n");
  const std::string program = folder_.Write(
      "le.tsc",
      "BD Gente, .\nNome_do_cliente, String, 12\nCPF, String, 5\nIdade, Decimal\nPeso, Decimal\n"
      "Idade2, String, 1\nVazia, String, 1\nFimBD\nAbreBD Gente\nLeRegistro Gente, 0\n"
      "Escreva Gente.Nome_do_cliente, Gente.CPF, Gente.Peso\nLeRegistro Gente, 1\n"
      "Escreva Gente.Nome_do_cliente, Gente.CPF, Gente.Idade\n");
  std::filesystem::rename(made, folder_ / "Gente.Tsa");
  EXPECT_EQ(Call({"run", "--console", program}).out, "Ana, \"a\nboa\"0012360,5\nJosé2147483648\n");
}

TEST_F(ToolBd, ImportRefusesWhatARecordCantHold) {
  const std::string made = folder_ / "Novo.Tsa";
  const std::string wide = folder_.Write("wide.csv", "a\n" + std::string(32763, 'x') + "\n");
  const std::string other = folder_.Write("other.db", "no database");
  for (const std::vector<std::string>& words : {std::vector<std::string>{"--csv", wide},
                                                {"--csv", folder_ / "ausente.csv"},
                                                {"--sqlite", other},
                                                {"--sqlite", folder_ / "ausente.db"},
                                                {},
                                                {"--csv", wide, "--sqlite", other}}) {
    std::vector<std::string> call = {"bd", "import", made};
    call.insert(call.end(), words.begin(), words.end());
    EXPECT_EQ(Call(call).status, kWrongCall);
    EXPECT_FALSE(std::filesystem::exists(made));
  }
}

}  // namespace
}  // namespace tessera
