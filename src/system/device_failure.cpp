#include "system/device_failure.h"

#include <string>

#include "platform/failure.h"
#include "text/literal.h"

namespace tessera {

void FailDevice(std::string_view reason) {
  constexpr long kDeviceUnavailable = 68;
  throw RunFailure(kDeviceUnavailable, std::string("Dispositivo indisponível: "_w).append(reason));
}

}  // namespace tessera
