// A text of fields as rows.
#include <algorithm>

#include "platform/system_reason.h"
#include "platform/whole_file.h"
#include "text/code_page.h"
#include "tool/row_source.h"

namespace tessera {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

class CsvSource final : public RowSource {
 public:
  explicit CsvSource(std::string text) : text_(std::move(text)) {
    const std::string_view first = std::string_view(text_).substr(0, text_.find('\n'));
    const auto count = [&](char mark) { return std::count(first.begin(), first.end(), mark); };
    for (const char mark : {',', '\t'}) {
      if (count(mark) > count(mark_)) mark_ = mark;
    }
    ImportedRow names;
    ReadLine(names);
    for (const Value& name : names) columns_.push_back(name.ToText());
    first_ = next_;
  }

  const std::vector<std::string>& Columns() const override { return columns_; }
  void Rewind() override { next_ = first_; }
  bool Next(ImportedRow& row) override {
    do {
      if (next_ >= text_.size()) return false;
      ReadLine(row);
    } while (row.size() == 1 && row.front().ToText().empty());
    row.resize(columns_.size());
    return true;
  }
  std::string Problem() const override { return {}; }

 private:
  // Reads up to the end of a line, or of the text within quotes.
  void ReadLine(ImportedRow& row) {
    row.clear();
    for (;;) {
      row.push_back(ReadField());
      if (next_ >= text_.size()) return;
      const char end = text_[next_++];
      if (end == mark_) continue;
      if (end == '\r' && next_ < text_.size() && text_[next_] == '\n') ++next_;
      return;
    }
  }

  Value ReadField() {
    std::string field;
    bool quoted = false;
    for (; next_ < text_.size(); ++next_) {
      const char c = text_[next_];
      if (quoted && c == '"' && next_ + 1 < text_.size() && text_[next_ + 1] == '"') {
        field += '"';
        ++next_;
      } else if (c == '"' && (quoted || field.empty())) {
        quoted = !quoted;
      } else if (!quoted && (c == mark_ || c == '\r' || c == '\n')) {
        break;
      } else {
        field += c;
      }
    }
    if (field.empty()) return {};
    return field;
  }

  std::string text_;
  char mark_ = ';';
  std::vector<std::string> columns_;
  std::size_t first_ = 0;  // of the rows
  std::size_t next_ = 0;
};

}  // namespace

OpenedSource OpenCsv(const std::string& path) {
  auto read = ReadWholeFile(path);
  if (const auto* error = std::get_if<SystemError>(&read))
    return path + ": não pode ser lido: " + SystemReason(error->number);
  std::string bytes = std::get<std::string>(std::move(read));
  if (bytes.starts_with(kByteOrderMark)) bytes.erase(0, kByteOrderMark.size());
  auto text = FromUtf8(bytes);
  if (const auto* problem = std::get_if<Utf8Problem>(&text)) {
    // What is no UTF-8 is in the code page already; a character that the code page lacks reads as "?".
    return std::make_unique<CsvSource>(problem->malformed ? bytes : FromUtf8Lossy(bytes));
  }
  return std::make_unique<CsvSource>(std::get<std::string>(std::move(text)));
}

}  // namespace tessera
