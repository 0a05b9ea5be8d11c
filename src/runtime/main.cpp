#include "image/seal.h"
#include "platform/prepare_process.h"
#include "platform/stack_limit.h"
#include "runtime/start_runtime.h"

// Only a copy of this file that carries a program has anything in it; the program's builder writes it there.
[[gnu::used]] static constexpr tessera::SealPlace kSeal = tessera::BlankSeal();

int main(int argc, char** argv) {
  tessera::PrepareProcess();
  tessera::StackLimit::Raise(tessera::StackLimit::kRunStack);
  return tessera::StartRuntime(argc, argv);
}
