// The grid with a long list behind it, without a window: what filling, sorting and paging cost by themselves.
#pragma once

namespace tessera::bench {

inline constexpr int kGridRows = 1'000'000;
inline constexpr int kGridColumns = 5;

// Milliseconds, for all rows; a page is what the cursor keys repaint.
struct GridTimes {
  double fill, sortText, sortNumber, pages, slowestPage;
  int pageCount;
  double bytesPerCell, bytesPerCellWithAttributes;  // of which some are the texts' own characters
  double charactersPerCell;
};

GridTimes MeasureGrid();

}  // namespace tessera::bench
