#include "grid_times.h"

#include <algorithm>
#include <chrono>
#include <ctime>
#include <functional>
#include <random>
#include <string>

#include "controls/key_code.h"
#include "controls/novo_box.h"

namespace tessera::bench {
namespace {

constexpr int kTwipsPerCharacter = 90;
constexpr double kCells = double{kGridRows} * kGridColumns;

// Time of the processor alone: a page is shorter than what another process takes when it is let in.
double BusyMilliseconds(const std::function<void()>& work) {
  const std::clock_t start = std::clock();
  work();
  return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double Milliseconds(const std::function<void()>& work) {
  const auto start = std::chrono::steady_clock::now();
  work();
  return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

// A name, a town, a code, a price and a date.
void FillRow(NovoBox& box, std::mt19937& random, double& characters) {
  const CellAttributes blue{0xFF0000, -1, "", 0, true};
  const auto add = [&](const std::string& text) {
    characters += static_cast<double>(text.size());
    box.Add(text, blue);
  };
  add("Cliente " + std::to_string(random() % kGridRows));
  add(random() % 2 == 0 ? "Porto Alegre" : "Recife");
  add(std::to_string(random() % kGridRows));
  add(std::to_string(random() % 10000) + "," + std::to_string(random() % 90 + 10));
  add("21/11/2026");
  box.BoxNew();
}

class Grid {
 public:
  explicit Grid(bool attributes)
      : box_({12000, 99999}, {300, 240, 250}, [](std::string_view text, const CellAttributes&) {
          return static_cast<int>(text.size()) * kTwipsPerCharacter;
        }) {
    box_.Config({0, 0xFFFFFF, "Tahoma", 10, false}, 0xFFFFFF, 0x800000);
    box_.AtivaAtributos(attributes);
    for (int column = 0; column < kGridColumns; ++column) {
      box_.Titulo("Coluna", 12, NovoBox::Align::kLeft, column == 2 || column == 3);
    }
    box_.Ativa(false);
    std::mt19937 random(1);
    fill_ = Milliseconds([&] {
      for (int row = 0; row < kGridRows; ++row) FillRow(box_, random, characters_);
      box_.AddEnd();
    });
  }

  NovoBox& Box() { return box_; }
  double Fill() const { return fill_; }
  double BytesPerCell() const { return static_cast<double>(box_.Bytes()) / kCells; }
  double CharactersPerCell() const { return characters_ / kCells; }

 private:
  NovoBox box_;
  double fill_ = 0;
  double characters_ = 0;
};

}  // namespace

GridTimes MeasureGrid() {
  GridTimes times{};
  times.bytesPerCellWithAttributes = Grid(true).BytesPerCell();
  Grid grid(false);
  NovoBox& box = grid.Box();
  times.fill = grid.Fill();
  times.bytesPerCell = grid.BytesPerCell();
  times.charactersPerCell = grid.CharactersPerCell();
  times.sortText = Milliseconds([&] { box.ClickTitle(0); });
  times.sortNumber = Milliseconds([&] { box.ClickTitle(3); });
  box.PosicionaCursor(0);
  times.pages = Milliseconds([&] {
    while (box.BarraVertical().Value() < box.BarraVertical().Max()) {
      const double page = BusyMilliseconds([&] { box.KeyDown(key::kPageDown); });
      times.slowestPage = std::max(times.slowestPage, page);
      ++times.pageCount;
    }
  });
  return times;
}

}  // namespace tessera::bench
