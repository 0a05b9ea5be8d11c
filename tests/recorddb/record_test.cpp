#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <random>
#include <set>
#include <thread>

#include "image/codec.h"
#include "platform/failure.h"
#include "recorddb/slots.h"
#include "recorddb/sorted_list.h"
#include "recorddb/tsa_layout.h"
#include "recorddb/tsa_reader.h"
#include "support/process.h"
#include "support/record_program.h"
#include "support/table.h"
#include "text/code_page.h"
#include "text/literal.h"

namespace tessera {
namespace {

using test::RecordProgram;
using Texts = std::vector<std::string>;

constexpr std::string_view kPeople =
    "BD Gente, dados, segredo\nNome, String, 10\nIdade, Inteiro\nPeso, Decimal\nFimBD\n"
    "AbreBD Gente, segredo\n";
constexpr std::size_t kPeopleLength = 15 + 9 + 13;

class RecordFile : public testing::Test {
 protected:
  std::filesystem::path File(std::string_view name = "Gente") const {
    return folder.path() / "dados" / (std::string(name) + ".Tsa");
  }
  // Runs a program behind the descriptor and the opening of a database.
  std::string WithPeople(std::string_view source) {
    program.emplace(folder.path());
    program->clock.now = now;
    return program->Run(std::string(kPeople).append(source));
  }
  Texts Boxes() const { return program->Boxes(); }
  std::string Header(tsa::Slot slot) const { return DecodeText(SlotOf(ReadBytes(File()), slot)); }

  // Three people, the second of them deleted when asked for.
  static constexpr std::string_view kThree =
      "Gente.Nome = \"Zeca\";Gente.Idade = 30;Gente.Peso = 70.5;AdicionaRegistro Gente\n"
      "Gente.Nome = \"José\";Gente.Idade = -2;Gente.Peso = 0;AdicionaRegistro Gente\n"
      "Gente.Nome = \"Ana\";Gente.Idade = 7;Gente.Peso = 1.25;AdicionaRegistro Gente\n";

