// What each kind of object paints in each of its states, as the screen shows it. Each file in looks/ is a
// test: a program, behind `--` what is done with it and looked at, and behind a further one the pictures,
// which a person can read in a diff: a letter for each colour, the number of its pixels before it, `3*`
// before a row that stands three times. TESSERA_WRITE_LOOKS writes the pictures anew.
#include <gtest/gtest.h>

#include <QKeySequence>
#include <QPixmap>
#include <QScreen>
#include <QStyleHints>
#include <QTest>
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "qt/block_font.h"
#include "support/qt_window.h"

namespace tessera::test {

namespace {

constexpr const char* kFolder = TESSERA_SOURCE_DIR "/tests/qt/looks/";
// All that is no digit, blank or sign of the form itself.
constexpr std::string_view kLetters =
    ".abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ+-/|_~^:;,!?$%&@<>()[]{}'`\"\\";
constexpr int kSlack = 3;  // of one channel: libraries round light and edges otherwise
constexpr QPoint kAway(630, 415);
constexpr int kPainted = 40;  // milliseconds, until a drawing shows

using Pictures = std::vector<std::pair<std::string, QImage>>;

bool AreAlike(QRgb a, QRgb b, int limit) {
  return std::abs(qRed(a) - qRed(b)) <= limit && std::abs(qGreen(a) - qGreen(b)) <= limit &&
         std::abs(qBlue(a) - qBlue(b)) <= limit;
}

// The letters of colours. Those that are nearly alike share one, the more so the more there are.
struct Legend {
  char LetterOf(QRgb colour) {
    auto known = std::find(colours.begin(), colours.end(), colour);
    for (auto c = colours.begin(); known == colours.end() && c != colours.end(); ++c) {
      if (AreAlike(*c, colour, alike)) known = c;
    }
    if (known == colours.end()) known = colours.insert(known, colour);
    return kLetters[static_cast<std::size_t>(known - colours.begin()) % kLetters.size()];
  }
  std::string RowOf(const QImage& picture, int y) {
    std::string row;
    for (int x = 0; x < picture.width();) {
      const char letter = LetterOf(picture.pixel(x, y));
      const int from = x;
      while (x < picture.width() && LetterOf(picture.pixel(x, y)) == letter) ++x;
      row += (x - from > 1 ? std::to_string(x - from) : "") + letter;
    }
    return row;
  }

  int alike;
  std::vector<QRgb> colours = {};
};

std::string Written(const Pictures& pictures) {
  std::string rows;
  Legend legend{.alike = 3};
  for (;; legend = {.alike = 2 * legend.alike}) {
    rows.clear();
    for (const auto& [name, picture] : pictures) {
      rows += "\n= " + name + "\n";
      for (int y = 0, equal = 1; y < picture.height(); y += equal) {
        const std::string row = legend.RowOf(picture, y);
        equal = 1;
        while (y + equal < picture.height() && legend.RowOf(picture, y + equal) == row) ++equal;
        rows += (equal > 1 ? std::to_string(equal) + "*" : "") + row + "\n";
      }
    }
    if (legend.colours.size() <= kLetters.size()) break;
  }
  std::ostringstream text;
  text << legend.alike << std::hex << "\n";
  for (std::size_t i = 0; i < legend.colours.size(); ++i) {
    text << kLetters[i] << " #" << (legend.colours[i] & 0xFFFFFF) << "\n";
  }
  return text.str() + rows;
}

// How much alike the colours of a letter are, and the pictures.
std::pair<int, Pictures> Read(std::istream& text) {
  Pictures pictures;
  std::map<char, QRgb> legend;
  std::vector<std::string> rows;
  int alike = 0;
  text >> alike;
  const auto finish = [&] {
    if (rows.empty()) return;
    QImage picture(static_cast<int>(rows[0].size()), static_cast<int>(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < picture.width(); ++x) {
        picture.setPixel(x, y, legend[rows[std::size_t(y)].at(std::size_t(x))]);
      }
    }
    pictures.back().second = picture;
    rows.clear();
  };
  for (std::string line; std::getline(text, line);) {
    if (line.starts_with("= ")) {
      finish();
      pictures.emplace_back(line.substr(2), QImage());
    } else if (pictures.empty() && line.size() > 3) {
      legend[line[0]] = 0xFF000000 | static_cast<QRgb>(std::stoul(line.substr(3), nullptr, 16));
    } else if (!line.empty()) {
      std::string row;
      std::size_t number = 0, equal = 1;
      for (const char c : line) {
        if (c >= '0' && c <= '9') {
          number = number * 10 + std::size_t(c - '0');
        } else if (c == '*') {
          equal = std::exchange(number, 0);
        } else {
          row.append(std::max<std::size_t>(std::exchange(number, 0), 1), c);
        }
      }
      rows.insert(rows.end(), equal, row);
    }
  }
  finish();
  return {alike, pictures};
}

// Where two pictures differ, and by how much; empty where they don't.
std::string Difference(const QImage& seen, const QImage& kept, int alike) {
  std::ostringstream told;
  if (seen.size() != kept.size()) told << seen.width() << " x " << seen.height() << " pixels";
  for (int y = 0; told.view().empty() && y < seen.height(); ++y) {
    for (int x = 0; told.view().empty() && x < seen.width(); ++x) {
      if (AreAlike(seen.pixel(x, y), kept.pixel(x, y), alike + kSlack)) continue;
      told << "at " << x << ", " << y << ": " << std::hex << (seen.pixel(x, y) & 0xFFFFFF) << " instead of "
           << (kept.pixel(x, y) & 0xFFFFFF);
    }
  }
  return told.str();
}

class GoldenLooks : public QtWindowTest, public testing::WithParamInterface<std::string> {
 protected:
  GoldenLooks() { QGuiApplication::styleHints()->setCursorFlashTime(0); }

