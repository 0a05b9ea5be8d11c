// Measures the built programs as processes: nanoseconds per statement, peak memory, start-up. Prints a table;
// nothing here is a test. The grid is measured within this one. Called by bench/run:
// tessera_bench FOLDER-OF-BENCH TESSERA [PART]
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "grid_times.h"
#include "sqlite_records.h"

namespace {

namespace fs = std::filesystem;

constexpr int kRounds = 5;

struct Measured {
  double milliseconds;
  long peakKilobytes;
};

// One process, silent and with no input; ends the benchmark where it fails.
Measured RunOnce(const std::vector<std::string>& words) {
  const auto start = std::chrono::steady_clock::now();
  const pid_t child = fork();
  if (child == 0) {
    const int nothing = open("/dev/null", O_RDWR);
    dup2(nothing, STDIN_FILENO);
    dup2(nothing, STDOUT_FILENO);
    std::vector<std::string> copies = words;
    std::vector<char*> arguments;
    arguments.reserve(copies.size() + 1);
    for (std::string& copy : copies) arguments.push_back(copy.data());
    arguments.push_back(nullptr);
    execv(arguments[0], arguments.data());
    _exit(127);
  }
  int status = 0;
  rusage used{};
  wait4(child, &status, 0, &used);
  const std::chrono::duration<double, std::milli> elapsed = std::chrono::steady_clock::now() - start;
  if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
    std::fprintf(stderr, "bench: %s ended with status %d\n", words.back().c_str(), status);
    std::exit(1);
  }
  return {elapsed.count(), used.ru_maxrss};
}

// The quickest of several rounds: what is slower than that is somebody else's work.
Measured Run(const std::vector<std::string>& words) {
  Measured best = RunOnce(words);
  for (int i = 1; i < kRounds; ++i) {
    const Measured next = RunOnce(words);
    if (next.milliseconds < best.milliseconds) best = next;
  }
  return best;
}

// "' statements: N" in the first line of a program, or another word for what it counts.
double CountOf(const fs::path& program) {
  std::ifstream file(program);
  std::string line;
  std::getline(file, line);
  const std::size_t colon = line.find(':');
  return colon == std::string::npos ? 0 : std::strtod(line.c_str() + colon + 1, nullptr);
}

// A straight line of `lines` statements, run through `rounds` times.
fs::path WriteStraightProgram(const fs::path& folder, int lines, int rounds) {
  fs::path program = folder / ("straight_" + std::to_string(lines) + ".tsc");
  std::ofstream file(program);
  file << "' statements: " << 3 + static_cast<long>(rounds) * (lines + 3)
       << "\nVar volta Inteiro, x Inteiro\n"
       << "Enquanto volta < " << rounds << "\n";
  for (int i = 0; i < lines; ++i) file << "x = " << i << "\n";
  file << "volta++\nRepita\n";
  return program;
}

