#include "controls/calendario.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

struct CalendarioTest : testing::Test {
  CalendarioTest() : calendar(*ReadDate("05/03/2009 14:00")) {}
  int Type(std::string_view keys) {
    int changes = 0;
    for (const char key : keys) changes += calendar.KeyPress(key);
    return changes;
  }
  std::string Value() const { return DateText(calendar.Value()); }
  Calendario calendar;
};

TEST_F(CalendarioTest, TheFieldShowsTheValuesDay) {
  EXPECT_EQ(calendar.TxtData().Text(), "05/03/2009");
  EXPECT_EQ(Value(), "05/03/2009");
  calendar.SetValue(*ReadDate("30/12/1899"));
  EXPECT_EQ(calendar.TxtData().Text(), "30/12/1899");
}

TEST_F(CalendarioTest, DigitsFillTheMask) {
  EXPECT_EQ(Type("2a9/122010"), 6);  // of the eight digits two were there
  EXPECT_EQ(calendar.TxtData().Text(), "29/12/2010");
  EXPECT_EQ(Value(), "29/12/2010");
  EXPECT_EQ(Type("5"), 0);
}

TEST_F(CalendarioTest, WhatIsNoDateGivesWayToTheLastOne) {
  Type("3102");
  EXPECT_EQ(calendar.TxtData().Text(), "31/02/2009");
  EXPECT_EQ(Value(), "31/03/2009");
  calendar.KeyDown(36, false);
  EXPECT_TRUE(calendar.KeyDown(46, false));
  EXPECT_EQ(calendar.TxtData().Text(), "_1/02/2009");
  calendar.PerdeuFoco();
  EXPECT_EQ(calendar.TxtData().Text(), "31/03/2009");
}

TEST_F(CalendarioTest, BackspaceStepsOverTheSeparator) {
  calendar.PlaceCaret(3, 3);
  EXPECT_TRUE(calendar.KeyDown(8, false));
  EXPECT_EQ(calendar.TxtData().Text(), "0_/03/2009");
  EXPECT_EQ(calendar.TxtData().Field().Caret(), 1U);
  calendar.PlaceCaret(0, 5);
  EXPECT_TRUE(calendar.KeyDown(46, false));
  EXPECT_EQ(calendar.TxtData().Text(), "__/__/2009");
  EXPECT_EQ(Value(), "05/03/2009");
}

TEST_F(CalendarioTest, TheButtonTogglesTheViewAndAPickClosesIt) {
  calendar.ButtonClick();
  EXPECT_TRUE(calendar.ViewIsOpen());
  EXPECT_TRUE(calendar.Pick(*ReadDate("01/02/2003")));
  EXPECT_FALSE(calendar.ViewIsOpen());
  EXPECT_EQ(calendar.TxtData().Text(), "01/02/2003");
  calendar.ButtonClick();
  calendar.ButtonClick();
  EXPECT_FALSE(calendar.ViewIsOpen());
  calendar.ButtonClick();
  calendar.PerdeuFoco();
  EXPECT_FALSE(calendar.ViewIsOpen());
  calendar.ButtonClick();
  calendar.SetEnabled(false);
  EXPECT_FALSE(calendar.ViewIsOpen());
  calendar.ButtonClick();
  EXPECT_FALSE(calendar.ViewIsOpen());
  EXPECT_FALSE(calendar.Pick(*ReadDate("01/02/2004")));
}

TEST_F(CalendarioTest, TheViewBeginsItsWeeksOnSunday) {
  const auto view = calendar.View();  // March 2009 began on a Sunday
  EXPECT_EQ(view[0].date, std::chrono::year{2009} / 3 / 1);
  EXPECT_TRUE(view[4].marked);
  EXPECT_TRUE(view[30].inMonth);
  EXPECT_FALSE(view[31].inMonth);
  calendar.ShowMonth(1);
  EXPECT_EQ(calendar.View()[0].date, std::chrono::year{2009} / 3 / 29);
  EXPECT_EQ(Value(), "05/03/2009");
}

TEST_F(CalendarioTest, KeysMarkADayThatEnterPicks) {
  calendar.ButtonClick();
  for (const int code : {39, 40, 34, 37}) EXPECT_FALSE(calendar.KeyDown(code, false));
  EXPECT_EQ(Value(), "05/03/2009");
  EXPECT_TRUE(calendar.KeyDown(13, false));
  EXPECT_EQ(Value(), "12/04/2009");
  calendar.ButtonClick();
  calendar.KeyDown(33, false);
  calendar.KeyDown(27, false);
  EXPECT_FALSE(calendar.ViewIsOpen());
  calendar.ButtonClick();
  calendar.KeyDown(13, false);
  EXPECT_EQ(Value(), "12/04/2009") << "the view opens on the value";
}

}  // namespace
}  // namespace tessera
