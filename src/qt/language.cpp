#include "qt/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <algorithm>
#include <array>
#include <string_view>

namespace tessera {

namespace {

// Words of font styles, which the dialog of fonts looks for by the names that the fonts give them.
constexpr std::array<std::string_view, 13> kStyles = {
    "Thin", "Extra Light", "Light", "Normal", "Regular", "Medium",  "Demi Bold",
    "Bold", "Extra Bold",  "Black", "Demi",   "Italic",  "Oblique",
};

class PortugueseTexts final : public QTranslator {
 public:
  QString translate(const char* context, const char* text, const char* what, int count) const override {
    const bool isStyle = std::find(kStyles.begin(), kStyles.end(), text) != kStyles.end();
    if (isStyle && std::string_view(context) == "QFontDatabase") return {};
    // The translation lacks it.
    if (std::string_view(text) == "Folder") return QStringLiteral("Pasta");
    return QTranslator::translate(context, text, what, count);
  }
};

}  // namespace

std::unique_ptr<QTranslator> InstallPortuguese() {
  auto texts = std::make_unique<PortugueseTexts>();
  if (texts->load("qtbase_pt_BR", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(texts.get());
  }
  return texts;
}

}  // namespace tessera
