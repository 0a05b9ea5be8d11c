// How often the process has taken memory, for tests that link counted_memory.cpp.
#pragma once

namespace tessera::test {

long TimesMemoryWasTaken();

}  // namespace tessera::test
