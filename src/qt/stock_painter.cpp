// A tool of the build: turns the drawings of the stock into a source file that holds, for each, its vector
// form and its pixels. A program so reads the same pixels on every host, and none needs a display for them.
//
//   stock_painter OUTPUT.cpp DRAWING.svg...
#include <QBuffer>
#include <QFile>
#include <QFileInfo>
#include <cstdio>
#include <string>

#include "qt/svg_painting.h"

namespace {

// Bytes as a literal of the language, in octal, so that no byte reaches into the next.
std::string Literal(const QByteArray& bytes) {
  constexpr int kBytesOfLine = 32;
  std::string text;
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    const auto byte = static_cast<unsigned char>(bytes[i]);
    if (i % kBytesOfLine == 0) text += "\n     \"";
    text += {'\\', static_cast<char>('0' + (byte >> 6)), static_cast<char>('0' + (byte >> 3 & 7)),
             static_cast<char>('0' + (byte & 7))};
    if (i % kBytesOfLine == kBytesOfLine - 1 || i + 1 == bytes.size()) text += '"';
  }
  return text;
}

QByteArray Png(const QByteArray& svg) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  tessera::PaintSvg({svg.constData(), static_cast<std::size_t>(svg.size())}, 1).save(&buffer, "PNG");
  return buffer.data();
}

// Empty where the file holds no drawing.
std::string Row(const QString& path) {
  QFile file(path);
  if (!file.open(QIODevice::ReadOnly)) return {};
  const QByteArray svg = file.readAll();
  const QByteArray png = Png(svg);
  if (png.isEmpty()) return {};
  return "    {\"" + QFileInfo(path).completeBaseName().toStdString() + "\",\n     std::string_view(" +
         Literal(svg) + ", " + std::to_string(svg.size()) + "),\n     std::string_view(" + Literal(png) +
         ", " + std::to_string(png.size()) + ")},\n";
}

}  // namespace

int main(int argc, char** argv) {
  std::string source =
      "#include \"windows/stock_sources.h\"\n\nnamespace tessera {\n\nnamespace {\n\n"
      "constexpr StockSource kSources[] = {\n";
  for (int i = 2; i < argc; ++i) {
    const std::string row = Row(argv[i]);
    if (row.empty()) {
      std::fprintf(stderr, "%s: not a drawing\n", argv[i]);
      return 1;
    }
    source += row;
  }
  source +=
      "};\n\n}  // namespace\n\nstd::span<const StockSource> StockSources() {\n  return kSources;\n}\n\n"
      "}  // namespace tessera\n";
  QFile output(argc > 1 ? argv[1] : "");
  if (output.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
      output.write(source.data(), static_cast<qsizetype>(source.size())) ==
          static_cast<qsizetype>(source.size())) {
    return 0;
  }
  std::fprintf(stderr, "%s\n", qPrintable(output.errorString()));
  return 1;
}
