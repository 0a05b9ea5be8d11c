// Files that a program reads or writes line by line, through a buffer. Both are opened shared: another
// program may read them meanwhile. Paths are the system's own, in UTF-8.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "platform/binary_file.h"

namespace tessera {

class TextReader final : public OpenedFile {
 public:
  // Failures: 53 for a missing file, 76 for a missing folder, 75 for a folder in the file's place.
  static std::unique_ptr<TextReader> Open(FileStore& files, const std::string& path);

  // The next line without its end (CR LF, LF or CR), as program text, or nothing at the end of the file. A
  // last line needs no end. OPEN: a file whose first 64 KB are UTF-8 with a character beyond ASCII is read as
  // UTF-8, its byte-order mark left out; what the code page lacks becomes "?", and a later line that is no
  // UTF-8 stays as its bytes. The line is good until the next one is read.
  std::optional<std::string_view> ReadLine();

  std::uint64_t Size() const;

 private:
  explicit TextReader(std::unique_ptr<StoredFile> file) : file_(std::move(file)) {}
  // False at the end of the file.
  bool Fill();
  void LearnEncoding();
  std::optional<std::string_view> ReadBytes();

  std::unique_ptr<StoredFile> file_;
  std::uint64_t read_ = 0;  // bytes taken from the file
  std::string buffer_;
  std::size_t next_ = 0;  // offset in the buffer
  std::string line_;      // that does not stand in the buffer as it is read
  bool isUtf8_ = false;
};

class TextWriter final : public OpenedFile {
 public:
  // Creates or empties the file. Failures as above, and those of a disk.
  static std::unique_ptr<TextWriter> Open(FileStore& files, const std::string& path);
  // What the buffer still holds is written; a failure is passed over. `Flush` before tells it.
  ~TextWriter() override;

  // Adds a line and its end, CR LF. A line that ended in a failure has not been added.
  void WriteLine(std::string_view line);
  // Writes what the buffer holds. What the disk refuses stays in the buffer.
  void Flush() override;

  std::uint64_t Size() const;

 private:
  explicit TextWriter(std::unique_ptr<StoredFile> file) : file_(std::move(file)) {}

  std::unique_ptr<StoredFile> file_;
  std::uint64_t written_ = 0;  // bytes that the file has taken
  std::string buffer_;
};

}  // namespace tessera
