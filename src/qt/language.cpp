#include "qt/language.h"

#include <QCoreApplication>
#include <QLibraryInfo>

namespace tessera {

std::unique_ptr<QTranslator> InstallPortuguese() {
  auto translator = std::make_unique<QTranslator>();
  if (translator->load("qtbase_pt_BR", QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
    QCoreApplication::installTranslator(translator.get());
  }
  return translator;
}

}  // namespace tessera
