#include "windows/shapes.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <random>
#include <string>

#include "windows/flood_fill.h"

namespace tessera::test {

namespace {

constexpr Size kSize{40, 30};

// The pixels as text, "#" for a pixel of the form; a pixel met twice or beyond the size is told.
std::string Drawn(Size size, const Spans& spans) {
  std::string picture;
  for (int y = 0; y < size.height; ++y) picture += std::string(std::size_t(size.width), '.') + '\n';
  for (const Span& span : spans) {
    for (int x = span.left; x <= span.right; ++x) {
      if (!size.Holds(x, span.y)) return "beyond the picture";
      char& pixel = picture[std::size_t(span.y * (size.width + 1) + x)];
      if (pixel == '#') return "twice at " + std::to_string(x) + ", " + std::to_string(span.y);
      pixel = '#';
    }
  }
  return picture;
}

// The same by a question put to every pixel.
std::string Asked(Size size, const std::function<bool(int x, int y)>& isInside) {
  std::string picture;
  for (int y = 0; y < size.height; ++y) {
    for (int x = 0; x < size.width; ++x) picture += isInside(x, y) ? '#' : '.';
    picture += '\n';
  }
  return picture;
}

double DistanceToLine(double x, double y, double ax, double ay, double bx, double by) {
  const double lengthSquare = (bx - ax) * (bx - ax) + (by - ay) * (by - ay);
  double along = lengthSquare == 0 ? 0 : ((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / lengthSquare;
  along = std::min(std::max(along, 0.0), 1.0);
  return std::hypot(x - ax - along * (bx - ax), y - ay - along * (by - ay));
}

// Walks a thin line step by step along its longer way.
bool LineHolds(int x, int y, PixelPoint a, PixelPoint b) {
  const int steps = std::max(std::abs(b.x - a.x), std::abs(b.y - a.y));
  for (int i = 0; i <= steps; ++i) {
    const double share = steps == 0 ? 0 : double(i) / steps;
    if (std::floor(a.x + (b.x - a.x) * share + 0.5 + 1e-9) == x &&
        std::floor(a.y + (b.y - a.y) * share + 0.5 + 1e-9) == y) {
      return true;
    }
  }
  return false;
}

// Places in the picture and some way beyond it.
class Places {
 public:
  PixelPoint Next() { return {across_(engine_), down_(engine_)}; }
  int Width() { return width_(engine_); }

 private:
  std::mt19937 engine_{7};
  std::uniform_int_distribution<int> across_{-20, 60};
  std::uniform_int_distribution<int> down_{-20, 50};
  std::uniform_int_distribution<int> width_{2, 9};
};

}  // namespace

TEST(Shapes, ADiscHoldsThePixelsLessThanHalfAPixelBeyondItsRadius) {
  Places places;
  for (int i = 0; i < 400; ++i) {
    const PixelPoint centre = places.Next();
    const double radius = i / 16.0;
    EXPECT_EQ(
        Drawn(kSize, DiscSpans(kSize, centre, radius)),
        Asked(kSize,
              [&](int x, int y) { return std::hypot(x - centre.x, y - centre.y) < radius + 0.5 - 1e-7; }))
        << centre.x << ", " << centre.y << " radius " << radius;
  }
  EXPECT_EQ(DiscSpans(kSize, {3, 4}, 0), (Spans{{4, 3, 3}}));
}

TEST(Shapes, AThinLineIsTheNearestPixelOfEveryStepBothEndsIncluded) {
  Places places;
  for (int i = 0; i < 400; ++i) {
    const PixelPoint a = places.Next();
    const PixelPoint b = places.Next();
    EXPECT_EQ(Drawn(kSize, LineSpans(kSize, a, b, 1)),
              Asked(kSize, [&](int x, int y) { return LineHolds(x, y, a, b); }))
        << a.x << ", " << a.y << " to " << b.x << ", " << b.y;
  }
}

TEST(Shapes, AThickLineHoldsThePixelsWithinHalfThePen) {
  Places places;
  for (int i = 0; i < 400; ++i) {
    const PixelPoint a = places.Next();
    const PixelPoint b = i % 10 == 0 ? a : places.Next();
    const int width = places.Width();
    const double shift = width % 2 == 0 ? 0.5 : 0;
    EXPECT_EQ(Drawn(kSize, LineSpans(kSize, a, b, width)),
              Asked(kSize,
                    [&](int x, int y) {
                      return DistanceToLine(x, y, a.x - shift, a.y - shift, b.x - shift, b.y - shift) <
                             width / 2.0 - 1e-8;
                    }))
        << a.x << ", " << a.y << " to " << b.x << ", " << b.y << " width " << width;
  }
}

TEST(Shapes, AFrameIsItsCornersBoxWithoutTheInside) {
  for (const int width : {1, 2, 3, 4, 7}) {
    const int before = width / 2;
    const int behind = width - before - 1;
    for (const PixelPoint opposite : {PixelPoint{30, 20}, {-9, 20}, {12, 11}, {10, 10}, {60, -60}}) {
      const int left = std::min(10, opposite.x), right = std::max(10, opposite.x);
      const int top = std::min(10, opposite.y), bottom = std::max(10, opposite.y);
      Spans spans = FrameSpans(kSize, {10, 10}, opposite, width);
      std::string picture = Asked(kSize, [&](int x, int y) {
        for (const Span& span : spans) {
          if (span.y == y && span.left <= x && x <= span.right) return true;
        }
        return false;
      });
      EXPECT_EQ(picture, Asked(kSize,
                               [&](int x, int y) {
                                 const bool isInOuter = x >= left - before && x <= right + behind &&
                                                        y >= top - before && y <= bottom + behind;
                                 const bool isInside = x > left + behind && x < right - before &&
                                                       y > top + behind && y < bottom - before;
                                 return isInOuter && !isInside;
                               }))
          << opposite.x << ", " << opposite.y << " width " << width;
    }
  }
}

TEST(Shapes, FormsThatReachFarBeyondThePictureCostWhatIsInSight) {
  constexpr int kFar = 2147483647;
  EXPECT_EQ(LineSpans(kSize, {-kFar, 5}, {kFar, 5}, 1), (Spans{{5, 0, 39}}));
  EXPECT_EQ(LineSpans(kSize, {-kFar, -kFar}, {kFar, kFar}, 1).size(), 30U);
  EXPECT_EQ(DiscSpans(kSize, {0, 0}, 1e12).size(), 30U);
  EXPECT_EQ(BoxSpans(kSize, {-kFar, -kFar}, {kFar, kFar}).size(), 30U);
  EXPECT_TRUE(FrameSpans(kSize, {-kFar, -kFar}, {kFar, kFar}, 1).empty());
  EXPECT_TRUE(PenSpans(kSize, {kFar, -kFar}, 5).empty());
  EXPECT_TRUE(DiscSpans({0, 0}, {0, 0}, 3).empty());
}

TEST(FloodFill, TakesWhatFourSidedStepsReachAndNoMore) {
  std::mt19937 engine(11);
  for (int round = 0; round < 60; ++round) {
    const unsigned density = 2 + unsigned(round) % 5;
    const std::string walls = Asked(kSize, [&](int, int) { return engine() % density == 0; });
    const auto isOpen = [&](int x, int y) { return walls[std::size_t(y * (kSize.width + 1) + x)] == '.'; };
    // The plain form: whatever touches what is reached is reached, until nothing changes.
    std::string reached = Asked(kSize, [&](int x, int y) { return x == 20 && y == 15 && isOpen(x, y); });
    for (std::string before; before != reached;) {
      before = reached;
      const auto has = [&](int x, int y) {
        return kSize.Holds(x, y) && before[std::size_t(y * (kSize.width + 1) + x)] == '#';
      };
      reached = Asked(kSize, [&](int x, int y) {
        return has(x, y) ||
               (isOpen(x, y) && (has(x - 1, y) || has(x + 1, y) || has(x, y - 1) || has(x, y + 1)));
      });
    }
    EXPECT_EQ(Drawn(kSize, FloodSpans(kSize, 20, 15, isOpen)), reached) << "round " << round;
  }
  EXPECT_TRUE(FloodSpans(kSize, 40, 0, [](int, int) { return true; }).empty());
}

}  // namespace tessera::test
