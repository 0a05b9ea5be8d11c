#include "values/name_form.h"

#include "text/one_based.h"
#include "values/value.h"

namespace tessera {

std::optional<NameForm> NameForm::Of(VariableStore& store, std::string_view name) {
  NameForm form;
  form.symbol = &store.Intern(name);
  const Position open = Find(name, "(");
  if (open == 0) return form;
  form.isElement = true;
  const Position close = Find(name, ")");
  if (close < open + 1) return std::nullopt;
  const std::string_view index = Mid(name, open + 1, close - open - 1);
  if (const auto number = WholeNumber(index)) {
    const double rounded = RoundHalfEven(*number);
    constexpr double kMost = 2147483647;
    if (rounded < -kMost || rounded > kMost) return std::nullopt;
    form.offset = static_cast<std::int32_t>(rounded);
  } else {
    form.index = &store.Intern(index);
  }
  return form;
}

Value ReadBy(VariableStore& store, const NameForm& form, std::string_view name) {
  if (store.SymbolsTellAll()) {
    if (const std::int32_t* integer = form.Integer(store)) return *integer;
    if (const double* decimal = form.Decimal(store)) return *decimal;
    if (const std::string* text = form.Text(store)) return *text;
  }
  return store.VarRead(name);
}

void WriteBy(VariableStore& store, const NameForm& form, std::string_view name, Value&& value) {
  if (store.SymbolsTellAll() && !form.isElement && form.type() != VariableType::None) {
    store.WriteTo(*form.symbol, std::move(value));
  } else {
    store.VarWrite(name, std::move(value), true);
  }
}

}  // namespace tessera
