#include "qt/form_acts.h"

#include "windows/act_line.h"
#include "windows/form.h"

namespace tessera {

namespace {

constexpr int kShift = 16;
constexpr int kControl = 17;

std::string NumberOf(MouseButton button) {
  return std::to_string(static_cast<int>(button));
}

}  // namespace

std::string MoveLine(const Form& form, PointerPlace to) {
  const Grid grid = form.Events().PlacementGrid();
  return ActLine({"mouse", ActNumber(to.y / grid.TamLin), ActNumber(to.x / grid.TamCol)});
}

std::vector<std::string> PressLines(const Form& form, PointerPlace at, MouseButton button) {
  return {MoveLine(form, at), ActLine({"pressiona", NumberOf(button)})};
}

std::string ReleaseLine(MouseButton button) {
  return ActLine({"libera", NumberOf(button)});
}

std::string KeyDownLine(int keyCode, KeyShift shift) {
  if (keyCode == 0) return {};
  const bool comesWithOther = (shift.shift || shift.ctrl) && keyCode != kShift && keyCode != kControl;
  return comesWithOther ? KeyLine(keyCode, shift) : ActLine({"aperta", std::to_string(keyCode)});
}

std::string KeyUpLine(int keyCode) {
  return keyCode == 0 ? std::string() : ActLine({"solta", std::to_string(keyCode)});
}

std::string ResizeLine(double width, double height) {
  return ActLine({"redim", ActNumber(TwipsOfPixels(height) / kWindowLineTwips),
                  ActNumber(TwipsOfPixels(width) / kWindowColumnTwips)});
}

}  // namespace tessera
