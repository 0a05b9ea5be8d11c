#include "text/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <cstring>
#include <random>

#include "text/one_based.h"

namespace tessera {
namespace {

std::string ByPrintf(double value) {
  char buffer[64];
  std::snprintf(buffer, sizeof buffer, "%.15G", value);
  return Replace(buffer, '.', ',');
}

TEST(NumberText, IsTheGeneralFormWithADecimalComma) {
  EXPECT_EQ(NumberText(0.1), "0,1");
  EXPECT_EQ(NumberText(1e15), "1E+15");
  EXPECT_EQ(NumberText(1.5e-5), "1,5E-05");
  EXPECT_EQ(NumberText(-2.0), "-2");
  EXPECT_EQ(NumberText(123456789012345.0), "123456789012345");
}

TEST(NumberText, AgreesWithTheLibraryOnRandomFloats) {
  std::mt19937_64 random(7);
  for (int i = 0; i < 200000; ++i) {
    double value;
    const std::uint64_t bits = random();
    if (i % 2 == 0) {
      std::memcpy(&value, &bits, sizeof value);
    } else {
      value =
          static_cast<double>(static_cast<std::int64_t>(bits % 2000000) - 1000000) / std::pow(10, bits % 19);
    }
    if (!std::isfinite(value)) continue;
    ASSERT_EQ(NumberText(value), ByPrintf(value));
    ASSERT_EQ(RoundTo15Digits(value), std::strtod(Replace(ByPrintf(value), ',', '.').c_str(), nullptr));
  }
}

TEST(LeadingNumber, StopsAtTheFirstOtherCharacter) {
  EXPECT_EQ(LeadingNumber("  -12.5abc"), -12.5);
  EXPECT_EQ(LeadingNumber("1,5"), 1);
  EXPECT_EQ(LeadingNumber("1.2.3"), 1.2);
  EXPECT_EQ(LeadingNumber("1E5"), 1);
  EXPECT_EQ(LeadingNumber(".5"), 0.5);
  EXPECT_EQ(LeadingNumber("abc"), 0);
  EXPECT_EQ(LeadingNumber(""), 0);
  EXPECT_EQ(LeadingNumber("-"), 0);
}

TEST(WholeNumber, ReadsTheWholeTextOrNothing) {
  EXPECT_EQ(WholeNumber(" 1,5 "), 1.5);
  EXPECT_EQ(WholeNumber("1.234,5"), 1234.5);
  EXPECT_EQ(WholeNumber("-1.2.3"), -123);
  EXPECT_EQ(WholeNumber("1,5E+2"), 150);
  EXPECT_EQ(WholeNumber("2e-1"), 0.2);
  for (const char* text :
       {"", " ", "a", "1a", "1,2,3", "E5", "1E", "- 5", "1 2", ".", ",", "1E400", "0x10"}) {
    EXPECT_EQ(WholeNumber(text), std::nullopt) << text;
  }
  EXPECT_EQ(WholeNumber("1E-400"), 0);
}

TEST(ExactDecimal, RoundsTheFloatTo15Digits) {
  const auto text = [](double value) { return ExactDecimal::FromDouble(value)->ToText(); };
  EXPECT_EQ(text(0.1 + 0.2), "0,3");
  EXPECT_EQ(text(1.0 / 3), "0,333333333333333");
  EXPECT_EQ(text(-2e20), "-200000000000000000000");
  EXPECT_EQ(text(1.5e-7), "0,00000015");
  EXPECT_EQ(text(1.23456789e-24), "0,0000000000000000000000012346");
  EXPECT_EQ(text(1e-40), "0");
  EXPECT_EQ(text(1e28), "10000000000000000000000000000");
  EXPECT_EQ(text(0), "0");
  EXPECT_FALSE(ExactDecimal::FromDouble(8e28));
  EXPECT_TRUE(ExactDecimal::FromDouble(7.9e28));
  EXPECT_FALSE(ExactDecimal::FromDouble(NAN));
}

TEST(ExactDecimal, AddsExactly) {
  const auto add = [](double a, double b) {
    return ExactDecimal::Add(*ExactDecimal::FromDouble(a), *ExactDecimal::FromDouble(b))->ToText();
  };
  EXPECT_EQ(add(0.1, 0.2), "0,3");
  EXPECT_EQ(add(1e20, 0.00000001), "100000000000000000000,00000001");
  EXPECT_EQ(add(5e28, 1e-28), "50000000000000000000000000000");
  EXPECT_EQ(add(7.92281625142643e27, 3759354395033.5), "7922816251426433759354395033,5") << "the most";
  EXPECT_EQ(add(7.92281625142643e27, 3759354395033.6), "7922816251426433759354395034") << "a digit too many";
  EXPECT_EQ(add(7.92281625142643e27, 3759354395035.3), "7922816251426433759354395035");
  EXPECT_EQ(add(7.92281625142643e27, 3759354395035.5), "7922816251426433759354395036");
  EXPECT_FALSE(ExactDecimal::Add(*ExactDecimal::FromDouble(7e28), *ExactDecimal::FromDouble(7e28)));
}

TEST(ExactDecimal, GoesBackToTheFloatOfItsText) {
  std::mt19937_64 random(11);
  for (int i = 0; i < 20000; ++i) {
    const double value =
        RoundTo15Digits(std::ldexp(static_cast<double>(random()), -static_cast<int>(random() % 100)));
    const auto exact = ExactDecimal::FromDouble(value);
    ASSERT_TRUE(exact);
    ASSERT_EQ(exact->ToDouble(), *WholeNumber(exact->ToText()));
  }
}

TEST(RoundHalfEven, TiesGoToTheEvenNeighbour) {
  EXPECT_EQ(RoundHalfEven(2.5), 2);
  EXPECT_EQ(RoundHalfEven(3.5), 4);
  EXPECT_EQ(RoundHalfEven(-2.5), -2);
}

}  // namespace
}  // namespace tessera
