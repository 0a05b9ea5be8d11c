#include "checker/check.h"

#include <algorithm>
#include <numeric>
#include <set>

#include "checker/blocks.h"
#include "checker/flow.h"
#include "checker/program_rules.h"
#include "checker/rehearsal.h"
#include "checker/routine_rules.h"
#include "checker/silence.h"
#include "checker/statement_rules.h"
#include "checker/straight_rules.h"
#include "checker/texts.h"
#include "checker/uses.h"
#include "prepare/block_report.h"
#include "prepare/linking.h"
#include "prepare/prepare.h"
#include "text/code_page.h"
#include "text/one_based.h"

namespace tessera::check {

struct Program::Reading {
  Reading(std::size_t editor, std::string_view text)
      : source(editor, std::string(text)), outline(ReadOutline(source)), uses(ReadUses(source, outline)) {}

  Source source;
  Outline outline;
  Uses uses;
};

namespace {

void CheckStatements(Context& context) {
  const auto& statements = context.source.statements();
  for (std::size_t i = 0; i < statements.size(); ++i) {
    context.tokens = context.source.TokensOf(statements[i]);
    context.formed = context.outline.forms[i];
    const std::size_t routine = context.outline.routineOf[i];
    context.routine = routine == kNone ? nullptr : &context.outline.routines[routine];
    if (CheckText(context)) CheckStatement(context);
  }
}

bool ComesBefore(const Finding& a, const Finding& b) {
  if (a.span.editor != b.span.editor) return a.span.editor < b.span.editor;
  if (a.span.line != b.span.line) return a.span.line < b.span.line;
  if (a.span.column != b.span.column) return a.span.column < b.span.column;
  return a.rule->code < b.rule->code;
}

// A mistake that is made again and again is told at its first place.
bool IsToldOnce(const Rule* rule) {
  return rule == &rule::kUndeclared || rule == &rule::kUnknownDatabase || rule == &rule::kNeverOpened ||
         rule == &rule::kAliasIsVariable;
}

void Tidy(std::vector<Finding>& findings) {
  std::stable_sort(findings.begin(), findings.end(), ComesBefore);
  std::set<std::string> told;
  std::set<std::pair<Span, const Rule*>> places;
  // Whose name was written wrong somewhere is read there.
  const auto isProposed = [&](const Finding& unread) {
    const std::string name =
        unread.message.substr(0, unread.message.find('"', unread.message.find('"') + 1) + 1);
    const std::string quoted = name.substr(name.find('"'));
    return std::any_of(findings.begin(), findings.end(), [&](const Finding& other) {
      return other.rule == &rule::kUndeclared && Lower(other.advice).find(Lower(quoted)) != std::string::npos;
    });
  };
  std::vector<bool> drops(findings.size());
  for (std::size_t i = 0; i < findings.size(); ++i)
    drops[i] = findings[i].rule == &rule::kNeverRead && isProposed(findings[i]);
  std::size_t row = 0;
  std::erase_if(findings, [&](const Finding&) { return drops[row++]; });
  std::set<std::pair<std::size_t, std::size_t>> parameterLines;
  std::erase_if(findings, [&](const Finding& finding) {
    if (finding.rule == &rule::kParameterName &&
        !parameterLines.emplace(finding.span.editor, finding.span.line).second)
      return true;
    if (!places.emplace(finding.span, finding.rule).second) return true;
    return IsToldOnce(finding.rule) && !told.insert(finding.message).second;
  });
}

}  // namespace

Program::Program() = default;
Program::~Program() = default;

void Program::SetEditor(std::size_t editor, std::string_view text) {
  auto& reading = readings_.at(editor);
  if (reading != nullptr && reading->source.text() == text) return;
  reading = std::make_unique<Reading>(editor, text);
}

std::vector<Finding> Program::FindingsOf(std::size_t editor) {
  return Look({editor});
}

std::vector<Finding> Program::Findings() {
  std::vector<std::size_t> all(readings_.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  std::vector<Finding> findings = Look(all);
  TellRefusal(findings);
  return findings;
}

// Blocks are counted before a program starts, and whatever the rules say, a program that the count refuses
// has an error.
void Program::TellRefusal(std::vector<Finding>& findings) const {
  if (HasError(findings)) return;
  EditorTexts editors;
  bool mayBeRefused = false;
  for (std::size_t i = 0; i < readings_.size(); ++i) {
    editors[i] = readings_[i]->source.text();
    // What the rules on blocks don't see has a bracket, or the end of a statement's head: "#12 Se".
    mayBeRefused = mayBeRefused || editors[i].find_first_of("[#") != std::string::npos;
  }
  if (!mayBeRefused) return;
  const PreparedProgram prepared = PrepareProgram(editors, [](std::string_view) {});
  const std::string_view text = prepared.ProgramText->text();
  if (tessera::CheckBlocks(text).empty()) return;
  for (const PlacedProblem& problem : ReportBlocks(text)) {
    const auto editor = static_cast<std::size_t>(std::max(problem.place.editor, 0));
    const bool isKnown = problem.place.editor >= 0 && editor < kEditors && problem.place.line > 0;
    const Span place{.editor = isKnown ? editor : 0,
                     .line = isKnown ? static_cast<std::size_t>(problem.place.line) : 1};
    findings.push_back({&rule::kCountedText,
                        place,
                        ToUtf8(problem.message),
                        "o programa não começa assim: mude esta linha",
                        {}});
  }
}

std::vector<Finding> Program::Look(const std::vector<std::size_t>& sought) {
  std::vector<Editor> editors;
  std::vector<const Uses*> uses;
  Silence silence;
  for (std::size_t i = 0; i < readings_.size(); ++i) {
    if (readings_[i] == nullptr) SetEditor(i, "");
    editors.push_back({&readings_[i]->source, &readings_[i]->outline});
    uses.push_back(&readings_[i]->uses);
    silence.Read(readings_[i]->source);
  }
  const Names names(editors);
  Summaries summaries(names);
  Rehearsal rehearsal(names);
  std::vector<Finding> findings;
  for (const std::size_t row : sought) {
    const Editor& editor = editors[row];
    Context context{*editor.source, *editor.outline, names, findings, &rehearsal};
    const BlockMap blocks = CheckBlocks(context);
    CheckTabs(context);
    CheckStatements(context);
    CheckRoutines(context, blocks);
    CheckRoutineNames(context);
    CheckJumps(context, blocks);
    CheckReach(context, blocks);
    CheckLoops(context, blocks, summaries);
    CheckRecursion(context, blocks);
    CheckNames(context, uses);
    CheckOrder(context, blocks);
    CheckFiles(context, uses);
    CheckStraightRuns(context);
    CheckDatabases(context);
  }
  Tidy(findings);
  std::erase_if(findings, [&](const Finding& finding) { return silence.Allows(finding); });
  return findings;
}

std::vector<Finding> Check(const EditorTexts& editors) {
  Program program;
  for (std::size_t i = 0; i < editors.size(); ++i) program.SetEditor(i, editors[i]);
  return program.Findings();
}

bool HasError(const std::vector<Finding>& findings) {
  return std::any_of(findings.begin(), findings.end(),
                     [](const Finding& finding) { return finding.rule->severity == Severity::Error; });
}

}  // namespace tessera::check
