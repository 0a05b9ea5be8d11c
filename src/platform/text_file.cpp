#include "platform/text_file.h"

#include <utility>
#include <variant>

#include "platform/failure.h"
#include "platform/file_system.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::size_t kBuffer = std::size_t{1} << 16;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::unique_ptr<StoredFile> OpenStored(FileStore& files, const std::string& path, OpenAs how) {
  auto [file, error] = files.Open(path, how);
  if (error != 0) FailOpening(files, path, error);
  return std::move(file);
}

std::uint64_t SizeOf(const StoredFile& file) {
  std::uint64_t size = 0;
  if (const int error = file.Size(size)) FailSystem(error);
  return size;
}

}  // namespace

std::unique_ptr<TextReader> TextReader::Open(FileStore& files, const std::string& path) {
  return std::unique_ptr<TextReader>(new TextReader(OpenStored(files, path, OpenAs::Read)));
}

bool TextReader::Fill() {
  buffer_.erase(0, next_);
  next_ = 0;
  const std::size_t held = buffer_.size();
  if (const int error = file_->ReadAt(read_, kBuffer, buffer_)) FailSystem(error);
  read_ += buffer_.size() - held;
  if (read_ == buffer_.size()) LearnEncoding();
  return buffer_.size() > held;
}

// The buffer holds the first bytes of the file.
void TextReader::LearnEncoding() {
  isUtf8_ = IsUtf8BeyondAscii(buffer_, buffer_.size() >= kBuffer);
  if (isUtf8_ && buffer_.starts_with(kByteOrderMark)) next_ = kByteOrderMark.size();
}

std::optional<std::string_view> TextReader::ReadLine() {
  const std::optional<std::string_view> line = ReadBytes();
  if (!line || !isUtf8_) return line;
  auto text = FromUtf8(*line);
  if (std::string* whole = std::get_if<std::string>(&text)) {
    line_ = std::move(*whole);
  } else if (std::get<Utf8Problem>(text).malformed) {
    return line;
  } else {
    line_ = FromUtf8Lossy(*line);
  }
  return line_;
}

std::optional<std::string_view> TextReader::ReadBytes() {
  line_.clear();
  for (;;) {
    const std::string_view rest = std::string_view(buffer_).substr(next_);
    const std::size_t end = FindEither(rest, '\r', '\n');
    if (end == std::string_view::npos) {
      line_.append(rest);
      next_ = buffer_.size();
      if (Fill()) continue;
      return line_.empty() ? std::nullopt : std::optional<std::string_view>(line_);
    }
    const bool isReturn = rest[end] == '\r';
    next_ += end + 1;
    // The LF behind a CR, or the byte that shows that there is none, may still be in the file.
    const bool endsBuffer = isReturn && next_ == buffer_.size();
    if (line_.empty() && !endsBuffer) {
      if (isReturn && buffer_[next_] == '\n') ++next_;
      return rest.substr(0, end);
    }
    line_.append(rest.substr(0, end));
    const bool more = !endsBuffer || Fill();
    if (isReturn && more && buffer_[next_] == '\n') ++next_;
    return line_;
  }
}

std::uint64_t TextReader::Size() const {
  return SizeOf(*file_);
}

std::unique_ptr<TextWriter> TextWriter::Open(FileStore& files, const std::string& path) {
  return std::unique_ptr<TextWriter>(new TextWriter(OpenStored(files, path, OpenAs::Rewrite)));
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
  const int error = file_->WriteAt(written_, rest);
  const std::size_t taken = buffer_.size() - rest.size();
  written_ += taken;
  buffer_.erase(0, taken);
  if (error != 0) FailSystem(error);
}

std::uint64_t TextWriter::Size() const {
  return SizeOf(*file_) + buffer_.size();
}

}  // namespace tessera
