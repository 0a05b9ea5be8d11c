#include "qt/golden_sheet.h"

#include <gtest/gtest.h>

#include <QPainter>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <sstream>

namespace tessera::test {

namespace {

// All that is no digit, blank or sign of the form itself.
constexpr std::string_view kLetters =
    ".abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ+-/|_~^:;,!?$%&@<>()[]{}'`\"\\";
constexpr int kSlack = 3;  // of one channel: libraries round light and edges otherwise

bool AreAlike(QRgb a, QRgb b, int limit) {
  return std::abs(qRed(a) - qRed(b)) <= limit && std::abs(qGreen(a) - qGreen(b)) <= limit &&
         std::abs(qBlue(a) - qBlue(b)) <= limit;
}

// The letters of a sheet's colours. Those that are nearly alike share one, the more so the more there are.
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
      if (x - from > 1) row += std::to_string(x - from);
      row += letter;
    }
    return row;
  }

  int alike;
  std::vector<QRgb> colours = {};
};

// Where two pictures differ, and by how much; empty where they don't.
std::string Difference(const QImage& seen, const QImage& kept, int alike) {
  std::ostringstream told;
  if (seen.size() != kept.size()) {
    told << seen.width() << "x" << seen.height() << " instead of " << kept.width() << "x" << kept.height();
    return told.str();
  }
  int count = 0;
  for (int y = 0; y < seen.height(); ++y) {
    for (int x = 0; x < seen.width(); ++x) {
      if (AreAlike(seen.pixel(x, y), kept.pixel(x, y), alike + kSlack)) continue;
      if (count++ == 0) {
        told << "first at " << x << ", " << y << ": " << std::hex << (seen.pixel(x, y) & 0xFFFFFF)
             << " instead of " << (kept.pixel(x, y) & 0xFFFFFF) << std::dec;
      }
    }
  }
  if (count > 0) told << "; " << count << " pixels";
  return told.str();
}

}  // namespace

void GoldenSheet::Add(const std::string& look, const QImage& picture) {
  looks_.emplace_back(look, picture.convertToFormat(QImage::Format_RGB32));
}

void GoldenSheet::Write(const std::string& path) const {
  Legend legend{.alike = 3};
  std::string pictures;
  for (;; legend = {.alike = 2 * legend.alike}) {
    pictures.clear();
    for (const auto& [name, picture] : looks_) {
      pictures += "\n= " + name + "\n";
      for (int y = 0, equal = 1; y < picture.height(); y += equal) {
        const std::string row = legend.RowOf(picture, y);
        equal = 1;
        while (y + equal < picture.height() && legend.RowOf(picture, y + equal) == row) ++equal;
        pictures += (equal > 1 ? std::to_string(equal) + "*" : "") + row + "\n";
      }
    }
    if (legend.colours.size() <= kLetters.size()) break;
  }
  std::ofstream file(path);
  file << legend.alike << std::hex << "\n";
  for (std::size_t i = 0; i < legend.colours.size(); ++i) {
    file << kLetters[i] << " #" << (legend.colours[i] & 0xFFFFFF) << "\n";
  }
  file << pictures;
}

// How much alike the colours of a letter are, and the pictures.
std::pair<int, GoldenSheet::Looks> GoldenSheet::Read(const std::string& path) {
  Looks looks;
  int alike = 0;
  std::map<char, QRgb> legend;
  std::vector<std::string> rows;
  const auto finish = [&] {
    if (looks.empty()) return;
    const auto width = rows.empty() ? 0 : static_cast<int>(rows[0].size());
    QImage& picture = looks.back().second =
        QImage(width, static_cast<int>(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
      for (int x = 0; x < width; ++x) picture.setPixel(x, y, legend[rows[std::size_t(y)][std::size_t(x)]]);
    }
    rows.clear();
  };
  std::ifstream file(path);
  file >> alike;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("= ")) {
      finish();
      looks.emplace_back(line.substr(2), QImage());
    } else if (looks.empty() && line.size() > 3) {
      legend[line[0]] = 0xFF000000 | static_cast<QRgb>(std::stoul(line.substr(3), nullptr, 16));
    } else if (!line.empty() && !looks.empty()) {
      std::string row;
      std::size_t number = 0, equal = 1;
      for (const char c : line) {
        if (c >= '0' && c <= '9') {
          number = number * 10 + std::size_t(c - '0');
          continue;
        }
        if (c == '*')
          equal = number;
        else
          row.append(std::max<std::size_t>(number, 1), c);
        number = 0;
      }
      rows.insert(rows.end(), equal, row);
    }
  }
  finish();
  return {alike, looks};
}

// All below one another, twice as large.
void GoldenSheet::Show(const std::string& folder) const {
  int height = 0, width = 0;
  for (const auto& [name, picture] : looks_) {
    height += picture.height() + 4;
    width = std::max(width, picture.width());
  }
  QImage all(width, height, QImage::Format_RGB32);
  all.fill(Qt::magenta);
  QPainter painter(&all);
  int y = 0;
  for (const auto& [name, picture] : looks_) {
    painter.drawImage(0, y, picture);
    y += picture.height() + 4;
  }
  painter.end();
  all.scaled(all.size() * 2).save(QString::fromStdString(folder + "/" + name_ + ".png"));
}

void GoldenSheet::Check() const {
  const std::string path = TESSERA_SOURCE_DIR "/tests/qt/looks/" + name_ + ".txt";
  if (const char* folder = std::getenv("TESSERA_LOOK_AT")) Show(folder);
  if (std::getenv("TESSERA_WRITE_LOOKS") != nullptr) Write(path);
  const auto [alike, kept] = Read(path);
  ASSERT_EQ(kept.size(), looks_.size()) << path;
  for (std::size_t i = 0; i < kept.size(); ++i) {
    EXPECT_EQ(looks_[i].first, kept[i].first);
    EXPECT_EQ(Difference(looks_[i].second, kept[i].second, alike), "") << looks_[i].first << " in " << path;
  }
}

}  // namespace tessera::test
