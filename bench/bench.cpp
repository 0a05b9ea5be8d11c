// Measures the built programs as processes: what statements, records, drawings and start-up cost. Prints one
// table, with the goal beside each figure that has one, and fails where one is missed by more than a tenth;
// nothing here is a test. The grid is measured within this one. Called by bench/run:
// tessera_bench FOLDER-OF-BENCH TESSERA [PART]
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "grid_times.h"
#include "process.h"
#include "sqlite_records.h"
#include "table.h"
#include "work.h"

namespace tessera::bench {
namespace {

namespace fs = std::filesystem;

// 200 figures of 32 by 32 pixels that move over a ground of 800 by 600, picture after picture.
fs::path WriteFiguresProgram(const fs::path& folder, int pictures) {
  fs::path program = folder / "figures.tsc";
  std::ofstream file(program);
  file << "Var quadro Inteiro, x Inteiro\n"
       << "Janela Tamanho = 40.91, 100\nJanela Resolucao = 600, 800\nJanela Fundo = ImgPantano\n";
  for (int i = 0; i < 200; ++i) {
    file << "Figura F" << i << ", \"" << (i % 2 == 0 ? "FigBola" : "FigTerra") << "\", " << i * 7 % 568
         << ", 0\n";
  }
  file << "Enquanto quadro < " << pictures << "\nx = quadro % 100\n";
  for (int i = 0; i < 200; ++i) file << "Figura F" << i << ".Coluna = x + " << i * 31 % 660 << "\n";
  file << "DesenheFiguras\nquadro++\nRepita\nFimJanela\n";
  return program;
}

// A window in which a program computes, draws and moves an object, turn after turn.
fs::path WriteWindowProgram(const fs::path& folder, int turns) {
  fs::path program = folder / "window.tsc";
  std::ofstream(program) << "Var volta Inteiro, x Inteiro, y Inteiro\nJanela Tamanho = 25, 80\n"
                         << "Botao Meio, 1, 1, \"Aqui\"\nEnquanto volta < " << turns << "\n"
                         << "x = volta % 60\ny = x * 3\nSe y > 90\ny = y - 90\nFimSe\n"
                         << "LinhaReta 1, 1, 20, x, Azul\nCirculo 12, x, 2, Vermelho\n"
                         << "Botao Meio.Coluna = x\nvolta++\nRepita\nFimJanela\n";
  return program;
}

class Bench {
 public:
  Bench(fs::path programs, std::string tessera) {
    std::string pattern = (fs::temp_directory_path() / "tessera-bench-XXXXXX").string();
    place_ = {fs::absolute(programs), fs::absolute(tessera), mkdtemp(pattern.data())};
  }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;
  ~Bench() { fs::remove_all(place_.scratch); }

  bool Measure(std::string_view part) {
    constexpr std::pair<std::string_view, void (Bench::*)()> kParts[] = {
        {"work", &Bench::Work},       {"start", &Bench::StartUp},   {"records", &Bench::Records},
        {"grid", &Bench::Grid},       {"windows", &Bench::Windows}, {"files", &Bench::Files},
        {"reports", &Bench::Reports}, {"sql", &Bench::Sql}};
    for (const auto& [name, measure] : kParts) {
      if (part.empty() || name == part) (this->*measure)();
    }
    return table_.End();
  }

 private:
  void Work() { MeasureWork(place_, table_); }

  void StartUp() {
    constexpr int kManyRounds = 50;
    table_.Begin("start");
    const fs::path ten = Write("ten.tsc",
                               "Escreva 1\nEscreva 2\nEscreva 3\nEscreva 4\nEscreva 5\nEscreva 6\n"
                               "Escreva 7\nEscreva 8\nEscreva 9\nFimJanela\n");
    Tell("ten lines on the console", Run({place_.tessera, "run", "--console", ten.string()}, kManyRounds),
         2.1);
    RunOnce({place_.tessera, "build", ten.string()});
    OffScreen(
        [&] { Tell("ten lines, packed, window off screen", Run({(place_.scratch / "ten").string()})); });
    const fs::path straight = WriteStraightProgram(place_.scratch, 20000, 1);
    Tell("check of 20,000 lines", Run({place_.tessera, "check", straight.string()}));
    const auto peak = [&](int rounds) {
      return RunOnce({place_.tessera, "run", "--console", Everything(rounds).string()}).peak;
    };
    const double after = peak(200);
    table_.Add({"memory grown by ten times the work", peak(2000) - after, "MB", 1});
  }

