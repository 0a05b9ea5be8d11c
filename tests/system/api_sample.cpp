// The functions that the tests call by name.
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <stdexcept>

extern "C" {

// Each argument counts by its place, so that none may be lost or change places.
std::int64_t soma30(std::int64_t a1, std::int64_t a2, std::int64_t a3, std::int64_t a4, std::int64_t a5,
                    std::int64_t a6, std::int64_t a7, std::int64_t a8, std::int64_t a9, std::int64_t a10,
                    std::int64_t a11, std::int64_t a12, std::int64_t a13, std::int64_t a14, std::int64_t a15,
                    std::int64_t a16, std::int64_t a17, std::int64_t a18, std::int64_t a19, std::int64_t a20,
                    std::int64_t a21, std::int64_t a22, std::int64_t a23, std::int64_t a24, std::int64_t a25,
                    std::int64_t a26, std::int64_t a27, std::int64_t a28, std::int64_t a29,
                    std::int64_t a30) {
  const std::int64_t all[] = {a1,  a2,  a3,  a4,  a5,  a6,  a7,  a8,  a9,  a10, a11, a12, a13, a14, a15,
                              a16, a17, a18, a19, a20, a21, a22, a23, a24, a25, a26, a27, a28, a29, a30};
  std::int64_t sum = 0;
  for (std::int64_t i = 0; i < 30; ++i) sum += (i + 1) * all[i];
  return sum;
}

// Whether the number came in all its 64 bits.
int inteiro64(std::int64_t number) {
  return number == -9007199254740993 ? 1 : number == INT64_MAX ? 2 : 0;
}

int dobro(std::int64_t number) {
  return static_cast<int>(2 * number);
}

// The result's upper half is not the program's.
std::int64_t metadeAlta() {
  return (std::int64_t{7} << 32) | 0xFFFFFFFF;
}

// As far as a buffer reaches at least.
int enche(char* buffer) {
  std::memset(buffer, 'x', 65535);
  return buffer[65535];
}

int vezes = 0;
// Counts since the library was loaded.
int conta() {
  return ++vezes;
}

// The eleventh text has no buffer.
int texto11(const char*, const char*, const char*, const char*, const char*, const char*, const char*,
            const char*, const char*, const char* tenth, const char* eleventh) {
  return (eleventh == nullptr ? 100 : 0) + static_cast<int>(std::strlen(tenth));
}

void falha() {
  std::raise(SIGSEGV);
}
void aborta() {
  std::abort();
}
void lanca() {
  throw std::runtime_error("ninguém a pega");
}
int fundo(int n) {
  volatile char room[4096] = {};
  return n == 0 ? 0 : fundo(n + 1) + room[n % 4096];
}
}
