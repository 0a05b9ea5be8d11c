// What does the keywords or the suffixes of a word: each form of its row with its act. A form without an act,
// or an act without a form, stops the start.
#pragma once

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "language/word.h"

namespace tessera {

template <typename Act>
class FormTable {
 public:
  struct Row {
    std::string_view word;  // as the form has it
    Act act;
  };
  struct Bound {
    const WordForm* form;
    Act act;
  };

  // Forms that are found anywhere may go without an act. The forms outlive the table.
  FormTable(std::span<const WordForm> forms, std::initializer_list<std::span<const Row>> tables) {
    for (const std::span<const Row>& rows : tables) {
      for (const Row& row : rows) {
        const WordForm* form = FindForm(forms, row.word);
        if (form == nullptr || Find(row.word) != nullptr) Refuse(row.word, "no such form, or done twice");
        bound_.push_back({form, row.act});
      }
    }
    for (const WordForm& form : forms) {
      if (!form.anywhere && Find(form.word) == nullptr) Refuse(form.word, "done by nobody");
    }
  }

  // Null for a word that is no form.
  const Bound* Find(std::string_view word) const {
    for (const Bound& bound : bound_) {
      if (bound.form->word == word) return &bound;
    }
    return nullptr;
  }

  auto begin() const { return bound_.begin(); }
  auto end() const { return bound_.end(); }

 private:
  [[noreturn]] static void Refuse(std::string_view word, std::string_view reason) {
    throw std::logic_error("form " + std::string(word) + ": " + std::string(reason));
  }

  std::vector<Bound> bound_;
};

}  // namespace tessera
