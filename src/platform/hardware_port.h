// Ports of the hardware, as far as the system lets a program reach them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace tessera {

class HardwarePorts {
 public:
  // `device` is the system's file of all ports, a byte each.
  explicit HardwarePorts(std::string device = "/dev/port") : device_(std::move(device)) {}

  // The byte of a port, or nothing where the system forbids it.
  std::optional<std::uint8_t> Read(std::uint16_t port) const;
  // False where the system forbids it.
  bool Write(std::uint16_t port, std::uint8_t value) const;

 private:
  std::string device_;
};

}  // namespace tessera
