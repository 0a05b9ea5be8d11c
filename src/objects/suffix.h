// The suffixes of objects, `name.SUFFIX = value`: a family's table of them, and those that many families
// have.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "commands/arguments.h"
#include "commands/form_table.h"
#include "controls/text_align.h"
#include "values/eval.h"
#include "values/run.h"
#include "values/value.h"
#include "windows/control.h"

namespace tessera {

class ObjectFamily;
class ObjectFrame;
struct ObjectRow;

// One use of a suffix.
struct SuffixCall {
  Run& run;
  ObjectFrame& frame;
  ObjectFamily& family;
  ObjectRow& row;
  Control& control;
  const Arguments& arguments;
  const WordForm& form;

  // The family's own kind of control.
  template <typename T>
  T& As() const {
    return static_cast<T&>(control);
  }

  // The value behind the equals sign: a number, a word or a text, and a name or path, which must stay text.
  // OPEN: texts are computed as numbers are.
  Value Number() const { return EvalNumber(run, Raw()); }
  std::string Word() const { return Number().ToText(); }
  std::string Text() const { return EvalText(run, Raw()).ToText(); }
  // As the program wrote it.
  const std::string& Raw() const { return arguments.Part(kValue); }

  // All values: what stands behind the first blank of the first argument, and the arguments behind it without
  // the equals sign.
  std::vector<std::string> Values() const;
  // One of them by its name, evaluated; empty beyond their end.
  Value Nth(ArgumentName name) const;
  // The same as the program wrote it.
  std::string NthRaw(ArgumentName name) const;

 private:
  static constexpr std::size_t kValue = 2;
};

using SuffixTable = FormTable<Value (*)(const SuffixCall& call)>;
using SuffixRow = SuffixTable::Row;

namespace suffix {

Value Ativo(const SuffixCall& call);
Value Visivel(const SuffixCall& call);
Value CorFundo(const SuffixCall& call);
Value CorLetra(const SuffixCall& call);
Value IndiceTab(const SuffixCall& call);
Value MoveFoco(const SuffixCall& call);
Value Dica(const SuffixCall& call);
Value NomeFonte(const SuffixCall& call);
Value TamFonte(const SuffixCall& call);
Value Negrito(const SuffixCall& call);
Value Italico(const SuffixCall& call);
Value Pai(const SuffixCall& call);
// `Height` in lines.
Value Altura(const SuffixCall& call);
// `Width` in columns, `Top` and `Left` in lines and columns.
Value Largura(const SuffixCall& call);
Value Linha(const SuffixCall& call);
Value Coluna(const SuffixCall& call);

// What all entries have: state, colours, focus, hover text, font and `.PAI`.
inline constexpr SuffixRow kOfEntries[] = {
    {".ATIVO", Ativo},         {".VISIVEL", Visivel},   {".CORFUNDO", CorFundo}, {".CORLETRA", CorLetra},
    {".INDICETAB", IndiceTab}, {".MOVEFOCO", MoveFoco}, {".DICA", Dica},         {".NOMEFONTE", NomeFonte},
    {".TAMFONTE", TamFonte},   {".NEGRITO", Negrito},   {".ITALICO", Italico},   {".PAI", Pai},
};

// Whether a font's property is set: "SIM" in any case, anything else clears it.
bool IsSim(const SuffixCall& call);

// The value of `.JUSTIFICA`: 0 left, 1 right, 2 centre; failure 380 for another.
TextAlign AlignmentOf(const SuffixCall& call);

}  // namespace suffix

// "SIM" sets it, "NAO" clears it, any other word leaves it. Upper case counts.
template <typename Setter>
void SetBySimNao(std::string_view word, Setter set) {
  if (word == "SIM") set(true);
  if (word == "NAO") set(false);
}

}  // namespace tessera
