// What a rule sees of the statement that it looks at, and where it puts what it finds.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "checker/names.h"
#include "checker/rules.h"
#include "text/code_page.h"

namespace tessera::check {

// A piece of the program's text as messages show it: in UTF-8, in double quotes, which a literal has already.
inline std::string Shown(std::string_view text) {
  return text.size() > 1 && text.starts_with('"') && text.ends_with('"') ? ToUtf8(text)
                                                                         : "\"" + ToUtf8(text) + "\"";
}

// A text of ours, which is UTF-8 already, in double quotes.
inline std::string Quoted(std::string_view utf8) {
  return "\"" + std::string(utf8) + "\"";
}

class Rehearsal;

struct Context {
  const Source& source;
  const Outline& outline;
  const Names& names;
  std::vector<Finding>& findings;
  Rehearsal* rehearsal = nullptr;

  Tokens tokens = {};  // of the statement
  FormedWord formed = {};
  const Routine* routine = nullptr;  // in which it stands
  std::size_t callDepth = 0;         // of the calls around the expression that is looked at

  void Tell(const Rule& rule, const Token& token, std::string message, std::string advice,
            std::vector<Note> notes = {}) {
    Tell(rule, source.SpanOf(token), std::move(message), std::move(advice), std::move(notes));
  }
  void Tell(const Rule& rule, Tokens at, std::string message, std::string advice,
            std::vector<Note> notes = {}) {
    Tell(rule, source.SpanOf(at), std::move(message), std::move(advice), std::move(notes));
  }
  void Tell(const Rule& rule, const Span& span, std::string message, std::string advice,
            std::vector<Note> notes = {}) {
    findings.push_back({&rule, span, std::move(message), std::move(advice), std::move(notes)});
  }

  // The parameter or local of the running function by that name, in just this case; null for none.
  const Local* FindLocal(std::string_view name) const;
  const Local* FindLocalAnyCase(std::string_view upper) const;
};

}  // namespace tessera::check
