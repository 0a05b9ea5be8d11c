#include "platform/hardware_port.h"

#include <fcntl.h>
#include <unistd.h>

#include "platform/descriptor.h"

namespace tessera {

std::optional<std::uint8_t> HardwarePorts::Read(std::uint16_t port) const {
  const Descriptor ports(open(device_.c_str(), O_RDONLY | O_CLOEXEC));
  std::uint8_t value = 0;
  if (!ports.IsOpen() || pread(ports.number(), &value, 1, port) != 1) return std::nullopt;
  return value;
}

bool HardwarePorts::Write(std::uint16_t port, std::uint8_t value) const {
  const Descriptor ports(open(device_.c_str(), O_WRONLY | O_CLOEXEC));
  return ports.IsOpen() && pwrite(ports.number(), &value, 1, port) == 1;
}

}  // namespace tessera
