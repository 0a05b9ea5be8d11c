// The part of the system that reaches databases, loaded at a program's first connection.
#pragma once

#include <filesystem>
#include <memory>
#include <vector>

#include "sql/provider.h"

namespace tessera::sql {

// The entry point of the part: a new provider.
inline constexpr const char* kProviderEntry = "TesseraSqlProvider";
using ProviderEntry = SqlProvider* (*)();

class ProviderPart {
 public:
  explicit ProviderPart(std::vector<std::filesystem::path> folders) : folders_(std::move(folders)) {}

  // The provider, made at the first call; an `SqlError` where the part is missing.
  SqlProvider& Provider();

 private:
  std::vector<std::filesystem::path> folders_;
  std::unique_ptr<SqlProvider> provider_;
};

}  // namespace tessera::sql
