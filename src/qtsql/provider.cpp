// The part's entry point.
#include <QCoreApplication>
#include <clocale>
#include <memory>
#include <string>

#include "qtsql/connection.h"

namespace tessera::qtsql {

namespace {

// The drivers are found by the library's application object; a run without windows has none yet.
class Provider final : public sql::SqlProvider {
 public:
  Provider() {
    if (QCoreApplication::instance() != nullptr) return;
    // Making it takes over the locale of the machine, by which no number of the language may go.
    const std::string locale = std::setlocale(LC_ALL, nullptr);
    application_ = std::make_unique<QCoreApplication>(count_, arguments_);
    std::setlocale(LC_ALL, locale.c_str());
  }

  std::unique_ptr<sql::SqlConnection> Open(const sql::ConnectionTarget& target) override {
    return std::make_unique<Connection>(target);
  }

 private:
  int count_ = 1;
  char name_[8] = "tessera";
  char* arguments_[2] = {name_, nullptr};
  std::unique_ptr<QCoreApplication> application_;
};

}  // namespace

}  // namespace tessera::qtsql

extern "C" __attribute__((visibility("default"))) tessera::sql::SqlProvider* TesseraSqlProvider() {
  return new tessera::qtsql::Provider();
}