  // Each program goes on with the file that the ones before it left.
  void Records() {
    constexpr double kRecords = 100'000;
    table_.Begin("records");
    fs::copy(place_.programs / "records", place_.scratch / "records");
    const SqliteTimes sqlite = MeasureSqlite((place_.scratch / "gente.db").string());
    const auto measure = [&](const char* name, const char* what, double goal, double sqliteMilliseconds) {
      const fs::path program = place_.scratch / "records" / (std::string(name) + ".tsc");
      const Measured measured = RunOnce({place_.tessera, "run", "--console", program.string()});
      table_.Add({what, measured.busy * 1e3 / kRecords, "us", goal,
                  "SQLite " + std::to_string(sqliteMilliseconds * 1e3 / kRecords).substr(0, 4)});
    };
    measure("insert", "record inserted", 2.2, sqlite.insert);
    measure("read", "record read", 1.6, sqlite.read);
    measure("order", "record put in order", 0, sqlite.order);
    measure("find", "record put in order and sought", 4.3, sqlite.order + sqlite.find);
    measure("update", "record updated", 0, sqlite.update);
  }

  void Grid() {
    const GridTimes times = MeasureGrid();
    constexpr double kCells = double{kGridRows} * kGridColumns;
    constexpr double kProgramCells = 1'000'000;
    table_.Begin("grid of 1,000,000 rows, 5 columns");
    table_.Add({"the slowest page", times.slowestPage, "ms", 4});
    table_.Add({"a page, on the whole", times.pages / times.pageCount, "ms"});
    table_.Add({"cell filled", times.fill * 1e6 / kCells, "ns"});
    const Measured program =
        Run({place_.tessera, "run", "--console", (place_.programs / "grid.tsc").string()}, 2);
    table_.Add({"cell filled by a program", program.busy * 1e6 / kProgramCells, "ns"});
    table_.Add({"sorted by a text", times.sortText, "ms"});
    table_.Add({"sorted by a number", times.sortNumber, "ms"});
    table_.Add({"a cell", times.bytesPerCell, "bytes"});
    table_.Add({"a cell with attributes", times.bytesPerCellWithAttributes, "bytes"});
    table_.Add({"characters in a cell", times.charactersPerCell, ""});
  }

  void Windows() {
    constexpr int kTurns = 20'000;
    constexpr int kPictures = 300;
    table_.Begin("windows");
    const fs::path turns = WriteWindowProgram(place_.scratch, kTurns);
    const fs::path figures = WriteFiguresProgram(place_.scratch, kPictures);
    const auto measure = [&](const std::string& where, std::vector<std::string> words) {
      words.push_back(turns.string());
      table_.Add({"a turn of computing, drawing, moving" + where, Run(words, 2).busy * 1e3 / kTurns, "us"});
      words.back() = figures.string();
      table_.Add({"200 moving figures" + where, Run(words, 2).busy * 1e3 / kPictures, "us"});
    };
    measure(", console", {place_.tessera, "run", "--console"});
    OffScreen([&] { measure(", window", {place_.tessera, "run"}); });
    setenv("QT_SCALE_FACTOR", "2", 1);
    OffScreen([&] { measure(", window at 2x", {place_.tessera, "run"}); });
    unsetenv("QT_SCALE_FACTOR");
  }

  // 300 files of 1 KB, into a package and out of it.
  void Files() {
    constexpr double kMoves = 600;
    table_.Begin("files");
    fs::copy_file(place_.programs / "package.tsc", place_.scratch / "package.tsc");
    const Measured measured =
        RunOnce({place_.tessera, "run", "--console", (place_.scratch / "package.tsc").string()});
    table_.Add({"file of 1 KB in or out of a package", measured.busy * 1e3 / kMoves, "us"});
  }

