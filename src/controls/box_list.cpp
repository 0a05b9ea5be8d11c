#include "controls/box_list.h"

#include "controls/key_code.h"
#include "text/one_based.h"

namespace tessera {

std::string BoxList::Celula(int visibleRow, int column) const {
  const bool visible = visibleRow >= 0 && visibleRow < TotalLinhas();
  return visible ? LeVetor(LinIniVet() + visibleRow, column) : std::string();
}

void BoxList::SetChk(std::int32_t row, bool on) {
  if (InMatrix(row, 0)) Matrix().SetMark(static_cast<std::size_t>(row), on);
}

bool BoxList::ValChk(std::int32_t row) const {
  return InMatrix(row, 0) && Matrix().Mark(static_cast<std::size_t>(row));
}

int BoxList::ArgChk() const {
  return HasCursor() && ValChk(LinVetRef()) ? 1 : 0;
}

bool BoxList::DeleteRegistroAtual() {
  if (!HasCursor()) return false;
  RemoveLinha(LinVetRef());
  return true;
}

bool BoxList::TestaLinhaVazia(std::int32_t row) const {
  for (std::int32_t column = 0; column < TotalColunas(); ++column) {
    if (!Trim(LeVetor(row, column)).empty()) return false;
  }
  return true;
}

bool BoxList::KeyDown(int code) {
  if (!MoveKey(code)) return false;
  if (code == key::kDelete && delete_) DeleteRegistroAtual();
  if (code == key::kSpace) ToggleChk();
  return true;
}

bool BoxList::Click(int visibleRow, bool onCheckBox) {
  if (!Enabled() || !SelBox(visibleRow)) return false;
  if (onCheckBox) ToggleChk();
  return true;
}

void BoxList::ToggleChk() {
  if (HasCursor()) SetChk(LinVetRef(), ArgChk() == 0);
}

}  // namespace tessera
