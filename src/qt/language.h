// The window system's own texts in Portuguese.
#pragma once

#include <QTranslator>
#include <memory>

namespace tessera {

// Lives as long as the texts are to be Portuguese. Where the machine lacks the translation they stay English.
std::unique_ptr<QTranslator> InstallPortuguese();

}  // namespace tessera
