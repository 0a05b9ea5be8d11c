// Where a run keeps its files: the operations of a file system, as a service of the host. Paths are the
// system's own, in UTF-8. What gives a number gives the system's error number; 0 is none.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace tessera {

class SharedPage;

// An open file, shared with every other process. Offsets count bytes from 0; a file that knows no offsets,
// such as a pipe, takes them as they come.
class StoredFile {
 public:
  virtual ~StoredFile() = default;

  // Appends up to `most` bytes from the offset on; none at the file's end.
  virtual int ReadAt(std::uint64_t offset, std::size_t most, std::string& bytes) const = 0;
  // What was written is taken off the front of `bytes`, also where the rest fails.
  virtual int WriteAt(std::uint64_t offset, std::string_view& bytes) = 0;
  virtual int Size(std::uint64_t& size) const = 0;
  virtual int Resize(std::uint64_t size) = 0;
  // Returns when what was written has reached the disk.
  virtual int Sync() = 0;

  // The lock that excludes others who open the file anew. EAGAIN where somebody has it.
  virtual int TryLock() = 0;
  virtual void Unlock() = 0;
  // Rests a moment, in which who has the lock may let it go.
  virtual void AwaitOthers() const = 0;

  // The file's first page as memory, as long as the file is open; null where the store has none to give.
  virtual SharedPage* FirstPage() { return nullptr; }

  // Whether the path leads to this file, by whatever name it was opened.
  virtual bool IsAt(const std::string& path) const = 0;
};

// Appends up to `length` bytes from the offset on, fewer where the file ends before.
int ReadAllAt(const StoredFile& file, std::uint64_t offset, std::size_t length, std::string& bytes);

enum class OpenAs {
  Read,     // a folder is EISDIR
  Rewrite,  // made, or emptied
  Update,   // read and written; made where it is missing, and only read where writing is forbidden
  Alone,    // read and written, and locked whole meanwhile: EAGAIN where somebody else has it locked
  New,      // EEXIST where the name is taken
};

struct FolderEntry {
  std::string name;
  bool isFile;
  bool isFolder;  // no link to one, so that a walk comes to an end
};

class FileStore {
 public:
  virtual ~FileStore() = default;

  struct Opened {
    std::unique_ptr<StoredFile> file;
    int error = 0;
  };
  virtual Opened Open(const std::string& path, OpenAs how) = 0;

  // Makes a file with these bytes where there is none; EEXIST where there is one. Nobody ever sees a part.
  virtual int Create(const std::string& path, std::string_view bytes) = 0;
  // Puts a file with these bytes in the place of the old one, whole.
  virtual int Replace(const std::string& path, std::string_view bytes) = 0;
  // The same with a file that its owner alone may read.
  virtual int ReplacePrivately(const std::string& path, std::string_view bytes) = 0;
  // Copies bytes and permissions. A target that exists is replaced only when the whole copy has been written.
  // EEXIST when both are one file. Where it fails `at` is the path that the system refused.
  virtual int Copy(const std::string& source, const std::string& target, std::string& at) = 0;
  // Gives a whole file, whose bytes are on the disk, the place of another one beside it.
  virtual int TakePlace(const std::string& fresh, const std::string& place) = 0;
  virtual int Remove(const std::string& path) = 0;

  virtual int MakeFolder(const std::string& path) = 0;
  // The folder and those above it, as far as they are missing.
  virtual void MakeFolders(const std::string& path) = 0;
  virtual int RemoveFolder(const std::string& path) = 0;
  // What can't be read has no entries.
  virtual std::vector<FolderEntry> List(const std::string& folder) = 0;

  // Anything that can be opened as a file, and no folder; `error` tells where the system doesn't say.
  virtual bool IsFile(const std::string& path, int& error) = 0;
  virtual bool IsFolder(const std::string& path) = 0;
  // Whether the name is taken, be it by a link that leads nowhere.
  virtual bool IsTaken(const std::string& path) = 0;
};

}  // namespace tessera
