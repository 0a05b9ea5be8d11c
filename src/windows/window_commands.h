// The commands that print into the current window, set its text cursor and font, and tell its size:
// `Escreva`, `Posicione`, `Cls`, `LimpaJanela`, `Fonte`, `AlturaJanela`, `LarguraJanela`.
#pragma once

#include <cstddef>
#include <span>
#include <string>

#include "commands/command_table.h"
#include "text/one_based.h"
#include "values/eval.h"
#include "values/run.h"

namespace tessera {

struct WindowModel;

// What `Escreva` prints: its values one behind the other, and whether a title is meant.
struct PrintedLine {
  std::string text;
  bool isTitle = false;
};

// The line of such values as a program wrote them; `valueAt` computes one by its place.
template <typename ValueAt>
PrintedLine LineOf(Run& run, std::span<const std::string> values, ValueAt valueAt) {
  PrintedLine line;
  for (std::size_t place = 0; place < values.size(); ++place) {
    const std::string& argument = values[place];
    if (EqualsIgnoringCase(argument, "TITULOJANELA")) {
      line.isTitle = true;
    } else if (argument == "Data()" || argument == "Hora()") {
      line.text += EvalText(run, argument).ToText();
    } else {
      line.text += valueAt(place).ToText();
    }
  }
  return line;
}

void BindWindowCommands(CommandTable& table, WindowModel& windows);

}  // namespace tessera