  TemporaryFolder folder;
  LocalTime now{};
  std::optional<RecordProgram> program;
};

// Programs behind the opening of a database, and where they say so behind three records; behind "!" stand the
// boxes.
class RecordPrograms : public RecordFile, public testing::WithParamInterface<test::Table> {};

TEST_P(RecordPrograms, DoWhatTheTableSays) {
  for (const auto& [given, result] : GetParam().cases) {
    std::filesystem::remove(File());
    std::string source = given;
    constexpr std::string_view kMark = "(three)\n";
    if (const std::size_t at = source.find(kMark); at != std::string::npos)
      source.replace(at, kMark.size(), kThree);
    std::string seen = WithPeople(source);
    for (const std::string& box : Boxes()) seen += "! " + box + "\n";
    EXPECT_EQ(seen, result) << given;
  }
}

INSTANTIATE_TEST_SUITE_P(Records, RecordPrograms, testing::ValuesIn(test::TablesOf("recorddb/programs.txt")),
                         test::NameOfTable);

TEST_F(RecordFile, ANewFileIsAHeaderOf20000Bytes) {
  WithPeople("");
  const std::string bytes = ReadBytes(File());
  ASSERT_EQ(bytes.size(), 20000u);
  EXPECT_EQ(bytes[0], '0');
  EXPECT_EQ(Header(tsa::kCount), "0");
  EXPECT_EQ(Header(tsa::kName), "Gente");
  EXPECT_EQ(Header(tsa::kRecordLength), "37");
  EXPECT_EQ(Header(tsa::kCreated), "01/01/1970 00:00:00");
  EXPECT_EQ(Header(tsa::kPassword), "segredo");
  EXPECT_EQ(Header({1000, 25}), "Nome");
  EXPECT_EQ(Header({1025, 11}), "10");
  EXPECT_EQ(Header({1036, 12}), "String");
  EXPECT_EQ(Header({1073, 11}), "4");
  EXPECT_EQ(Header({1121, 11}), "8");
  EXPECT_EQ(Header({1144, 25}), "#Fim");
  EXPECT_EQ(bytes.substr(134, 865), std::string(865, ' '));
  // The count "0" under key 5: 2 as the length, then the key's number and the character, both inverted.
  EXPECT_EQ(bytes.substr(1, 5), (std::string{2, 0, 0, 0, static_cast<char>(255 - 5)}));
}

TEST_F(RecordFile, TheFirstRecordBeginsOnTheHeadersLastByte) {
  WithPeople("Gente.Nome = \"Ana\";Gente.Idade = 258;AdicionaRegistro Gente;AdicionaRegistro Gente");
  const std::string bytes = ReadBytes(File());
  EXPECT_EQ(bytes.size(), 19999 + 2 * kPeopleLength);
  EXPECT_EQ(DecodeText(bytes.substr(19999, 15)), "Ana");
  EXPECT_EQ(DecodeText(bytes.substr(19999 + 15, 9)), (std::string{2, 1, 0, 0}));
  EXPECT_EQ(Header(tsa::kCount), "2");
  EXPECT_EQ(bytes[0], '0');
  EXPECT_EQ(bytes[134], ' ');
}

TEST_F(RecordFile, UpdatesGoToTheirPlaceAndOneBehindTheLast) {
  EXPECT_EQ(WithPeople(std::string(kThree).append(
                "Gente.Nome = \"Bia\";AtualizaRegistro Gente, 0;AtualizaRegistro Gente, 3\n"
                "LeRegistro Gente, 0;Escreva Gente.Nome;LeRegistro Gente, 1;Escreva Gente.Nome\n"
                "AtualizaRegistro Gente, 4;Escreva TotalRegistrosBD(\"Gente\")")),
            "Bia\nJosé\n3\n");
  EXPECT_EQ(Boxes(), (Texts{"Não pode atualizar registro: posição inválida !"}));
  EXPECT_EQ(ReadBytes(File()).size(), 19999 + 4 * kPeopleLength);
}

TEST_F(RecordFile, ATextThatIsTooLongLeavesItsFieldBlank) {
  EXPECT_EQ(WithPeople("Gente.Nome = \"12345678901\";AdicionaRegistro Gente;LeRegistro Gente, 0"),
            "falha 9\n");
  EXPECT_EQ(Boxes(),
            (Texts{"Editor: 0 Linha: 7|AdicionaRegistro: o tamanho do campo 'Gente.Nome'|é menor do que o "
                   "tamanho dos dados atribuídos ao mesmo!"}));
  EXPECT_EQ(ReadBytes(File()).substr(19999, 15), std::string(15, ' '));
}

TEST_F(RecordFile, ASizeBelowZeroTakesNoBytesFromItsNeighbours) {
  program.emplace(folder.path());
  program->Run(
      "BD N, d\nA, String, 100\nB, String, -60\nFimBD\nAbreBD N\nN.A = \"texto\";AdicionaRegistro N");
  EXPECT_EQ(ReadBytes(folder.path() / "d" / "N.Tsa").size(), 19999u + 50);
}

TEST_F(RecordFile, AutoIncIsTheCountBeforeAndThePositionGiven) {
  program.emplace(folder.path());
  EXPECT_EQ(program->Run("BD N, d\nId, AutoInc\nT, String, 3\nFimBD\nAbreBD N\nN.Id = 9;AdicionaRegistro "
                         "N;AdicionaRegistro N\n"
                         "LeRegistro N, 1;Escreva N.Id;AtualizaRegistro N, 0;LeRegistro N, 0;Escreva N.Id"),
            "1\n0\n");
}

TEST_F(RecordFile, AnotherRecordLengthIsRefused) {
  WithPeople("");
  program.emplace(folder.path());
  program->Run(
      "BD Gente, dados\nNome, String, 11\nFimBD\nBD Outra, dados\nNome, String, 11\nFimBD\nAbreBD Gente, "
      "segredo");
  ASSERT_EQ(program->Boxes().size(), 2u);
  EXPECT_EQ(program->Boxes()[1], "Erro: Descritor do banco de dados 'Gente' não encontrado!")
      << "not counted";
  EXPECT_TRUE(program->Boxes()[0].starts_with(
      "Erro (Gente): O tamanho dos campos do arquivo foram alterados.|Volte"));
}

TEST_F(RecordFile, ASecondRunOfTheDescriptorChangesTheDateAlone) {
  WithPeople(kThree);
  const std::string before = ReadBytes(File());
  now += std::chrono::hours(25);
  WithPeople("");
  EXPECT_EQ(Header(tsa::kLastRun), "02/01/1970 01:00:00");
  EXPECT_EQ(Header(tsa::kCreated), "01/01/1970 00:00:00");
  EXPECT_EQ(ReadBytes(File()).replace(79, 30, before.substr(79, 30)), before);
}

// What a cut header has lost is blank, and the database as good as any.
TEST_F(RecordFile, ADescriptorMendsACutHeader) {
  WithPeople("");
  const std::string whole = ReadBytes(File());
  WriteBytes(File(), whole.substr(0, 200));
  EXPECT_EQ(WithPeople(std::string(kThree) + "LeRegistro Gente, 2;Escreva Gente.Nome"), "Ana\n");
  EXPECT_EQ(ReadBytes(File()).substr(200, 19000), std::string(19000, ' '));
}

TEST_F(RecordFile, The300thFieldIsTheLast) {
  std::string source = "BD G, d\n";
  for (int i = 0; i < 300; ++i) source += "C" + std::to_string(i) + ", Inteiro\n";
  for (const std::string_view further : {"", "Mais, Inteiro\n"}) {
    program.emplace(folder.path());
    EXPECT_EQ(program->Run(std::string(source).append(further).append(
                  "FimBD\nAbreBD G;G.C299 = 7;AdicionaRegistro G;G.C299 = 0;LeRegistro G, 0;Escreva G.C299")),
              further.empty() ? "7\n" : "falha 9\n");
  }
  const auto header = ReadTsaHeader(*BinaryFile::Open(program->files, folder.path() / "d" / "G.Tsa"));
  ASSERT_TRUE(std::holds_alternative<TsaHeader>(header));
  EXPECT_EQ(std::get<TsaHeader>(header).fields.size(), 300u);
}

TEST_F(RecordFile, The21stDescriptorIsTheLast) {
  std::string source;
  for (int i = 0; i < 22; ++i)
    source += "BD B" + std::to_string(i) + ", d\nN, Inteiro\nFimBD\nEscreva " + std::to_string(i) + "\n";
  program.emplace(folder.path());
  EXPECT_TRUE(program->Run(source).ends_with("20\nfalha 9\n"));
}

TEST_F(RecordFile, DamagedFilesEndInAFailureOrABox) {
  WithPeople(kThree);
  const std::string whole = ReadBytes(File());
  std::mt19937 random(17);
  for (int round = 0; round < 300; ++round) {
    std::string damaged = whole;
    for (int i = 0; i < 8; ++i) {
      const std::size_t area = round % 3 == 0 ? 134 : damaged.size();
      damaged[1 + random() % (area - 1)] = static_cast<char>(random());
    }
    if (round % 5 == 0) damaged.resize(random() % damaged.size());
    if (!damaged.empty()) damaged[0] = '0';
    if (damaged.size() > 134) damaged[134] = ' ';
    if (damaged.empty()) continue;
    WriteBytes(File(), damaged);
    program.emplace(folder.path());
    program->Run(
        std::string(kPeople).append("Var i Inteiro;Enquanto i < 3;LeRegistro Gente, i;i++;Repita;OrdemBD "
                                    "Gente, Nome;FechaBD Gente;LimpaBD Gente"));
    std::filesystem::remove(folder.path() / "dados" / "Temp.Tsa");
  }
  WriteBytes(File(), whole);
  EXPECT_EQ(WithPeople("LeRegistro Gente, 2;Escreva Gente.Nome"), "Ana\n");
}

// A database that the program has not opened, or no longer, has no file number; the number of another one
// that is open meanwhile must not serve.
TEST_F(RecordFile, AClosedDatabaseReachesNoOtherFile) {
  constexpr std::string_view kTwo =
      "BD A, dados\nT, String, 5\nFimBD\nBD B, dados\nT, String, 5\nFimBD\nAbreBD A\n"
      "A.T = \"da A\";AdicionaRegistro A\n";
  RecordProgram(folder.path()).Run(kTwo);
  for (const std::string_view state :
       {"", "AbreBD B;FechaBD A;AbreBD A;FechaBD B\n", "FechaBD A;AbreBD B;FechaBD B;AbreBD A\n",
        "AbreBD B, errada\nAbreBD A\n"}) {
    for (const std::string_view command :
         {"B.T = \"da B\";AdicionaRegistro B", "AtualizaRegistro B, 0", "ExcluiRegistro B, 0",
          "LeRegistro B, 0", "Escreva TotalRegistrosBD(\"B\")", "OrdemBD B, T"}) {
      program.emplace(folder.path());
      const std::string records = ReadBytes(File("A")).substr(19999);
      EXPECT_EQ(program->Run(std::string(kTwo.substr(0, kTwo.rfind("A.T"))).append(state).append(command)),
                "falha 52\n")
          << state << command;
      EXPECT_EQ(ReadBytes(File("A")).substr(19999), records) << state << command;
    }
    EXPECT_EQ(
        RecordProgram(folder.path())
            .Run(std::string(kTwo).append(state).append("FechaBD B;FechaBD B;LeRegistro A, 0;Escreva A.T")),
        "da A\n")
        << state;
  }
}

// A descriptor that was refused leaves its slot to the next one, without its open file and its order.
TEST_F(RecordFile, TheSlotOfARefusedDescriptorIsNew) {
  WithPeople(kThree);
  const std::string before = ReadBytes(File());
  program.emplace(folder.path());
  EXPECT_EQ(program->Run("BD Gente, dados\nNome, String, 11\nFimBD\nAbreBD Gente, segredo;OrdemBD Gente, "
                         "SEQUENCIAL\nBD Outra, dados\nNome, String, 11\nFimBD\nAdicionaRegistro Outra"),
            "falha 52\n");
  EXPECT_EQ(ReadBytes(File()), before);
}

// Whatever lets events run may close the file under a command that waits.
TEST_F(RecordFile, AFileClosedDuringAWaitEndsTheCommand) {
  for (const std::string_view command :
       {"AdicionaRegistro Gente", "AtualizaRegistro Gente, 0", "LeRegistro Gente, 0", "OrdemBD Gente, Nome",
        "Gente.Nome = \"12345678901\";AdicionaRegistro Gente"}) {
    std::filesystem::remove(File());
    WithPeople(kThree);
    std::string bytes = ReadBytes(File());
    bytes[0] = '1';
    WriteBytes(File(), bytes);
    program.emplace(folder.path(), false);
    program->events.meanwhile = [&] { program->commands.CommandCall("FECHABD", "Gente"); };
    EXPECT_EQ(program->Run(std::string(kPeople).append(command)), "falha 52\n") << command;
    EXPECT_EQ(ReadBytes(File()).substr(110), bytes.substr(110)) << command;
  }
}

TEST_F(RecordFile, AFileClosedByABoxEndsTheCommand) {
  WithPeople("");
  program.emplace(folder.path());
  program->dialogs.meanwhile = [&] { program->commands.CommandCall("FECHABD", "Gente"); };
  EXPECT_EQ(program->Run(std::string(kPeople).append("Gente.Nome = \"12345678901\";AdicionaRegistro Gente")),
            "falha 52\n");
  EXPECT_EQ(Header(tsa::kCount), "0");
}

// Under an open file, whose first page is memory: one that was cut is used as the system tells of it.
TEST_F(RecordFile, AFileCutToNothingIsNotWaitedForAndACutOneIsWrittenAsBefore) {
  constexpr std::string_view kInserts =
      "Gente.Nome = \"12345678901\";AdicionaRegistro Gente;Gente.Nome = \"b\";AdicionaRegistro Gente;Escreva "
      "TotalRegistrosBD(\"Gente\")";
  for (const std::size_t size : {0u, 5u, 20u, 134u, 135u, 4095u, 4096u, 20000u}) {
    std::array<std::string, 2> told, left;
    for (const bool plain : {false, true}) {
      std::filesystem::remove(File());
      WithPeople("");
      program.emplace(folder.path());
      program->run.plain = plain;
      program->dialogs.meanwhile = [&] { std::filesystem::resize_file(File(), size); };
      told[plain] = program->Run(std::string(kPeople).append(kInserts));
      left[plain] = ReadBytes(File());
    }
    EXPECT_EQ(told[0], told[1]) << size;
    EXPECT_EQ(left[0], left[1]) << size;
    if (size == 0 || size >= 20) {
      EXPECT_EQ(told[0], size == 0 ? "falha 62\n" : "2\n") << size;
    }
  }
}

TEST_F(RecordFile, ACutHeaderIsMadeWholeAgain) {
  WithPeople("");
  std::filesystem::resize_file(File(), 1200);
  now += std::chrono::seconds(1);
  WithPeople("");
  EXPECT_EQ(Header(tsa::kLastRun), "01/01/1970 00:00:01");
  EXPECT_EQ(ReadBytes(File()).size(), 20000u);
  EXPECT_EQ(Header(tsa::kName), "Gente");
  EXPECT_EQ(ReadBytes(File()).substr(1200), std::string(18800, ' '));
}

// The record is encoded before its file is looked for.
TEST_F(RecordFile, TheSizeIsToldBeforeTheClosedFile) {
  EXPECT_EQ(WithPeople("FechaBD Gente;Gente.Nome = \"12345678901\";AdicionaRegistro Gente"), "falha 52\n");
  EXPECT_EQ(Boxes().size(), 1u);
}

class RecordOrder : public RecordFile {};

TEST_F(RecordOrder, AFailureWhileRebuildingLeavesPositionsPhysical) {
  WithPeople(kThree);
  std::string bytes = ReadBytes(File());
  bytes.replace(19999 + 2 * kPeopleLength, 15, std::string(15, ' '));
  WriteBytes(File(), bytes);
  EXPECT_EQ(WithPeople("Ordena()\nLeRegistro Gente, 0;Escreva Gente.Nome;FimPrograma\nSub Ordena()\nOrdemBD "
                       "Gente, Nome\nFimSub"),
            "Zeca\n");
}

// Databases of random content, damaged ones among them: both ways of rebuilding give the same entries, leave
// the same variables and fail alike.
TEST_F(RecordOrder, QuickEntriesAreThoseOfPlainReading) {
  std::mt19937 random(41);
  for (int round = 0; round < 60; ++round) {
    WithPeople("");
    std::string source;
    for (auto n = random() % 8; n > 0; --n) {
      source += "Gente.Nome = \"" + std::string(random() % 11, static_cast<char>('a' + random() % 26)) +
                "\";Gente.Idade = " + std::to_string(random() % 1000) +
                ";Gente.Peso = " + std::to_string(random() % 99) + ".25;AdicionaRegistro Gente\n";
      if (random() % 4 == 0) source += "ExcluiRegistro Gente, 0\n";
    }
    WithPeople(source);
    if (round % 3 == 0) {
      std::string bytes = ReadBytes(File());
      if (bytes.size() > 20000) bytes[19999 + random() % (bytes.size() - 19999)] = ' ';
      WriteBytes(File(), bytes);
    }
    const auto outcome = [&](bool quick) {
      RecordProgram reader(folder.path(), quick);
      std::string text = reader.Run(
          std::string(kPeople).append("Ordena()\nEscreva Gente.Nome, Gente.Idade, Gente.Peso\nVar i Inteiro\n"
                                      "Enquanto i < TotalRegistrosBD(\"Gente\");LeRegistro Gente, i;Escreva "
                                      "Gente.Nome;i++;Repita\nFimPrograma\n"
                                      "Sub Ordena()\nOrdemBD Gente, Idade, Nome\nFimSub"));
      for (const std::string& box : reader.Boxes()) text += box;
      return text;
    };
    ASSERT_EQ(outcome(true), outcome(false)) << source;
    std::filesystem::remove(File());
  }
}

class Procure : public RecordFile {
 protected:
  std::string Found(std::string_view mode, std::string_view name) {
    return WithPeople(std::string("OrdemBD Gente, Nome;Escreva Procure(\"Gente\", \"")
                          .append(mode)
                          .append("\", \"")
                          .append(name)
                          .append("\")"));
  }
};

// In the order they stand where they are sought.
TEST_F(Procure, FindsEachRecordThatTheOrderHolds) {
  const Texts names = {"Água",   "bola", "Carlos", "Élida",  "elo", "Ênio",
                       "ínfimo", "Óleo", "ovo",    "Última", "Zeca"};
  std::string fill;
  for (const std::string& name : names) fill += "Gente.Nome = \"" + name + "\";AdicionaRegistro Gente;";
  WithPeople(fill);
  for (std::size_t i = 0; i < names.size(); ++i)
    EXPECT_EQ(Found("X", names[i]), std::to_string(i) + "\n") << names[i];
}

class Cleaning : public RecordFile {};

TEST_F(Cleaning, KeepsTheLiveRecordsAndRenumbersAFirstAutoInc) {
  program.emplace(folder.path());
  program->Run(
      "BD N, d\nId, AutoInc\nT, String, 3\nFimBD\nAbreBD N\nVar i Inteiro\n"
      "Enquanto i < 12;N.T = i;AdicionaRegistro N;i++;Repita\n"
      "i = 1;Enquanto i < 10;ExcluiRegistro N, i;i++;Repita\nFechaBD N;LimpaBD N;AbreBD N");
  EXPECT_TRUE(program->Boxes().empty());
  EXPECT_FALSE(std::filesystem::exists(folder.path() / "d" / "Temp.Tsa"));
  const std::string bytes = ReadBytes(folder.path() / "d" / "N.Tsa");
  EXPECT_EQ(bytes.size(), 19999u + 3 * 17);
  const std::string count = std::string(SlotOf(bytes, tsa::kCount)).substr(kEncodedOverhead + 1);
  EXPECT_EQ(count, std::string(count.size(), ' ')) << "nothing of the longer count is left";
  program.emplace(folder.path());
  EXPECT_EQ(
      program->Run("BD N, d\nId, AutoInc\nT, String, 3\nFimBD\nLimpaBD N;AbreBD N\nVar i Inteiro\ni = 0\n"
                   "Enquanto i < 3;LeRegistro N, i;Escreva N.Id, N.T;i++;Repita"),
      "00\n110\n211\n");
}

TEST_F(Cleaning, TheHeadersLastByteComesFromTheOldFile) {
  WithPeople(std::string(kThree).append("ExcluiRegistro Gente, 0;FechaBD Gente;LimpaBD Gente"));
  const std::string bytes = ReadBytes(File());
  EXPECT_EQ(bytes[19999], 2);  // the length of the mark of deletion, not of the name that stands there now
  EXPECT_EQ(bytes.size(), 19999 + 2 * kPeopleLength);
}

TEST_F(Cleaning, AStaleTemporaryFileForbidsIt) {
  WithPeople(kThree);
  const std::string before = ReadBytes(File());
  WriteBytes(folder.path() / "dados" / "Temp.Tsa", "");
  WithPeople("FechaBD Gente;LimpaBD Gente");
  EXPECT_EQ(
      Boxes(),
      (Texts{"Há outro usuário efetuando a rotina de limpeza !|Se tiver certeza que não há nenhum usuário "
             "efetuando esta rotina,|apague o arquivo dados\\Temp.Tsa"}));
  EXPECT_EQ(ReadBytes(File()).size(), before.size());
}

TEST_F(Cleaning, AFileThatIsStillOpenIsNotReplaced) {
  EXPECT_EQ(WithPeople(std::string(kThree).append("LimpaBD Gente;Escreva 1")), "falha 70\n");
  EXPECT_FALSE(std::filesystem::exists(File("Temp")));
  EXPECT_EQ(WithPeople("LeRegistro Gente, 2;Escreva Gente.Nome"), "Ana\n");
}

TEST_F(Cleaning, ClosesTheFileWhoseNumberIsTheSlots) {
  program.emplace(folder.path());
  EXPECT_EQ(program->Run("BD A, d\nN, Inteiro\nFimBD\nBD B, d\nN, Inteiro\nFimBD\nAbreBD A\nLimpaBD B\n"
                         "Escreva TotalRegistrosBD(\"A\")"),
            "0\n");  // number 1 is B's now, which is what is read
}

TEST(SortedList, KeepsTheOrderOfFoldedCharacters) {
  SortedList list;
  for (const std::string_view text : {"b"_w, "A"_w, "é"_w, "Z"_w, "€"_w, "a"_w, ""_w}) {
    list.Add(std::string(text) + "000001");
  }
  list.Add(std::string("\0x000001", 8));
  list.Add("A000000");
  std::string joined;
  for (std::size_t i = 0; i < list.size(); ++i) {
    joined.append(list.At(i).substr(0, list.At(i).size() - 6)).append(list.At(i).ends_with('0') ? "0" : "");
  }
  EXPECT_EQ(joined, std::string("\0x", 2) + std::string("A0AabéZ€"_w));
  EXPECT_EQ(list.At(99), "");
}

TEST(SortedList, AddingAndFillingGiveTheSameList) {
  std::mt19937 random(23);
  std::vector<std::string> texts;
  for (int i = 0; i < 9000; ++i) {
    std::string text;
    for (auto n = random() % 12; n > 0; --n)
      text.push_back(static_cast<char>(random() % 3 == 0 ? random() : 'a'));
    texts.push_back(text + std::to_string(i));
  }
  SortedList added, filled;
  for (const std::string& text : texts) added.Add(text);
  filled.Fill({"z000001", "a000000"});
  filled.Fill(texts);
  while (added.size() > 0) {
    ASSERT_EQ(added.size(), filled.size());
    const std::size_t place = random() % added.size();
    ASSERT_EQ(added.At(place), filled.At(place));
    added.Remove(place);
    filled.Remove(place);
  }
}

// Runs `body` in a process of its own.
template <typename Body>
pid_t Fork(Body body) {
  const pid_t child = fork();
  if (child == 0) {
    body();
    _exit(0);
  }
  return child;
}

constexpr std::string_view kQueue =
    "BD Fila, d\nId, AutoInc\nQuem, Inteiro\nVez, Inteiro\nFimBD\nAbreBD Fila\n";

// Every second one goes through the system alone, as over a net.
void Insert(const std::filesystem::path& folder, int who, int times) {
  RecordProgram program(folder);
  program.run.plain = who % 2 == 1;
  program.Run(std::string(kQueue) + "Var i Inteiro;Fila.Quem = " + std::to_string(who) + ";Enquanto i < " +
              std::to_string(times) + ";Fila.Vez = i;AdicionaRegistro Fila;i++;Repita");
}

struct Queue {
  std::size_t count = 0;
  std::size_t blank = 0;
  std::set<std::pair<int, int>> entries;
};

Queue ReadQueue(const std::filesystem::path& file) {
  Queue queue;
  const std::string bytes = ReadBytes(file);
  queue.count = std::stoul(DecodeText(SlotOf(bytes, tsa::kCount)));
  for (std::size_t i = 0; i < queue.count; ++i) {
    const std::string record = bytes.substr(19999 + 27 * i, 27);
    if (record == std::string(27, ' ')) {
      ++queue.blank;
      continue;
    }
    const bool fresh =
        queue.entries
            .emplace(IntegerOf(DecodeText(record.substr(9, 9))), IntegerOf(DecodeText(record.substr(18, 9))))
            .second;
    EXPECT_TRUE(fresh) << "record " << i << " is a double";
  }
  return queue;
}

TEST(SeveralProcesses, LoseNoInsertAndDoubleNone) {
  constexpr int kProcesses = 8;
  constexpr int kTimes = 500;
  const TemporaryFolder folder;
  std::vector<pid_t> children;
  for (int who = 0; who < kProcesses; ++who)
    children.push_back(Fork([&] { Insert(folder.path(), who, kTimes); }));
  for (const pid_t child : children) {
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
  }
  const Queue queue = ReadQueue(folder.path() / "d" / "Fila.Tsa");
  EXPECT_EQ(queue.count, static_cast<std::size_t>(kProcesses * kTimes));
  EXPECT_EQ(queue.entries.size(), queue.count);
}

TEST(SeveralProcesses, KilledOnesLeaveAtMostOneBlankRecordEach) {
  const TemporaryFolder folder;
  std::mt19937 random(31);
  Insert(folder.path(), 99, 1);
  int killed = 0;
  for (int round = 0; round < 12; ++round) {
    std::vector<pid_t> children;
    for (int i = 0; i < 4; ++i)
      children.push_back(Fork([&, who = round * 4 + i] { Insert(folder.path(), who, 100000); }));
    std::this_thread::sleep_for(std::chrono::milliseconds(5 + random() % 20));
    for (const pid_t child : children) {
      kill(child, SIGKILL);
      int status = 0;
      waitpid(child, &status, 0);
      ++killed;
    }
  }
  // The next one neither waits for the dead nor finds a damaged count.
  Insert(folder.path(), 77, 10);
  const Queue queue = ReadQueue(folder.path() / "d" / "Fila.Tsa");
  EXPECT_LE(queue.blank, static_cast<std::size_t>(killed));
  EXPECT_EQ(queue.entries.size() + queue.blank, queue.count);
  EXPECT_TRUE(queue.entries.contains({77, 9}));
}

TEST(SeveralProcesses, AForeignBusyByteMakesOursWait) {
  const TemporaryFolder folder;
  Insert(folder.path(), 1, 1);
  const auto file = folder.path() / "d" / "Fila.Tsa";
  std::string bytes = ReadBytes(file);
  SystemFiles files;
  const auto setByte = [&](char byte) { BinaryFile::Open(files, file.string())->Write(1, {&byte, 1}); };
  setByte('1');
  const pid_t child = Fork([&] { Insert(folder.path(), 2, 1); });
  std::this_thread::sleep_for(std::chrono::milliseconds(80));
  EXPECT_EQ(waitpid(child, nullptr, WNOHANG), 0);
  EXPECT_EQ(ReadQueue(file).count, 1u);
  setByte('0');
  waitpid(child, nullptr, 0);
  EXPECT_EQ(ReadQueue(file).count, 2u);
}

}  // namespace
}  // namespace tessera
