#include "media/file_camera.h"

#include <algorithm>

#include "windows/picture_file.h"

namespace tessera::media {

bool FileCamera::Connect() {
  next_ = 0;
  pictures_.clear();
  if (files_.IsFolder(path_)) {
    for (const FolderEntry& entry : files_.List(path_)) {
      if (entry.isFile) pictures_.push_back(path_ + "/" + entry.name);
    }
    std::sort(pictures_.begin(), pictures_.end());
  } else {
    pictures_.push_back(path_);
  }
  return !pictures_.empty();
}

// A file that is no picture is passed over from then on.
PictureRef FileCamera::Grab() {
  while (!pictures_.empty()) {
    next_ %= pictures_.size();
    if (PictureRef picture = LoadPicture(codec_, files_, pictures_[next_])) {
      ++next_;
      return picture;
    }
    pictures_.erase(pictures_.begin() + static_cast<std::ptrdiff_t>(next_));
  }
  return nullptr;
}

}  // namespace tessera::media