// 200 figures of 32 by 32 pixels that move over a ground of 800 by 600, picture after picture.
fs::path WriteFiguresProgram(const fs::path& folder, int pictures) {
  fs::path program = folder / "figures.tsc";
  std::ofstream file(program);
  file << "' pictures: " << pictures << "\nVar quadro Inteiro, x Inteiro\n"
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

class Bench {
 public:
  Bench(fs::path programs, std::string tessera)
      : programs_(std::move(programs)), tessera_(std::move(tessera)) {
    std::string pattern = (fs::temp_directory_path() / "tessera-bench-XXXXXX").string();
    scratch_ = mkdtemp(pattern.data());
  }
  Bench(const Bench&) = delete;
  Bench& operator=(const Bench&) = delete;
  ~Bench() { fs::remove_all(scratch_); }

  void Statements() {
    std::printf("%-18s %12s %10s %10s %10s\n", "program", "statements", "ms", "ns each", "peak MB");
    for (const char* name : {"loop", "branches", "float_sum", "text", "sieve", "functions", "subs"}) {
      PerStatement(programs_ / (std::string(name) + ".tsc"));
    }
    const double shortOne = PerStatement(WriteStraightProgram(scratch_, 1000, 2000));
    const double longOne = PerStatement(WriteStraightProgram(scratch_, 20000, 100));
    std::printf("%-18s %43.2f\n", "20,000 / 1,000", longOne / shortOne);
  }

  void Files() {
    std::printf("\n%-40s %8s %12s\n", "files", "ms", "each second");
    PerSecond("lines written and read", CountOf(programs_ / "files.tsc"), RunInScratch("files.tsc"));
    const std::string python = "/usr/bin/python3";
    if (fs::exists(python)) {
      PerSecond("the same in python3", CountOf(programs_ / "files.tsc"), Run({python, "-c", PythonLines()}));
    }
    PerSecond("files of 1 KB in and out of a package", CountOf(programs_ / "package.tsc"),
              RunInScratch("package.tsc"));
  }

  void Drawing() {
    std::printf("\n%-40s %8s %12s\n", "drawing", "ms", "each second");
    const fs::path program = programs_ / "drawing.tsc";
    PerSecond("lines, circles, points on the console", CountOf(program),
              Run({tessera_, "run", "--console", program.string()}));
    const fs::path figures = WriteFiguresProgram(scratch_, 300);
    PerSecond("pictures of 200 moving figures on the console", CountOf(figures),
              Run({tessera_, "run", "--console", figures.string()}));
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    for (const char* scale : {"1", "2"}) {
      setenv("QT_SCALE_FACTOR", scale, 1);
      PerSecond((std::string("200 figures on a window at scale ") + scale).c_str(), CountOf(figures),
                Run({tessera_, "run", figures.string()}));
      PerSecond((std::string("the same on a window at scale ") + scale).c_str(), CountOf(program),
                Run({tessera_, "run", program.string()}));
    }
    unsetenv("QT_SCALE_FACTOR");
  }

  // Each program goes on with the file that the ones before it left; start-up is part of the figure.
  void Records() {
    std::printf("\n%-40s %8s %12s %14s\n", "records", "ms", "each second", "SQLite, a sec.");
    fs::copy(programs_ / "records", scratch_ / "records");
    const tessera::bench::SqliteTimes sqlite =
        tessera::bench::MeasureSqlite((scratch_ / "gente.db").string());
    Record("insert", "inserts", sqlite.insert);
    Record("read", "reads", sqlite.read);
    Record("order", "records put in order", sqlite.order);
    Record("find", "look-ups, with the ordering before", sqlite.order + sqlite.find);
    Record("update", "updates", sqlite.update);
  }

  // SQLite through the word SQL, beside the same work in python3.
  void Sql() {
    std::printf("\n%-40s %8s %12s\n", "sql", "ms", "each second");
    fs::copy(programs_ / "sql", scratch_ / "sql");
    const auto run = [&](const char* name) {
      return RunOnce({tessera_, "run", "--console", (scratch_ / "sql" / name).string()});
    };
    const std::string python = "/usr/bin/python3";
    const auto compare = [&](const char* what, double count, const char* work) {
      if (!fs::exists(python)) return;
      PerSecond(what, count,
                RunOnce({python, "-c",
                         "import sqlite3\nc = sqlite3.connect('" + (scratch_ / "python.db").string() +
                             "', isolation_level=None)\n" + work}));
    };
    PerSecond("records inserted", CountOf(programs_ / "sql" / "fill.tsc"), run("fill.tsc"));
    compare("the same in python3", CountOf(programs_ / "sql" / "fill.tsc"),
            "c.execute('PRAGMA synchronous = OFF')\n"
            "c.execute('CREATE TABLE gente (id INTEGER PRIMARY KEY, nome TEXT, cidade TEXT, idade INTEGER, "
            "limite REAL)')\n"
            "for i in range(10000): c.execute('INSERT INTO gente (nome, cidade, idade, limite) VALUES (?, ?, "
            "?, ?)', "
            "('Maria da Silva', 'Florianopolis', 33, 1234.5))\n");
    run("more.tsc");
    fs::copy_file(scratch_ / "sql" / "medida.db", scratch_ / "python.db",
                  fs::copy_options::overwrite_existing);
    PerSecond("rows opened and counted", CountOf(programs_ / "sql" / "open.tsc"), run("open.tsc"));
    PerSecond("rows opened, walked, five fields read", CountOf(programs_ / "sql" / "walk.tsc"),
              run("walk.tsc"));
    compare("the same in python3", CountOf(programs_ / "sql" / "walk.tsc"),
            "n = 0\nfor id, nome, cidade, idade, limite in c.execute('SELECT * FROM gente'): n += 1\n");
  }

  // Page files and preview, and one PDF; then what the first page of a program costs.
  void Reports() {
    std::printf("\n%-40s %8s %10s\n", "report of 1,000 pages, 60 x 5", "ms", "peak MB");
    const std::string report = (scratch_ / "report.tsc").string();
    fs::copy_file(programs_ / "report.tsc", report);
    Report("previewed on the console", RunOnce({tessera_, "run", "--console", report, "--", "VIDEO"}));
    Report("printed to a PDF", RunOnce({tessera_, "run", "--console", "--printer",
                                        (scratch_ / "report.pdf").string(), report, "--", "IMPRESSORA"}));
    const fs::path one = scratch_ / "one.tsc";
    std::ofstream(one) << "Rel.Config \"SAIDA:VIDEO\"\nRel.Add \"x\"\nRel.Fim\nFimJanela\n";
    Report("one page, previewed on the console", Run({tessera_, "run", "--console", one.string()}));
  }

  void Grid() {
    using tessera::bench::kGridRows;
    const tessera::bench::GridTimes times = tessera::bench::MeasureGrid();
    std::printf("\n%-40s %8s %12s\n", "grid of 1,000,000 rows, 5 columns", "ms", "each second");
    PerSecond("cells filled", double{kGridRows} * tessera::bench::kGridColumns, {times.fill, 0});
    PerSecond("cells filled by a program", CountOf(programs_ / "grid.tsc"),
              Run({tessera_, "run", "--console", (programs_ / "grid.tsc").string()}));
    PerSecond("rows sorted by a text", kGridRows, {times.sortText, 0});
    PerSecond("rows sorted by a number", kGridRows, {times.sortNumber, 0});
    PerSecond("pages, from end to end", times.pageCount, {times.pages, 0});
    std::printf("%-40s %8.3f\n", "the slowest page", times.slowestPage);
    std::printf("%-40s %8.1f\n", "bytes for each cell", times.bytesPerCell);
    std::printf("%-40s %8.1f\n", "bytes for each cell, with attributes", times.bytesPerCellWithAttributes);
    std::printf("%-40s %8.1f\n", "characters in each cell", times.charactersPerCell);
  }

  void StartUp() {
    const fs::path ten = scratch_ / "ten.tsc";
    std::ofstream(ten) << "Escreva 1\nEscreva 2\nEscreva 3\nEscreva 4\nEscreva 5\nEscreva 6\nEscreva 7\n"
                       << "Escreva 8\nEscreva 9\nFimJanela\n";
    const std::string packed = (scratch_ / "ten").string();
    RunOnce({tessera_, "build", ten.string()});
    std::printf("\n%-40s %8s %10s\n", "start to end", "ms", "peak MB");
    Report("ten lines on the console", Run({tessera_, "run", "--console", ten.string()}));
    setenv("QT_QPA_PLATFORM", "offscreen", 1);
    Report("ten lines, packed, window off screen", Run({packed}));
    unsetenv("QT_QPA_PLATFORM");
    if (std::getenv("DISPLAY") != nullptr) Report("ten lines, packed, window on the display", Run({packed}));
    const fs::path straight = WriteStraightProgram(scratch_, 20000, 1);
    Report("check of 20,000 lines", Run({tessera_, "check", straight.string()}));
  }

 private:
  double PerStatement(const fs::path& program) {
    const double statements = CountOf(program);
    const Measured measured = Run({tessera_, "run", "--console", program.string()});
    const double each = measured.milliseconds * 1e6 / statements;
    std::printf("%-18s %12.0f %10.1f %10.0f %10.1f\n", program.stem().c_str(), statements,
                measured.milliseconds, each, static_cast<double>(measured.peakKilobytes) / 1024);
    std::fflush(stdout);
    return each;
  }

  void Record(const std::string& name, const char* what, double sqliteMilliseconds) {
    const fs::path program = scratch_ / "records" / (name + ".tsc");
    const double count = CountOf(program);
    const Measured measured = RunOnce({tessera_, "run", "--console", program.string()});
    std::printf("%-40s %8.1f %12.0f %14.0f\n", what, measured.milliseconds,
                count / measured.milliseconds * 1000, count / sqliteMilliseconds * 1000);
    std::fflush(stdout);
  }

  // A program that writes files beside itself, each round anew.
  Measured RunInScratch(const char* name) {
    Measured best{};
    for (int i = 0; i < kRounds; ++i) {
      const fs::path folder = scratch_ / ("files" + std::to_string(i));
      fs::create_directories(folder);
      fs::copy_file(programs_ / name, folder / name, fs::copy_options::overwrite_existing);
      const Measured next = RunOnce({tessera_, "run", "--console", (folder / name).string()});
      fs::remove_all(folder);
      if (i == 0 || next.milliseconds < best.milliseconds) best = next;
    }
    return best;
  }

  std::string PythonLines() const {
    const std::string file = "'" + (scratch_ / "python.txt").string() + "'";
    return "f = open(" + file +
           ", 'w', encoding='cp1252', newline='\\r\\n')\n"
           "for n in range(200000): f.write('uma linha de texto\\n')\n"
           "f.close()\n"
           "s = 0\n"
           "for l in open(" +
           file + ", encoding='cp1252'): s += 1\n";
  }

  static void PerSecond(const char* what, double count, const Measured& measured) {
    std::printf("%-40s %8.1f %12.0f\n", what, measured.milliseconds, count / measured.milliseconds * 1000);
    std::fflush(stdout);
  }

  static void Report(const char* what, const Measured& measured) {
    std::printf("%-40s %8.1f %10.1f\n", what, measured.milliseconds,
                static_cast<double>(measured.peakKilobytes) / 1024);
  }

  fs::path programs_;
  std::string tessera_;
  fs::path scratch_;
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3 && argc != 4) {
    std::fprintf(stderr, "tessera_bench FOLDER-OF-BENCH TESSERA [PART]\n");
    return 2;
  }
  constexpr std::pair<std::string_view, void (Bench::*)()> kParts[] = {{"statements", &Bench::Statements},
                                                                       {"files", &Bench::Files},
                                                                       {"drawing", &Bench::Drawing},
                                                                       {"records", &Bench::Records},
                                                                       {"sql", &Bench::Sql},
                                                                       {"reports", &Bench::Reports},
                                                                       {"grid", &Bench::Grid},
                                                                       {"start", &Bench::StartUp}};
  Bench bench(argv[1], argv[2]);
  for (const auto& [name, measure] : kParts) {
    if (argc == 3 || name == argv[3]) (bench.*measure)();
  }
  return 0;
}
