// The first page of an open file as memory. It is the system's own page of the file: what is put there is
// what every process reads next, by whatever call, and it reaches the disk as what is written does.
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <string>

namespace tessera {

struct MappedPage;

// FAST: reading and writing without a call of the system. Both refuse where the page is no longer all there,
// because somebody has cut the file short or the disk gives an error: the calls of the system then do the
// same, and tell.
class SharedPage {
 public:
  // What is put at once: a sudden end of the process leaves all of it or nothing.
  using Unit = std::array<char, 16>;

  // Null for a file that is shorter than a page, that can't be written, or that other machines may have open.
  static std::unique_ptr<SharedPage> Of(int descriptor);
  ~SharedPage();
  SharedPage(const SharedPage&) = delete;
  SharedPage& operator=(const SharedPage&) = delete;

  // Appends bytes of the page.
  bool Read(std::size_t offset, std::size_t length, std::string& bytes) const;
  // Puts something into the page, behind all that was put before.
  bool Put(std::size_t offset, char byte);
  bool Put(std::size_t offset, const Unit& unit);

 private:
  explicit SharedPage(MappedPage& mapped) : mapped_(mapped) {}
  bool Holds(std::size_t offset, std::size_t length) const;

  MappedPage& mapped_;
};

}  // namespace tessera
