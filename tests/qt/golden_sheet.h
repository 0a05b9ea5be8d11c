// Pictures of looks, kept as text that a person can read in a diff: a letter for each colour, with the number
// of pixels in front of it; `3*` before a row stands for three equal ones.
#pragma once

#include <QImage>
#include <string>
#include <utility>
#include <vector>

namespace tessera::test {

class GoldenSheet {
 public:
  // Its file is looks/NAME.txt.
  explicit GoldenSheet(std::string name) : name_(std::move(name)) {}

  void Add(const std::string& look, const QImage& picture);
  // The test fails where a picture differs from the kept one. With TESSERA_WRITE_LOOKS they are kept anew,
  // and TESSERA_LOOK_AT names a folder for what the eye can judge.
  void Check() const;

 private:
  using Looks = std::vector<std::pair<std::string, QImage>>;

  void Write(const std::string& path) const;
  static std::pair<int, Looks> Read(const std::string& path);
  void Show(const std::string& folder) const;

  std::string name_;
  Looks looks_;
};

}  // namespace tessera::test
