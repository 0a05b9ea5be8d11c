#include "objects/list_events.h"

#include <chrono>
#include <cstdint>
#include <string>

#include "objects/object_frame.h"
#include "platform/failure.h"
#include "text/one_based.h"
#include "windows/window_model.h"

namespace tessera {

namespace {

constexpr std::chrono::milliseconds kClickPause{100};

}  // namespace

void ListEvents::Click(const Control& list, const BoxRows& rows) {
  VariableStore& variables = frame_.run().variables;
  // 1.
  Guard([&] { variables.VarWrite("IndiceRef", std::int32_t{list.Index()}, true); });
  // 3. A row is selected, with values in it or none: its cells. A title that came behind `.ATIVA` has no
  // element.
  if (rows.HasCursor()) {
    for (int column = 0; column < rows.TotalColunas(); ++column) {
      const std::string element = list.Name() + ".Txt(" + std::to_string(column) + ")";
      Guard([&] { variables.VarWrite(element, std::string(Trim(rows.Arg(column))), false); });
    }
  }
  // 2.
  frame_.run().host.events.Pause(kClickPause);
  TellPending(list, "CLIQUEBOX");
}

void ListEvents::DoubleClick(const Control& list) {
  TellPending(list, "DUPLOCLIQUEBOX");
}

void ListEvents::Focus(std::string_view variable, const Control& list) {
  Guard([&] { frame_.run().variables.VarWrite(variable, list.Name(), true); });
}

void ListEvents::TellPending(const Control& list, std::string_view event) {
  Guard([&] { frame_.run().variables.VarWrite("ValorObjeto", list.Name(), true); });
  frame_.windows().events.EventoBox = event;
}

}  // namespace tessera
