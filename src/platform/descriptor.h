// A descriptor of the system that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace tessera {

class Descriptor {
 public:
  // Takes over what a call of the system gave; below 0 it is none.
  explicit Descriptor(int number) : number_(number) {}
  ~Descriptor() {
    if (number_ >= 0) close(number_);
  }
  Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
  Descriptor& operator=(Descriptor&&) = delete;

  bool IsOpen() const { return number_ >= 0; }
  int number() const { return number_; }

 private:
  int number_;
};

}  // namespace tessera
