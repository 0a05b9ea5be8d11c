// Program text and the window system's text.
#pragma once

#include <QString>
#include <string>
#include <string_view>

#include "text/code_page.h"

namespace tessera {

inline QString ToQString(std::string_view text) {
  QString converted;
  converted.reserve(static_cast<qsizetype>(text.size()));
  for (const char byte : text) converted.append(QChar(CodeOfByte(static_cast<unsigned char>(byte))));
  return converted;
}

// Several lines: each of CR LF, CR and LF breaks one.
inline QString ToQLines(std::string_view text) {
  return ToQString(text).replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

// What the code page lacks becomes "?".
inline std::string FromQString(const QString& text) {
  return FromUtf8Lossy(text.toStdString());
}

}  // namespace tessera
