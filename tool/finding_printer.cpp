#include "tool/finding_printer.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <ostream>
#include <set>

#include "checker/rules.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera {

namespace {

using check::Finding;
using check::Severity;
using check::Span;
using Json = nlohmann::ordered_json;

constexpr const char* kRed = "\033[1;31m";
constexpr const char* kYellow = "\033[1;33m";
constexpr const char* kBlue = "\033[1;34m";
constexpr const char* kGreen = "\033[1;32m";
constexpr const char* kBold = "\033[1m";
constexpr const char* kPlain = "\033[0m";

// The manual's page, from the documentation's folder.
constexpr const char* kManual = "docs/manual/avisos.md";

const char* WordOf(Severity severity) {
  return severity == Severity::Error ? "erro" : "aviso";
}

std::string_view LineOf(std::string_view text, std::size_t line) {
  for (std::size_t i = 1; i < line; ++i) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) return {};
    text.remove_prefix(end + 1);
  }
  text = text.substr(0, text.find('\n'));
  if (text.ends_with('\r')) text.remove_suffix(1);
  return text;
}

std::string Lowered(std::string_view code) {
  return Lower(code);
}

Json Region(const Span& span) {
  return {{"startLine", span.line}, {"startColumn", span.column}, {"endColumn", span.column + span.size}};
}

}  // namespace

std::string FindingPrinter::Painted(const char* colour, const std::string& text) const {
  return coloured_ ? colour + text + kPlain : text;
}

std::string FindingPrinter::FileOf(const Span& span) const {
  const std::string& file = program_.files.at(std::min(span.editor, program_.files.size() - 1));
  return file.empty() ? program_.files[0] : file;
}

void FindingPrinter::Print(const std::vector<Finding>& findings, FindingFormat format) const {
  switch (format) {
    case FindingFormat::Person:
      return PrintForPerson(findings);
    case FindingFormat::JsonLines:
      return PrintJsonLines(findings);
    case FindingFormat::Sarif:
      return PrintSarif(findings);
  }
}

// The source's line behind its number, and carets below the place. A tab counts as one column, as it stands.
void FindingPrinter::PrintPlace(const Span& span, const char* colour) const {
  const std::string number = std::to_string(span.line);
  const std::string gutter(number.size(), ' ');
  std::string line = ToUtf8(LineOf(program_.program.EditorText.at(span.editor), span.line));
  std::replace(line.begin(), line.end(), '\t', ' ');
  const std::size_t length = LineOf(program_.program.EditorText.at(span.editor), span.line).size();
  const std::size_t carets = span.column > length ? 1 : std::min(span.size, length - span.column + 1);
  out_ << "  " << Painted(kBlue, number + " |") << ' ' << line << '\n';
  out_ << "  " << Painted(kBlue, gutter + " |") << ' ' << std::string(span.column - 1, ' ')
       << Painted(colour, std::string(std::max<std::size_t>(carets, 1), '^')) << '\n';
}

void FindingPrinter::PrintForPerson(const std::vector<Finding>& findings) const {
  bool isFirst = true;
  for (const Finding& finding : findings) {
    const char* colour = finding.rule->severity == Severity::Error ? kRed : kYellow;
    if (!isFirst) out_ << '\n';
    isFirst = false;
    out_ << Painted(kBold, FileOf(finding.span) + ":" + std::to_string(finding.span.line) + ":" +
                               std::to_string(finding.span.column) + ": ")
         << Painted(colour,
                    std::string(WordOf(finding.rule->severity)) + "[" + std::string(finding.rule->code) + "]")
         << ": " << Painted(kBold, finding.message) << '\n';
    PrintPlace(finding.span, colour);
    for (const check::Note& note : finding.notes) {
      const bool isSameFile = note.span.editor == finding.span.editor;
      out_ << "  " << (isSameFile ? "linha " : FileOf(note.span) + ":") << note.span.line << ": " << note.text
           << '\n';
      PrintPlace(note.span, kBlue);
    }
    if (!finding.advice.empty()) out_ << "  " << Painted(kGreen, "ajuda") << ": " << finding.advice << '\n';
  }
  if (!findings.empty()) out_ << '\n' << CountedFindings(findings) << '\n';
}

void FindingPrinter::PrintJsonLines(const std::vector<Finding>& findings) const {
  for (const Finding& finding : findings) {
    Json object = {{"file", FileOf(finding.span)},
                   {"line", finding.span.line},
                   {"column", finding.span.column},
                   {"size", finding.span.size},
                   {"severity", finding.rule->severity == Severity::Error ? "error" : "warning"},
                   {"code", finding.rule->code},
                   {"message", finding.message},
                   {"help", finding.advice},
                   {"notes", Json::array()}};
    for (const check::Note& note : finding.notes) {
      object["notes"].push_back({{"file", FileOf(note.span)},
                                 {"line", note.span.line},
                                 {"column", note.span.column},
                                 {"size", note.span.size},
                                 {"message", note.text}});
    }
    out_ << object.dump() << '\n';
  }
}

// SARIF 2.1.0, as services that show findings beside the code read it.
void FindingPrinter::PrintSarif(const std::vector<Finding>& findings) const {
  Json rules = Json::array();
  std::set<std::string_view> listed;
  for (const Finding& finding : findings) {
    if (!listed.insert(finding.rule->code).second) continue;
    rules.push_back({{"id", finding.rule->code},
                     {"shortDescription", {{"text", finding.rule->title}}},
                     {"helpUri", std::string(kManual) + "#" + Lowered(finding.rule->code)}});
  }
  Json results = Json::array();
  const auto location = [&](const Span& span) {
    return Json{
        {"physicalLocation", {{"artifactLocation", {{"uri", FileOf(span)}}}, {"region", Region(span)}}}};
  };
  for (const Finding& finding : findings) {
    Json result = {{"ruleId", finding.rule->code},
                   {"level", finding.rule->severity == Severity::Error ? "error" : "warning"},
                   {"message", {{"text", finding.message + "; " + finding.advice}}},
                   {"locations", Json::array({location(finding.span)})}};
    for (const check::Note& note : finding.notes) {
      Json related = location(note.span);
      related["message"] = {{"text", note.text}};
      result["relatedLocations"].push_back(related);
    }
    results.push_back(result);
  }
  const Json run = {{"tool", {{"driver", {{"name", "tessera"}, {"rules", rules}}}}},
                    {"columnKind", "unicodeCodePoints"},
                    {"results", results}};
  out_ << Json{{"$schema", "https://json.schemastore.org/sarif-2.1.0.json"},
               {"version", "2.1.0"},
               {"runs", Json::array({run})}}
              .dump(2)
       << '\n';
}

std::string CountedFindings(const std::vector<Finding>& findings) {
  const auto errors = std::count_if(findings.begin(), findings.end(), [](const Finding& finding) {
    return finding.rule->severity == Severity::Error;
  });
  const auto warnings = static_cast<std::ptrdiff_t>(findings.size()) - errors;
  const auto counted = [](std::ptrdiff_t count, const std::string& word) {
    return std::to_string(count) + " " + word + (count == 1 ? "" : "s");
  };
  std::string text;
  if (errors > 0) text = counted(errors, "erro");
  if (warnings > 0) text += (text.empty() ? "" : " e ") + counted(warnings, "aviso");
  return text;
}

}  // namespace tessera
