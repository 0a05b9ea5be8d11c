// The page files of a report: the folder "XRel" under the program's one, which all programs of that folder
// share. A run's pages begin with a prefix of its own, "<1 to 1000>TMP", and it holds a lock on a file
// ".<prefix>" there as long as they are its own; pages whose run is gone are swept away by the next report.
#pragma once

#include <memory>
#include <string>

#include "platform/file_store.h"
#include "values/run.h"
#include "windows/raster.h"
#include "windows/shared_pictures.h"

namespace tessera::reports {

class PageFiles {
 public:
  // Both outlive it.
  PageFiles(Run& run, SharedPictures& pictures) : run_(run), pictures_(pictures) {}
  ~PageFiles() { Remove(); }
  PageFiles(const PageFiles&) = delete;
  PageFiles& operator=(const PageFiles&) = delete;

  // Makes the folder, failures ignored, sweeps it and draws a prefix. The pages of the prefix before go.
  void Begin();
  // Writes page `number`. Failure where the disk refuses it. OPEN: where there is no codec, behind its box,
  // the report goes on without files of its pages.
  void Save(int number, const Raster& page);
  // Removes the pages, and the folder where nothing is left in it.
  void Remove();

 private:
  std::string PathOf(std::string_view name) const;
  std::string PageName(int number) const;
  void Sweep();
  bool TakePrefix();

  Run& run_;
  SharedPictures& pictures_;
  std::string folder_;
  std::string prefix_;  // empty between reports
  int saved_ = 0;
  std::unique_ptr<StoredFile> lock_;
};

}  // namespace tessera::reports
