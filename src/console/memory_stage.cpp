#include "console/memory_stage.h"

#include <cmath>

#include "console/printed_texts.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/portrait.h"

namespace tessera {

namespace {

// Nothing measures here: letters have the width of a typewriter's, or half their height.
TextSize MeasureLetters(std::string_view text, const FontFace& font) {
  const double pixels = font.size * 96 / 72;
  const double width = Contains(Upper(font.name), "COURIER") ? 0.6 : 0.5;
  return {.width = std::ceil(static_cast<double>(text.size()) * pixels * width),
          .height = std::ceil(pixels * 1.2)};
}

// A window in memory; what is printed on it goes to the lead, and is painted where somebody takes a look.
class MemoryForm final : public Form {
 public:
  MemoryForm(StageLead& lead, TextPainter& texts, const Placement& place, FormEvents& events)
      : Form(events, place), lead_(lead), texts_(texts) {}
  ~MemoryForm() override { UnloadControls(); }

  Raster Portrait() {
    Raster seen = InSight();
    printed_.PaintOn(seen, texts_);
    PaintObjects(*this, &texts_, seen);
    return seen;
  }

  TextPainter* SurfaceTexts() override { return &texts_; }

  TextSize MeasureText(std::string_view text, const FontFace& font) const override {
    return MeasureLetters(text, font);
  }

  using Form::TakeScale;

 protected:
  void ShowPrinted(std::string_view text, const TextMask&) override {
    lead_.OnPrinted(text);
    printed_.Add({.text = std::string(text),
                  .font = Font,
                  .pixel = PixelOfColour(ForeColor),
                  .left = CurrentX,
                  .top = CurrentY});
  }
  void ShowErased() override { printed_.Clear(); }
  void ShowDrawn(const Spans& spans, Pixel) override { printed_.Cover(spans); }
  void ShowPainted(const PlacedPictures& pictures, bool erased) override {
    if (erased) printed_.Clear();
    for (const PlacedPicture& placed : pictures) printed_.Cover(placed, ClientSize());
  }
  void ServeModal() override { lead_.ServeModal(*this); }

 private:
  StageLead& lead_;
  TextPainter& texts_;
  PrintedTexts printed_;
};

}  // namespace

std::unique_ptr<Form> MemoryStage::NewForm(std::string_view, const Placement& place, FormEvents& events,
                                           StageLead& lead) {
  return std::make_unique<MemoryForm>(lead, texts_, place, events);
}

// The windows of this stage are all of this kind.
void MemoryStage::ResizeByPerson(Form& form, double width, double height) {
  static_cast<MemoryForm&>(form).TakeScale(width, height);
}

Raster MemoryStage::Portrait(Form& form) {
  return static_cast<MemoryForm&>(form).Portrait();
}

}  // namespace tessera
