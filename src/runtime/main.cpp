#include "platform/stack_limit.h"
#include "runtime/start_runtime.h"

int main(int argc, char** argv) {
  tessera::StackLimit::Raise(tessera::StackLimit::kRunStack);
  return tessera::StartRuntime(argc, argv);
}