  // Page files and preview, and one PDF; then what the first page of a program costs.
  void Reports() {
    table_.Begin("report of 1,000 pages, 60 x 5");
    const std::string report = (place_.scratch / "report.tsc").string();
    fs::copy_file(place_.programs / "report.tsc", report);
    Tell("previewed on the console", RunOnce({place_.tessera, "run", "--console", report, "--", "VIDEO"}));
    Tell("printed to a PDF", RunOnce({place_.tessera, "run", "--console", "--printer",
                                      (place_.scratch / "report.pdf").string(), report, "--", "IMPRESSORA"}));
    const fs::path one = Write("one.tsc", "Rel.Config \"SAIDA:VIDEO\"\nRel.Add \"x\"\nRel.Fim\nFimJanela\n");
    Tell("one page, previewed on the console", Run({place_.tessera, "run", "--console", one.string()}));
  }

  // SQLite through the word SQL, beside the same work in CPython.
  void Sql() {
    table_.Begin("sql");
    fs::copy(place_.programs / "sql", place_.scratch / "sql");
    const auto run = [&](const char* name) {
      return RunOnce({place_.tessera, "run", "--console", (place_.scratch / "sql" / name).string()});
    };
    const auto python = [&](const std::string& work) {
      const std::string file = (place_.scratch / "python.db").string();
      const Measured other =
          RunOnce({"python3", "-c",
                   "import sqlite3\nc = sqlite3.connect('" + file + "', isolation_level=None)\n" + work});
      return "CPython " + std::to_string(static_cast<int>(other.busy)) + " ms";
    };
    table_.Add({"10,000 records inserted", run("fill.tsc").busy, "ms", 0,
                python("c.execute('PRAGMA synchronous = OFF')\n"
                       "c.execute('CREATE TABLE gente (id INTEGER PRIMARY KEY, nome TEXT, cidade TEXT, "
                       "idade INTEGER, limite REAL)')\n"
                       "for i in range(10000): c.execute('INSERT INTO gente (nome, cidade, idade, limite) "
                       "VALUES (?, ?, ?, ?)', ('Maria da Silva', 'Florianopolis', 33, 1234.5))\n")});
    run("more.tsc");
    fs::copy_file(place_.scratch / "sql" / "medida.db", place_.scratch / "python.db",
                  fs::copy_options::overwrite_existing);
    table_.Add({"rows opened and counted", run("open.tsc").busy, "ms"});
    table_.Add({"rows opened, walked, five fields read", run("walk.tsc").busy, "ms", 0,
                python("n = 0\nfor id, nome, cidade, idade, limite in c.execute('SELECT * FROM gente'): "
                       "n += 1\n")});
  }

  fs::path Write(const char* name, const char* text) const {
    fs::path program = place_.scratch / name;
    std::ofstream(program) << text;
    return program;
  }

  // Texts, routines, files, objects and drawings, made and dropped, so many times.
  fs::path Everything(int rounds) const {
    fs::path program = place_.scratch / "everything.tsc";
    std::ofstream(program) << "Var n Inteiro, t String, k Inteiro\nEnquanto n < " << rounds << "\n"
                           << "t = \"linha \" & n\nk = Dobro(n)\nConta()\n"
                           << "AbreArquivo \"S\", \"tudo.txt\", \"TEXTOGRAVACAO\"\n"
                           << "GravaArquivo \"S\", t\nFechaArquivo \"S\"\n"
                           << "Circulo 5, 5, 3, Azul\nn++\nRepita\nFimJanela\nFimPrograma\n"
                           << "Sub Conta()\nk++\nFimSub\n"
                           << "Funcao Dobro(a Inteiro) Numero\nRetorne a + a\nFimFuncao\n";
    return program;
  }

  void Tell(const char* what, const Measured& measured, double goal = 0) {
    table_.Add({what, measured.busy, "ms", goal,
                std::to_string(static_cast<int>(measured.elapsed)) + " ms elapsed, " +
                    std::to_string(static_cast<int>(measured.peak)) + " MB"});
  }

  template <typename Act>
  static void OffScreen(Act act) {
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    act();
    unsetenv("QT_QPA_PLATFORM");
  }

  Place place_;
  Table table_;
};

}  // namespace
}  // namespace tessera::bench

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::fprintf(stderr, "tessera_bench FOLDER-OF-BENCH TESSERA [PART]\n");
    return 2;
  }
  tessera::bench::Bench bench(argv[1], argv[2]);
  return bench.Measure(argc == 4 ? argv[3] : "") ? 0 : 1;
}
