#include "reports/paper.h"

#include <utility>

#include "platform/failure.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera::reports {

Paper::Paper(Run& run, SharedPictures& sharedPictures, PaperServices services)
    : run_(run), pictures_(sharedPictures), services_(std::move(services)), part_(services_.findPainter) {}

Paper::Tools* Paper::Load() {
  if (tools_) return &*tools_;
  PagePainter* painter = part_.Painter();
  if (painter != nullptr) return &tools_.emplace(run_, pictures_, *painter, services_);
  if (!std::exchange(isMissingTold_, true)) ShowCritical(run_, part_.problem());
  return nullptr;
}

bool Paper::Do(const WordCall& call, const std::function<void(Tools& tools)>& act) {
  Tools* tools = Load();
  if (tools == nullptr) return false;
  if (!Guard([&] { act(*tools); })) return true;
  ShowCritical(run_, SourcePositionText(run_).append("\r\rErro no comando ").append(Upper(call.name)));
  return false;
}

// OPEN: a document that can't be sent when the program has ended is told in a box, since nobody will ask.
void Paper::EndDocument() {
  if (!tools_ || !Guard([&] { tools_->printer.EndDoc(); })) return;
  ShowCritical(run_, "O documento impresso pelo programa não chegou à impressora."_w);
}

}  // namespace tessera::reports
