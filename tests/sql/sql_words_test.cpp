// The word `SQL` over a connection without a database: what its paths mean, what a program reads back, and
// what the connection is told.
#include "sql/sql_commands.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "commands/command_table.h"
#include "sql/fake_connection.h"
#include "support/core_program.h"
#include "text/code_page.h"

namespace tessera::test {

namespace {

class SqlWords : public testing::Test {
 protected:
  // Each connection has three rows, and tells `log` what it is told.
  class Logged final : public FakeConnection {
   public:
    Logged(std::vector<std::string>& toldTo, const std::string& path) : told_(toldTo) {
      rows = {{Integer(1), Text("Ana")}, {Integer(2), Text("Bia")}, {Integer(3), Text("Caio")}};
      told_.push_back("open " + path);
    }
    ~Logged() override {
      told_.insert(told_.end(), log.begin(), log.end());
      told_.emplace_back("close");
    }
    Logged(const Logged&) = delete;
    Logged& operator=(const Logged&) = delete;

    std::unique_ptr<sql::RowReader> Query(const SqlChange& query) override {
      if (query.text == "SELECT nada") rows.clear();
      if (query.text == "SELECT falha") throw sql::SqlError(std::string_view("falhou"));
      return FakeConnection::Query(query);
    }

   private:
    std::vector<std::string>& told_;
  };

  struct Provider final : sql::SqlProvider {
    explicit Provider(std::vector<std::string>& toldTo) : log(toldTo) {}
    std::unique_ptr<sql::SqlConnection> Open(const sql::ConnectionTarget& target) override {
      return std::make_unique<Logged>(log, target.path);
    }
    std::vector<std::string>& log;
  };

  SqlWords() {
    AtWord(program.run, "SQL",
           [this](std::string_view arguments) { return words_.commands.CommandCall("SQL", arguments); });
  }

  std::vector<std::string> log;
  CoreProgram program;

 private:
  // A table of commands takes the door that it finds; the program's own gets it back.
  struct Words {
    Words(tessera::Run& run, Provider& provider)
        : before(run.doors.CommandCall),
          commands(run),
          sql(commands, run, [&]() -> sql::SqlProvider& { return provider; }) {
      run.doors.CommandCall = before;
    }
    std::function<Value(std::string_view, const ArgumentText&)> before;
    CommandTable commands;
    sql::SqlCommands sql;
  };

