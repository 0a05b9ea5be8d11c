// Shows what the checker found: to a person, with the line and carets below the place, or to another program.
#pragma once

#include <array>
#include <iosfwd>
#include <string>
#include <vector>

#include "checker/check.h"
#include "tool/program_files.h"

namespace tessera {

enum class FindingFormat { Person, JsonLines, Sarif };

class FindingPrinter {
 public:
  // `coloured`: with the colours of a terminal.
  FindingPrinter(const LoadedProgram& program, std::ostream& out, bool coloured)
      : program_(program), out_(out), coloured_(coloured) {}

  void Print(const std::vector<check::Finding>& findings, FindingFormat format) const;

 private:
  void PrintForPerson(const std::vector<check::Finding>& findings) const;
  void PrintJsonLines(const std::vector<check::Finding>& findings) const;
  void PrintSarif(const std::vector<check::Finding>& findings) const;
  void PrintPlace(const check::Span& span, const char* colour) const;
  std::string Painted(const char* colour, const std::string& text) const;
  std::string FileOf(const check::Span& span) const;

  const LoadedProgram& program_;
  std::ostream& out_;
  bool coloured_;
};

// "3 erros e 1 aviso"; empty for none.
std::string CountedFindings(const std::vector<check::Finding>& findings);

}  // namespace tessera
