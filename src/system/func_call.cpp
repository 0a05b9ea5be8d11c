#include "system/func_call.h"

#include <dlfcn.h>
#include <ffi.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>
#include <system_error>

#include "platform/failure.h"
#include "system/crash_watch.h"
#include "system/library_search.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

// All of `digits` as a number of that kind.
template <typename Number>
bool ReadDigits(std::string_view digits, Number& number) {
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  return error == std::errc() && end == digits.data() + digits.size();
}

// A text for which the number test holds. Whole numbers are read by their digits, of which a float keeps too
// few.
std::uint64_t IntegerOf(std::string_view text) {
  constexpr double kBeyond = 18446744073709551616.0;
  std::string digits(Trim(text));
  std::erase(digits, '.');
  if (digits.starts_with('+')) digits.erase(0, 1);
  std::int64_t number = 0;
  if (ReadDigits(digits, number)) return static_cast<std::uint64_t>(number);
  std::uint64_t large = 0;
  if (ReadDigits(digits, large)) return large;
  const double rounded = RoundHalfEven(*WholeNumber(text));
  if (!(std::abs(rounded) < kBeyond / 2)) FailOverflow();
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(rounded));
}

// The copy of a text that the function may write over.
struct TextBuffer {
  TextBuffer(std::size_t argumentPlace, std::string_view text)
      : argument(argumentPlace), bytes(std::max(cFuncCall::kLeastBuffer, text.size() + 1)) {
    std::copy(text.begin(), text.end(), bytes.begin());
  }
  std::string Text() const { return {bytes.begin(), std::find(bytes.begin(), bytes.end(), '\0')}; }

  std::size_t argument;
  std::vector<char> bytes;
};

// No exception of the function's own crosses this line: it would be a crash like any other.
std::uint64_t Call(void* function, std::vector<std::uint64_t>& words) noexcept {
  std::vector<ffi_type*> types(words.size(), &ffi_type_sint64);
  std::vector<void*> places;
  places.reserve(words.size());
  for (std::uint64_t& word : words) places.push_back(&word);
  ffi_cif call;
  ffi_prep_cif(&call, FFI_DEFAULT_ABI, static_cast<unsigned>(words.size()), &ffi_type_sint64, types.data());
  ffi_arg result = 0;
  ffi_call(&call, reinterpret_cast<void (*)()>(function), &result, places.data());
  return result;
}

}  // namespace

void cFuncCall::SetLibraryName(std::string_view name) {
  // Lines of the program that nobody would write behind a crash.
  run_.host.events.Pause(std::chrono::milliseconds(0));
  Free();
  LibraryName_ = name;
  for (const std::string& candidate : LibraryCandidates(run_, name)) {
    // A library's own code runs when it is loaded and when it is let go.
    const CrashWatch watch(CrashMessage({}));
    module_ = dlopen(candidate.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (module_ != nullptr) return;
  }
  ShowProblem(std::string("Não pode encontrar a livraria "_w).append(name));
}

void cFuncCall::SetFunctionName(std::string_view name) {
  FunctionName_ = name;
  function_ = nullptr;
  if (module_ == nullptr) return;
  function_ = dlsym(module_, FunctionName_.c_str());
  if (function_ != nullptr) return;
  ShowProblem(
      std::string("Não pode encontrar o ponto de entrada para "_w)
          .append(name)
          .append(kCrLf)
          .append("Nota: funções são sensíveis à maiúsculas/minúsculas, verifique a sintaxe da mesma!"_w));
}

std::int32_t cFuncCall::CallFunction(std::vector<std::string>& ApiArguments) {
  if (function_ == nullptr) {
    ShowProblem("Função não definida!"_w);
    return 0;
  }
  std::vector<std::uint64_t> words;
  std::vector<TextBuffer> buffers;
  for (std::size_t i = 0; i < ApiArguments.size(); ++i) {
    const std::string_view text = ApiArguments[i];
    const bool isMarked = text.starts_with('$');
    std::uint64_t word = 0;
    if (!isMarked && IsNumeric(text)) {
      word = IntegerOf(text);
    } else if (buffers.size() < kMostTexts) {
      // The bytes stay where they are when the list of buffers grows.
      buffers.emplace_back(i, text.substr(isMarked ? 1 : 0));
      word = reinterpret_cast<std::uint64_t>(buffers.back().bytes.data());
    }
    words.push_back(word);
  }

  std::uint64_t result = 0;
  {
    const CrashWatch watch(CrashMessage(FunctionName_));
    result = Call(function_, words);
  }
  for (const TextBuffer& buffer : buffers) ApiArguments[buffer.argument] = buffer.Text();
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(result));
}

void cFuncCall::Free() {
  function_ = nullptr;
  if (module_ == nullptr) return;
  const CrashWatch watch(CrashMessage({}));
  dlclose(module_);
  module_ = nullptr;
}

void cFuncCall::ShowProblem(std::string_view text) {
  run_.host.dialogs.ShowBox({.text = std::string(text),
                             .title = std::string("Erro na chamada da função"_w),
                             .icon = BoxIcon::Critical});
}

std::string cFuncCall::CrashMessage(std::string_view function) const {
  const std::string inLibrary = function.empty() ? std::string() : ToUtf8(function) + " de ";
  return "[falha] API: " + inLibrary + ToUtf8(LibraryName_) + " encerrou o programa";
}

}  // namespace tessera
