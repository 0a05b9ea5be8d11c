// The words of media that say by their first argument what to do.
#pragma once

#include <string>

#include "commands/arguments.h"
#include "commands/form_table.h"

namespace tessera::media {

template <typename Group>
using KeywordTable = FormTable<void (Group::*)(const ArgumentView& arguments)>;

// Lets the group do what the first argument says, with or without quotes and in any case; an unknown word
// does nothing.
template <typename Group>
Value DoKeyword(Group& group, const KeywordTable<Group>& table, const WordCall& call) {
  const Arguments arguments(call);
  const auto* bound = table.Find(Upper(Unquote(Trim(arguments.Raw("palavra")))));
  if (bound == nullptr) bound = table.Find(arguments.Word("palavra"));
  if (bound != nullptr) (group.*bound->act)(arguments.As(bound->form->arguments, 1));
  return {};
}

}  // namespace tessera::media
