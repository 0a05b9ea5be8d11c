#include "controls/btn_esp.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

using Picture = BtnEsp::Picture;
using KeyEffect = BtnEsp::KeyEffect;

TEST(BtnEsp, LeavesItsHoverAtTheTickThatMissesThePointer) {
  BtnEsp button;
  button.PointerMove(true);
  button.Tick(true);
  EXPECT_TRUE(button.TimerRuns());
  button.Tick(false);
  EXPECT_FALSE(button.TimerRuns());
  EXPECT_EQ(button.Shown(), Picture::kBtnUp);
}

TEST(BtnEsp, ArrowsWalkTheFocus) {
  BtnEsp button;
  for (const int code : {39, 40}) EXPECT_EQ(button.KeyDown(code), KeyEffect::kFocusNext);
  for (const int code : {37, 38}) EXPECT_EQ(button.KeyDown(code), KeyEffect::kFocusPrevious);
  EXPECT_EQ(button.KeyDown(65), KeyEffect::kNone);
}

TEST(BtnEsp, SpaceAndEnterPressItOncePerPause) {
  for (const int code : {32, 13}) {
    BtnEsp button;
    EXPECT_EQ(button.KeyDown(code), KeyEffect::kPress);
    EXPECT_EQ(button.Shown(), Picture::kBtnDown);
    EXPECT_EQ(button.KeyDown(code), KeyEffect::kNone);
    button.EndKeyPress();
    EXPECT_EQ(button.Shown(), Picture::kBtnUp);
    EXPECT_EQ(button.KeyDown(code), KeyEffect::kPress);
  }
}

TEST(BtnEsp, AClickIsPressedAndLetGoInside) {
  BtnEsp button;
  button.PointerDown();
  button.PointerMove(false);
  EXPECT_NE(button.Shown(), Picture::kBtnDown);
  EXPECT_FALSE(button.PointerUp(false));
  EXPECT_FALSE(button.PointerUp(true));
  button.PointerDown();
  EXPECT_TRUE(button.PointerUp(true));
  button.SetEnabled(false);
  button.PointerDown();
  EXPECT_FALSE(button.PointerUp(true));
  EXPECT_EQ(button.KeyDown(13), KeyEffect::kNone);
}

}  // namespace
}  // namespace tessera
