// A document as a PDF: its texts stay texts that can be found and copied, and the fonts go with it.
#pragma once

#include <memory>
#include <string_view>

#include "qtpaper/faces.h"
#include "reports/page_painter.h"

namespace tessera::qtpaper {

// The faces outlive it.
std::unique_ptr<reports::PdfDocument> NewPdfDocument(Faces& faces, std::string_view title);

}  // namespace tessera::qtpaper