  Provider provider_{log};
  Words words_{program.run, provider_};
};

using Lines = std::vector<std::string>;

}  // namespace

TEST_F(SqlWords, EachMoveTellsWhereItStands) {
  EXPECT_EQ(
      program.Run("Var n Inteiro, s String, p String\nSQL b.Abre \"um.db\"\n"
                  "SQL B.t.Abre \"SELECT x\", \"ESTATICO\", \"OTIMISTA\"\nMostra()\n"
                  "SQL B.T.MoveProximo\nMostra()\nSQL B.T.MoveUltimo\nMostra()\n"
                  "SQL B.T.MoveProximo\nMostra()\nSQL B.T.MoveAnterior\nMostra()\n"
                  "SQL B.T.MovePrimeiro\nMostra()\nSQL B.T.MoveAnterior\nMostra()\n"
                  "SQL B.T.MoveProximo\nMostra()\nSQL B.T.Edita\nMostra()\n"
                  "SQL B.T.Procure \"id = 3\"\nMostra()\nSQL B.T.Procure \"id = 9\"\nMostra()\n"
                  "n = SQL(B.T.TotalRegistros)\nEscreva n\nMostra()\n"
                  "SQL B.V.Abre \"SELECT nada\"\nEscreva PonteiroSQL\n"
                  "n = SQL(B.V.TotalRegistros)\nEscreva n\nSQL B.V.MovePrimeiro\nEscreva PonteiroSQL\n"
                  "SQL B.Fecha\n"
                  "FimPrograma\n"
                  "Sub Mostra()\ns = \"\"\ns = SQL(B.T.nome)\np = SQL(B.T.Ponteiro)\n"
                  "Escreva s, \" \", p, \" \", PonteiroSQL\nFimSub\n"),
      "Ana OK OK\nBia OK OK\nCaio OK OK\n EOF EOF\nCaio OK OK\nAna OK OK\n BOF BOF\nAna OK OK\nAna OK OK\n"
      "Caio OK OK\n EOF EOF\n3\nAna EOF EOF\nEOF\n0\nBOF\n");
  const std::string none =
      "Editor: 0 Linha: 38||SQL Error Não há registro corrente: o ponteiro está em BOF ou EOF, ou o registro "
      "foi excluído.";
  EXPECT_EQ(program.Boxes(), Lines(3, none)) << "a field is read at both ends, and behind what was not found";
}

// From the first record on.
TEST_F(SqlWords, ASearchFindsTheFirstThatFits) {
  std::string source =
      "Var s String\nSQL B.Abre \"um.db\"\nSQL B.T.Abre \"SELECT x\", \"ESTATICO\", \"OTIMISTA\"\n";
  std::string found;
  for (const auto& [criteria, name] :
       std::initializer_list<std::pair<std::string, std::string>>{{"id = 2", "Bia"},
                                                                  {"id <> 1", "Bia"},
                                                                  {"id < 2", "Ana"},
                                                                  {"id <= 1", "Ana"},
                                                                  {"id < 1", "EOF"},
                                                                  {"id > 2", "Caio"},
                                                                  {"id >= 3", "Caio"},
                                                                  {"id >= 2", "Bia"},
                                                                  {"id > 3", "EOF"},
                                                                  {"nome > 'Ana'", "Bia"},
                                                                  {"nome LIKE 'C*'", "Caio"},
                                                                  {"nome LIKE '*i*'", "Bia"}}) {
    source += "SQL B.T.MovePrimeiro\nSQL B.T.Procure \"" + criteria + "\"\ns = PonteiroSQL\n" +
              "Se s = \"OK\"\ns = SQL(B.T.nome)\nFimSe\nEscreva \"" + criteria + ": \", s\n";
    found += criteria + ": " + name + "\n";
  }
  EXPECT_EQ(program.Run(source), found);
}

TEST_F(SqlWords, WhatIsWrittenReachesTheConnection) {
  EXPECT_EQ(
      program.Run("Var s String, n Inteiro\nn = 4\nSQL B.Abre \"um.db\", \"USESERVIDOR\"\n"
                  "SQL B.Execute \"CREATE TABLE t (a, b)\"\n"
                  "SQL B.T.Abre \"SELECT x\"\n"
                  "SQL B.T.nome = \"Zé\"\nSQL B.T.Atualiza\n"
                  "SQL B.T.MoveProximo\nSQL B.T.nome = n + 1\nSQL B.T.Atualiza\n"
                  "SQL B.T.Remove\n"
                  "SQL B.T.Adiciona\nSQL B.T.id = n\nSQL B.T.nome = \"a + b\"\nSQL B.T.Atualiza\n"
                  "SQL B.T.Fecha\nSQL B.Fecha\nSQL B.Fecha\nSQL C.Abre \"dois.db\"\nEscreva PonteiroSQL\n"),
      "OK\n");
  EXPECT_EQ(log, (Lines{"open ./um.db", "CREATE TABLE t (a, b)",
                        "UPDATE t SET nome = 'Zé' WHERE id = 1 AND nome = 'Ana'",
                        "UPDATE t SET nome = '5' WHERE id = 2 AND nome = 'Bia'",
                        "DELETE FROM t WHERE id = 2 AND nome = '5'",
                        "INSERT INTO t (id, nome) VALUES (4, 'a + b')", "close", "open ./dois.db"}));
  EXPECT_EQ(program.Boxes(), Lines{});
}

TEST_F(SqlWords, WhatIsMissingIsToldAndLeavesWhatWasThere) {
  EXPECT_EQ(
      program.Run("Var s String, n Inteiro\ns = \"fica\"\n"
                  "SQL B.Abre \"um.db\"\nSQL B.T.Abre \"SELECT falha\"\nSQL B.T.MoveProximo\n"
                  "SQL B.T.Abre \"SELECT x\", \"ESTATICO\"\nSQL B.T.Abre \"SELECT x\"\n"
                  "s = SQL(B.T.voa)\ns = SQL(C.T.nome)\nEscreva s\n"
                  "SQL B.T.Voa 1\nSQL B.T.a.b\nSQL B\nSQL B.Voa\nSQL C.Execute \"x\"\nSQL C.T.Abre \"x\"\n"
                  "SQL B.L.Abre \"SELECT x\", \"ESTATICO\", \"SOMENTELEITURA\"\nSQL B.L.nome = \"x\"\n"
                  "Enquanto n < 9\nn++\nSQL B.Mais.Abre \"SELECT x\"\nRepita\n"
                  "SQL B.Mais.Fecha\nSQL B.Outra.Abre \"SELECT x\"\n"
                  "n = 1\nEnquanto n < 11\nn++\nSQL D.Abre \"d.db\"\nRepita\n"
                  "SQL B.Fecha\nSQL B.T.MoveProximo\nSQL E.Abre \"e.db\"\n"),
      "fica\n");
  EXPECT_EQ(program.Boxes(),
            (Lines{"Editor: 0 Linha: 4||SQL Error falhou", "Nome da tabela não encontrada: T",
                   "Erro: Se informar o tipo do cursor, deve informar também o tipo do bloqueio!",
                   "Editor: 0 Linha: 8||SQL Error Campo não encontrado: VOA",
                   "Nome do banco de dados não encontrado: C",
                   "Editor: 0 Linha: 11||SQL Error Campo não encontrado: Voa 1",
                   "Editor: 0 Linha: 12||SQL Error Comando desconhecido: b",
                   "Editor: 0 Linha: 13||SQL Error Comando desconhecido: B",
                   "Editor: 0 Linha: 14||SQL Error Comando desconhecido: Voa",
                   "CriaTabelaSQL: Nome do banco de dados não encontrado!",
                   "CriaTabelaSQL: Nome do banco de dados não encontrado!",
                   "Editor: 0 Linha: 18||SQL Error A tabela foi aberta somente para leitura.",
                   "CriaTabelaSQL: Mais de 10 tabelas abertas ao mesmo tempo para um mesmo Banco de Dados!|"
                   "Utilize o comando FechaTabSQL para liberar espaço!",
                   "AbreBDSQL: Não pode abrir mais de 10 arquivos de banco de dados!",
                   "Nome do banco de dados não encontrado: B",
                   "AbreBDSQL: Não pode abrir mais de 10 arquivos de banco de dados!"}));
}

}  // namespace tessera::test
