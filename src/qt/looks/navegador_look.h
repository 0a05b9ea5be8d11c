// The look of `Navegador`: the ground on which the part that shows pages puts its view.
#pragma once

#include <memory>

#include "media/navegador.h"
#include "qt/looks/look.h"
#include "qt/page_view.h"

namespace tessera {

class NavegadorLook final : public PaintedLook<media::NavegadorControl> {
 public:
  NavegadorLook(media::NavegadorControl& control, LogicEntry& entry);

  void FollowControl() override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::unique_ptr<PageView> view_;
};

}  // namespace tessera