  Control& Named(std::string_view name) {
    for (Control* control : Main().Controls().InZOrder()) {
      if (control->Name() == name) return *control;
    }
    return *Main().Controls().Element(name, 0);
  }
  QWidget& WidgetOf(const std::string& name) {
    return name == "popup" ? *QApplication::activePopupWidget() : QtWindowTest::WidgetOf(Named(name));
  }

  // What the screen shows by now, and not what the window would paint if it were asked.
  void Look(const std::string& name, const std::string& state) {
    QWidget& widget = name == "window" ? *static_cast<QtForm&>(Main()).widget() : WidgetOf(name);
    QTest::qWait(name == "window" ? kPainted : 1);
    const QWindow* window = widget.window()->windowHandle();
    const QImage screen = window->screen()->grabWindow(window->winId()).toImage();
    const QRect area(widget.mapTo(widget.window(), QPoint()),
                     name == "window" ? QSize(100, 60) : widget.size());
    seen.emplace_back(name + (state.empty() ? "" : " ") + state,
                      screen.copy(area).convertToFormat(QImage::Format_RGB32));
  }

  // Points at a place of an object, or presses or clicks there; what is below 0 counts from its end.
  void Act(const std::string& word, const std::string& name, QPoint at) {
    QWidget& widget = WidgetOf(name);
    if (at.x() < 0) at.rx() += widget.width();
    if (at.y() < 0) at.ry() += widget.height();
    at = widget.mapTo(widget.window(), at);
    QWindow* window = widget.window()->windowHandle();
    if (word == "point") return QTest::mouseMove(window, at);
    QTest::mousePress(window, Qt::LeftButton, {}, at);
    if (word == "click") QTest::mouseRelease(window, Qt::LeftButton, {}, at);
  }
  void Leave() {
    QTest::mouseMove(Top(), kAway);
    QTest::mouseRelease(Top(), Qt::LeftButton, {}, kAway);
  }

  void Do(const std::string& line) {
    std::istringstream words(line);
    std::string word, name, rest;
    words >> word >> name;
    if (word == "point" || word == "press" || word == "click" || word == "states") {
      QPoint at;
      words >> at.rx() >> at.ry();
      if (word != "states") return Act(word, name, at);
      const std::string place = " " + name + " " + std::to_string(at.x()) + " " + std::to_string(at.y());
      const auto look = [&](const char* state) { Do("look " + name + " " + state); };
      look("at rest");
      Do("point" + place);
      look("pointed at");
      QTest::mouseMove(Top(), kAway);
      if (Named(name).TakesFocus()) {
        Main().MoveFocus(&Named(name));
        look("with the focus");
      }
      Do("press" + place);
      look("pressed");
      Leave();
      look("left");
      Named(name).SetEnabled(false);
      return look("disabled");
    }
    std::getline(words >> std::ws, rest);
    if (word == "look") return Look(name, rest);
    if (word == "leave") return Leave();
    if (word == "focus") return Main().MoveFocus(&Named(name));
    if (word == "enable" || word == "disable") return Named(name).SetEnabled(word == "enable");
    if (word == "do") return static_cast<void>(program.commands.CommandCall(name, rest));
    if (word == "width") {
      ControlPlace place = Named(name).Place();
      place.Width = std::stoi(rest);
      return Named(name).Move(place);
    }
    ASSERT_EQ(word, "keys");
    for (const QString& key : QString::fromStdString(name + " " + rest).simplified().split(' ')) {
      const QKeyCombination keys = QKeySequence::fromString(key)[0];
      QTest::keyClick(Top(), keys.key(), keys.keyboardModifiers());
    }
  }

  BlockFont font;
  Pictures seen;
};

std::vector<std::string> Sheets() {
  std::vector<std::string> names;
  for (const auto& file : std::filesystem::directory_iterator(kFolder)) names.push_back(file.path().stem());
  std::sort(names.begin(), names.end());
  return names;
}

}  // namespace

TEST_P(GoldenLooks, AreAsTheyWereKept) {
  const std::string path = kFolder + GetParam() + ".txt";
  std::fstream file(path, std::ios::in);
  std::string source, steps;
  std::string line;
  while (std::getline(file, line) && line != "--") source += line + "\n";
  while (std::getline(file, line) && line != "--") steps += line + "\n";
  Start(source);
  for (const QPoint at : {QPoint(0, 0), kAway}) QTest::mouseMove(Top(), at);
  std::istringstream each(steps);
  while (std::getline(each, line)) Do(line);
  if (std::getenv("TESSERA_WRITE_LOOKS") != nullptr) {
    std::ofstream(path) << source << "--\n" << steps << "--\n" << Written(seen);
    file = std::fstream(path, std::ios::in);
    for (int parts = 0; parts < 2 && std::getline(file, line);) parts += line == "--";
  }
  const auto [alike, kept] = Read(file);
  ASSERT_EQ(kept.size(), seen.size());
  for (std::size_t i = 0; i < kept.size(); ++i) {
    KeepLook(seen[i].second, GetParam() + "_" + seen[i].first);
    EXPECT_EQ(seen[i].first, kept[i].first);
    EXPECT_EQ(Difference(seen[i].second, kept[i].second, alike), "") << seen[i].first;
  }
}

INSTANTIATE_TEST_SUITE_P(Looks, GoldenLooks, testing::ValuesIn(Sheets()),
                         [](const auto& sheet) { return sheet.param; });

}  // namespace tessera::test
