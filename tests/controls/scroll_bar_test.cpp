#include "controls/scroll_bar.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

// Arrows of 16 pixels, a thumb of 20; the thumb travels from 16 to 116, one pixel a step.
struct BarTest : testing::Test {
  BarTest() {
    bar.Change = [this] { ++changes; };
    bar.IniciaBarra(152, 16, 20);
  }
  void Ticks(int count) {
    while (count-- > 0) bar.Tick();
  }
  ScrollBar bar;
  int changes = 0;
};

TEST_F(BarTest, ArrowsStepWithinTheirBounds) {
  bar.SetSmallChange(60);
  bar.PointerDown(150);
  EXPECT_EQ(bar.Value(), 60);
  EXPECT_EQ(bar.ThumbPosition(), 76);
  bar.PointerUp();
  bar.PointerDown(150);
  EXPECT_EQ(bar.Value(), 100);
  bar.PointerUp();
  bar.PointerDown(151);
  EXPECT_EQ(changes, 2);
  bar.PointerUp();
  bar.PointerDown(0);
  EXPECT_EQ(bar.Value(), 40);
}

TEST_F(BarTest, AHeldArrowRepeatsAfterMoreThanTenTicks) {
  bar.PointerDown(150);
  Ticks(10);
  EXPECT_EQ(bar.Value(), 1);
  Ticks(3);
  EXPECT_EQ(bar.Value(), 4);
  bar.PointerUp();
  Ticks(20);
  EXPECT_EQ(bar.Value(), 4);
  EXPECT_EQ(changes, 4);
  bar.PointerDown(150);
  Ticks(10);
  EXPECT_EQ(bar.Value(), 5);
}

TEST_F(BarTest, ADisabledBarIsHeldNoLonger) {
  bar.PointerDown(15);
  EXPECT_EQ(bar.Held(), ScrollBar::Part::kFirstArrow);
  bar.SetEnabled(false);
  EXPECT_EQ(bar.Held(), ScrollBar::Part::kNone);
  bar.SetEnabled(true);
  bar.PointerDown(16);
  EXPECT_EQ(bar.Held(), ScrollBar::Part::kThumb);
}

TEST_F(BarTest, ADragTellsItsOwnerAtEveryThirdTick) {
  bar.PointerDown(20);
  ASSERT_EQ(bar.Held(), ScrollBar::Part::kThumb);
  bar.PointerMove(50);
  EXPECT_EQ(bar.Value(), 30);
  Ticks(2);
  EXPECT_EQ(changes, 0);
  Ticks(1);
  EXPECT_EQ(changes, 1);
  Ticks(3);
  EXPECT_EQ(changes, 1);
  bar.PointerMove(-40);
  EXPECT_EQ(bar.Value(), 0);
  EXPECT_EQ(bar.ThumbPosition(), 16);
  bar.PointerMove(999);
  EXPECT_EQ(bar.Value(), 100);
  bar.PointerUp();
  EXPECT_EQ(changes, 2);
}

TEST_F(BarTest, AThumbWithoutRoomToMoveStays) {
  bar.IniciaBarra(40, 16, 20);
  bar.PointerDown(20);
  ASSERT_EQ(bar.Held(), ScrollBar::Part::kThumb);
  bar.PointerMove(39);
  EXPECT_EQ(bar.Value(), 0);
}

TEST_F(BarTest, TheThumbJumpsToAClickOnTheTrough) {
  bar.PointerDown(66);
  EXPECT_EQ(bar.Value(), 50);
  EXPECT_EQ(bar.ThumbPosition(), 66);
  bar.PointerUp();
  bar.PointerDown(130);
  EXPECT_EQ(bar.Value(), 100);
  EXPECT_EQ(bar.ThumbPosition(), 116);
  EXPECT_EQ(changes, 2);
}

TEST_F(BarTest, RoundsToNearestAndTiesToEven) {
  bar.SetMax(8);  // 12.5 pixels a step
  bar.SetValue(1);
  EXPECT_EQ(bar.ThumbPosition(), 28);  // 28.5
  bar.SetValue(3);
  EXPECT_EQ(bar.ThumbPosition(), 54);  // 53.5
}

TEST_F(BarTest, ClipsAValueBeyondMaxWhenItNextMoves) {
  bar.SetValue(500);
  EXPECT_EQ(bar.Value(), 500);
  EXPECT_EQ(bar.ThumbPosition(), 116);
  bar.Step(-1);
  EXPECT_EQ(bar.Value(), 100);
}

TEST_F(BarTest, ADisabledBarStaysWhereItIs) {
  bar.PointerDown(150);
  bar.SetEnabled(false);
  Ticks(30);
  bar.PointerDown(150);
  EXPECT_EQ(bar.Value(), 1);
}

}  // namespace
}  // namespace tessera
