// The files of the system that the process runs on.
#pragma once

#include "platform/file_store.h"

namespace tessera {

class SystemFiles : public FileStore {
 public:
  Opened Open(const std::string& path, OpenAs how) override;
  int Create(const std::string& path, std::string_view bytes) override;
  int Replace(const std::string& path, std::string_view bytes) override;
  int ReplacePrivately(const std::string& path, std::string_view bytes) override;
  int Copy(const std::string& source, const std::string& target, std::string& at) override;
  int TakePlace(const std::string& fresh, const std::string& place) override;
  int Remove(const std::string& path) override;
  int MakeFolder(const std::string& path) override;
  void MakeFolders(const std::string& path) override;
  int RemoveFolder(const std::string& path) override;
  std::vector<FolderEntry> List(const std::string& folder) override;
  bool IsFile(const std::string& path, int& error) override;
  bool IsFolder(const std::string& path) override;
  bool IsTaken(const std::string& path) override;
};

}  // namespace tessera
