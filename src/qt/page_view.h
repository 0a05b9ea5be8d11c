// A view of pages of the net, made by the part that shows them.
#pragma once

#include "media/page_view.h"

class QWidget;

namespace tessera {

class PageView : public media::Pages {
 public:
  // Fills its parent; the parent's end is its own.
  virtual QWidget& Widget() = 0;
};

// The part's entry point. Null where the window system was started without what pages need.
using PageViewEntry = PageView* (*)(QWidget& parent);

}  // namespace tessera
