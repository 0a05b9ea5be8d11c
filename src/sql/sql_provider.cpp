#include "sql/sql_provider.h"

#include "platform/part_library.h"
#include "sql/sql_error.h"

namespace tessera::sql {

SqlProvider& ProviderPart::Provider() {
  if (!provider_) {
    const PartEntry part = LoadPart(folders_, "sql", kProviderEntry, "libqt6sql6");
    if (part.entry == nullptr) throw SqlError(part.problem);
    provider_.reset(reinterpret_cast<ProviderEntry>(part.entry)());
  }
  return *provider_;
}

}  // namespace tessera::sql
