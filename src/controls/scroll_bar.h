// `BarraHorizontal` and `BarraVertical`: one behaviour along one axis. Positions are pixels from the bar's
// left or upper end; the owner gives the pointer's place and the timer's ticks.
#pragma once

#include <cstdint>
#include <functional>

namespace tessera {

class ScrollBar {
 public:
  // Interval of `Timer1` while an arrow or the thumb is held.
  static constexpr int kTickMs = 30;
  // An arrow repeats its step once it was held for more ticks than this.
  static constexpr int kTicksBeforeRepeat = 10;
  // A drag tells its owner at every such tick.
  static constexpr int kTicksPerDragChange = 3;

  enum class Part { kNone, kFirstArrow, kSecondArrow, kThumb, kTrough };

  // Called each time `Value` has changed, and for a drag at most once in kTicksPerDragChange ticks.
  std::function<void()> Change;

  // Lays out a bar of `length` between two arrows of `arrow` pixels, with a thumb of `thumb` pixels.
  void IniciaBarra(int length, int arrow, int thumb);

  std::int32_t Max() const { return max_; }
  std::int32_t Value() const { return value_; }
  std::int32_t SmallChange() const { return smallChange_; }
  std::int32_t LargeChange() const { return largeChange_; }
  bool Enabled() const { return enabled_; }
  // A negative highest value counts as 0.
  void SetMax(std::int32_t max);
  // Kept as it is, also beyond `Max`: the next movement clips it.
  void SetValue(std::int32_t value);
  void SetSmallChange(std::int32_t step) { smallChange_ = step; }
  void SetLargeChange(std::int32_t step) { largeChange_ = step; }
  // A disabled bar lets go of what was held.
  void SetEnabled(bool enabled);

  // One step of an arrow: `SmallChange` times `direction`, within 0 and `Max`.
  void Step(int direction);

  Part PartAt(int position) const;
  // What is held down now, for the pressed pictures.
  Part Held() const { return held_; }
  // Left or upper edge of the thumb, always inside the trough.
  int ThumbPosition() const { return thumb_; }
  int ThumbLength() const { return thumbLength_; }
  int ArrowLength() const { return troughStart_; }

  void PointerDown(int position);
  void PointerMove(int position);
  void PointerUp();
  // `Timer1` runs while something is held.
  bool TimerRuns() const { return held_ == Part::kFirstArrow || held_ == Part::kSecondArrow || Dragging(); }
  void Tick();

 private:
  bool Dragging() const { return held_ == Part::kThumb; }
  float Scale() const;
  void PlaceThumb();
  void MoveThumb(int position);
  void TellDrag();

  int length_ = 0;
  int troughStart_ = 0;
  int troughEnd_ = 0;  // the thumb's last position
  int thumbLength_ = 0;
  int thumb_ = 0;
  std::int32_t max_ = 100;
  std::int32_t value_ = 0;
  std::int32_t smallChange_ = 1;
  std::int32_t largeChange_ = 10;
  bool enabled_ = true;
  Part held_ = Part::kNone;
  int pressOffset_ = 0;
  int ticks_ = 0;
  std::int32_t toldValue_ = 0;  // the value that a drag's owner knows
};

}  // namespace tessera
