// FAST: the calls in a list of arguments that are replaced before it is cut, in a text that never changes.
// They are run as ever; an answer that can only be a piece of its own is put among the others without being
// cut.
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "values/call_form.h"
#include "values/calls.h"
#include "values/run.h"

namespace tessera {

class ListCalls {
 public:
  // `text` is the list, and outlives the form. Null for a list of which a piece is more than an answer or a
  // text without calls of the language. `parts` become its pieces up to the last one; those of answers are
  // empty.
  static std::unique_ptr<const ListCalls> Of(const Run& run, std::string_view text, std::size_t places,
                                             bool splitAtEqual, std::vector<std::string>& parts);

  // How many pieces of the list are answers.
  std::size_t pieces() const {
    return static_cast<std::size_t>(std::ranges::count(calls_, false, &ListCall::isArgument));
  }

  // Runs the calls and puts their answers into `parts`, which are those of the list. False where an answer is
  // anything but a literal or a whole number: `parts` are then what the rules make of the list.
  bool Run(tessera::Run& run, std::size_t places, bool splitAtEqual, std::vector<std::string>& parts) const;

 private:
  struct ListCall {
    std::string name;
    std::size_t place = 0;
    bool isText = false;       // its word answers with a text
    bool isArgument = false;   // of another call, and no piece of the list
    bool mayLoseRest = false;  // something stands behind it
    std::unique_ptr<const CallForm> form = nullptr;
  };

  bool Feed(Call& call, const std::vector<std::string>& names);
  explicit ListCalls(std::string_view text) : text_(text) {}
  bool IsPiece(const tessera::Run& run, std::size_t call, std::string_view answer) const;
  std::vector<std::string> CutByRules(tessera::Run& run, const std::vector<std::string>& answers,
                                      bool restIsLost, std::size_t places, bool splitAtEqual) const;

  std::string_view text_;
  std::vector<ListCall> calls_;
  bool isWhole_ = false;  // the list is one call
};

}  // namespace tessera
