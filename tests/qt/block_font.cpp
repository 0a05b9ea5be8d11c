#include "qt/block_font.h"

#include <QByteArray>
#include <QFontDatabase>
#include <initializer_list>
#include <utility>
#include <vector>

namespace tessera::test {

namespace {

constexpr int kPixel = 100;                      // units
constexpr int kUnitsOfEm = 1067;                 // 8 points are 10.67 pixels on a screen of 96 to the inch
constexpr int kTall = 8, kSmall = 5, kWide = 5;  // pixels
constexpr int kFirst = ' ', kLast = 0xFF;

QByteArray Words(std::initializer_list<int> words) {
  QByteArray bytes;
  for (const int word : words) bytes.append(char(word >> 8)).append(char(word));
  return bytes;
}

// A rectangle on the base line.
QByteArray Block(int height) {
  const int right = kWide * kPixel;
  const int top = height * kPixel;
  return Words({1, 0, 0, right, top, 3, 0}) + QByteArray("\1\1\1\1") + Words({0, 0, right, 0}) +
         Words({0, top, 0, -top});
}

// Glyph 0 is that of a missing one, 1 is tall, 2 small, and 3 the space.
QByteArray Font(const char* family) {
  const QByteArray tall = Block(kTall), small = Block(kSmall);
  QByteArray map = Words({6, 2 * (5 + kLast - kFirst + 1), 0, kFirst, kLast - kFirst + 1});
  for (int code = kFirst; code <= kLast; ++code) {
    map += Words({code == ' ' || code == 0xA0 ? 3 : (code >= 'a' && code <= 'z') || code >= 0xE0 ? 2 : 1});
  }
  QByteArray name;
  for (const char* letter = family; *letter != 0; ++letter) name += Words({*letter});
  const int size = static_cast<int>(name.size());
  const int ends = static_cast<int>(tall.size()) / 2;
  const std::vector<std::pair<const char*, QByteArray>> tables = {
      {"OS/2", Words({4, 600, 400, 5, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}) +
                   Words({0, 0, 0, 0, 0,    0,      1,     0,          0,           0, 0,
                          0, 0, 0, 0, 0x40, kFirst, kLast, 9 * kPixel, -3 * kPixel, 0}) +
                   Words({9 * kPixel, 3 * kPixel, 0, 1, 0, 0, 5 * kPixel, 8 * kPixel, 0, ' ', 1})},
      {"cmap", Words({0, 1, 3, 1, 0, 12}) + map},
      {"glyf", tall + small},
      {"head", Words({1, 0, 1, 0, 0, 0, 0x5F0F, 0x3CF5, 0, kUnitsOfEm, 0, 0, 0, 0}) +
                   Words({0, 0, 0, 0, 0, 0, kWide * kPixel, kTall * kPixel, 0, 6, 2, 0, 0})},
      {"hhea", Words({1, 0, 9 * kPixel, -3 * kPixel, 0, 6 * kPixel, 0, 0, kWide * kPixel}) +
                   Words({1, 0, 0, 0, 0, 0, 0, 0, 4})},
      {"hmtx", Words({6 * kPixel, 0, 6 * kPixel, 0, 6 * kPixel, 0, 6 * kPixel, 0})},
      {"loca", Words({0, 0, ends, 2 * ends, 2 * ends})},
      {"maxp", Words({1, 0, 4, 4, 1, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0})},
      {"name", Words({0, 2, 30, 3, 1, 0x409, 1, size, 0, 3, 1, 0x409, 4, size, 0}) + name},
      {"post", Words({3, 0, 0, 0, -kPixel, kPixel, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0})},
  };
  const int count = static_cast<int>(tables.size());
  QByteArray directory = Words({1, 0, count, 128, 3, 16 * count - 128});
  QByteArray all;
  for (const auto& [tag, bytes] : tables) {
    const auto from = 12 + 16 * count + static_cast<int>(all.size());
    directory += QByteArray(tag, 4) + Words({0, 0, 0, from, 0, static_cast<int>(bytes.size())});
    all += bytes + QByteArray((4 - bytes.size() % 4) % 4, '\0');
  }
  return directory + all;
}

}  // namespace

BlockFont::BlockFont() {
  for (const char* family : {"MS Sans Serif", "Courier New", "Tahoma"}) {
    numbers_.push_back(QFontDatabase::addApplicationFontFromData(Font(family)));
  }
}

BlockFont::~BlockFont() {
  for (const int number : numbers_) QFontDatabase::removeApplicationFont(number);
}

}  // namespace tessera::test
