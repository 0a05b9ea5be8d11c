#include "platform/text_file.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

#include "platform/descriptor_io.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kBuffer = std::size_t{1} << 16;

Descriptor OpenDescriptor(const std::string& path, int flags) {
  constexpr mode_t kAnyone = 0666;
  Descriptor descriptor(open(path.c_str(), flags | O_CLOEXEC, kAnyone));
  if (!descriptor.IsOpen()) FailOpening(path, errno);
  struct stat status {};
  if (fstat(descriptor.number(), &status) != 0) FailSystem(errno);
  if (S_ISDIR(status.st_mode)) FailSystem(EISDIR);
  return descriptor;
}

std::uint64_t SizeOf(const Descriptor& descriptor) {
  struct stat status {};
  if (fstat(descriptor.number(), &status) != 0) FailSystem(errno);
  return static_cast<std::uint64_t>(status.st_size);
}

}  // namespace

std::unique_ptr<TextReader> TextReader::Open(const std::string& path) {
  return std::unique_ptr<TextReader>(new TextReader(OpenDescriptor(path, O_RDONLY)));
}

bool TextReader::Fill() {
  buffer_.erase(0, next_);
  next_ = 0;
  const std::size_t held = buffer_.size();
  if (const int error = ReadSome(descriptor_.number(), kBuffer, buffer_)) FailSystem(error);
  return buffer_.size() > held;
}

std::optional<std::string> TextReader::ReadLine() {
  std::string line;
  for (;;) {
    const std::string_view rest = std::string_view(buffer_).substr(next_);
    const std::size_t end = rest.find_first_of("\r\n");
    line.append(rest.substr(0, end));
    if (end != std::string_view::npos) {
      next_ += end + 1;
      if (rest[end] == '\r') {
        const bool more = next_ < buffer_.size() || Fill();
        if (more && buffer_[next_] == '\n') ++next_;
      }
      return line;
    }
    next_ = buffer_.size();
    if (!Fill()) return line.empty() ? std::nullopt : std::optional(std::move(line));
  }
}

std::uint64_t TextReader::Size() const {
  return SizeOf(descriptor_);
}

std::unique_ptr<TextWriter> TextWriter::Open(const std::string& path) {
  return std::unique_ptr<TextWriter>(new TextWriter(OpenDescriptor(path, O_WRONLY | O_CREAT | O_TRUNC)));
}

TextWriter::~TextWriter() {
  Guard([this] { Flush(); });
}

void TextWriter::WriteLine(std::string_view line) {
  if (buffer_.size() + line.size() + kCrLf.size() > kBuffer) Flush();
  buffer_.append(line).append(kCrLf);
}

void TextWriter::Flush() {
  std::string_view rest = buffer_;
  const int error = WriteAll(descriptor_.number(), rest);
  buffer_.erase(0, buffer_.size() - rest.size());
  if (error != 0) FailSystem(error);
}

std::uint64_t TextWriter::Size() const {
  return SizeOf(descriptor_) + buffer_.size();
}

}  // namespace tessera
