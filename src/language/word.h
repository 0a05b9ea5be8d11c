// What a word of the language is, as data: the shape of its arguments, its keywords and its suffixes. The
// words themselves are in words.h. Texts for people (help, names of arguments) are UTF-8; the words are plain
// ASCII.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tessera {

enum class Kind : std::uint8_t {
  Number,     // n: computed, a number
  Text,       // t: a text, not computed
  Value,      // v: computed, whatever comes
  AsWritten,  // w: what the program wrote, as the name of an object
  Variable,   // x: the name of a variable
  Path,       // p: a file or folder
  Keyword,    // one of the words that the argument lists
};

enum class Need : std::uint8_t { Required, Optional, Repeated };

// The name of an argument as code asks for it: a number made of the name when the house is built.
class ArgumentName {
 public:
  consteval ArgumentName(const char* name) : id_(IdOf(name)), text_(name) {}

  std::uint32_t id() const { return id_; }
  std::string_view text() const { return text_; }

  // FNV-1a.
  static constexpr std::uint32_t IdOf(std::string_view name) {
    std::uint32_t id = 2166136261u;
    for (const char c : name) id = (id ^ static_cast<unsigned char>(c)) * 16777619u;
    return id;
  }

 private:
  std::uint32_t id_;
  std::string_view text_;
};

struct Argument {
  std::string_view name;
  Kind kind;
  Need need;
  std::string_view words;  // of a keyword: "ABRIR|SALVAR"
};

// The arguments of a word or a form, written as a manual shows them: "linha:n, coluna:n, [largura:n]". Behind
// the colon stands the letter of the kind, or the keywords with "|" between; brackets mean optional, "..." at
// the end that any number may follow. A text of another form does not build.
class Signature {
 public:
  static constexpr std::size_t kMost = 8;

  constexpr Signature() = default;
  consteval Signature(const char* text) : text_(text) {
    for (std::size_t at = 0; at < text_.size();) {
      const std::size_t comma = text_.find(", ", at);
      const std::size_t end = comma == std::string_view::npos ? text_.size() : comma;
      Take(at, end);
      at = comma == std::string_view::npos ? end : comma + 2;
    }
  }

  constexpr std::string_view text() const { return text_; }
  constexpr std::size_t size() const { return size_; }
  constexpr bool IsList() const { return size_ > 0 && cells_[size_ - 1].need == Need::Repeated; }

  constexpr Argument operator[](std::size_t place) const {
    const Cell& cell = cells_[place];
    return {text_.substr(cell.name, cell.nameSize), cell.kind, cell.need,
            text_.substr(cell.words, cell.wordsSize)};
  }

  // The place of an argument, from 0. A name that is not among them is a mistake of ours, not of a program.
  std::size_t PlaceOf(ArgumentName name) const {
    for (std::size_t place = 0; place < size_; ++place) {
      if (cells_[place].id == name.id()) return place;
    }
    throw std::logic_error("no argument '" + std::string(name.text()) + "' among: " + std::string(text_));
  }
  bool Has(ArgumentName name) const {
    for (std::size_t place = 0; place < size_; ++place) {
      if (cells_[place].id == name.id()) return true;
    }
    return false;
  }

 private:
  struct Cell {
    std::uint32_t id = 0;
    std::uint16_t name = 0, nameSize = 0, words = 0, wordsSize = 0;
    Kind kind = Kind::Value;
    Need need = Need::Required;
  };

  constexpr void Take(std::size_t begin, std::size_t end) {
    Cell cell;
    if (text_[begin] == '[') {
      if (text_[end - 1] != ']') throw std::logic_error("a bracket is open");
      cell.need = Need::Optional;
      ++begin;
      --end;
    }
    if (text_.substr(0, end).ends_with("...")) {
      cell.need = Need::Repeated;
      end -= 3;
    }
    const std::size_t colon = text_.find(':', begin);
    if (colon == begin || colon + 1 >= end) throw std::logic_error("an argument is a name, a colon, a kind");
    cell.id = ArgumentName::IdOf(text_.substr(begin, colon - begin));
    cell.name = static_cast<std::uint16_t>(begin);
    cell.nameSize = static_cast<std::uint16_t>(colon - begin);
    if (end - colon == 2) {
      cell.kind = KindOf(text_[colon + 1]);
    } else {
      cell.kind = Kind::Keyword;
      cell.words = static_cast<std::uint16_t>(colon + 1);
      cell.wordsSize = static_cast<std::uint16_t>(end - colon - 1);
    }
    cells_.at(size_++) = cell;
  }

  static constexpr Kind KindOf(char letter) {
    switch (letter) {
      case 'n':
        return Kind::Number;
      case 't':
        return Kind::Text;
      case 'v':
        return Kind::Value;
      case 'w':
        return Kind::AsWritten;
      case 'x':
        return Kind::Variable;
      case 'p':
        return Kind::Path;
      default:
        throw std::logic_error("no such kind");
    }
  }

  std::string_view text_;
  std::array<Cell, kMost> cells_{};
  std::uint8_t size_ = 0;
};

// What a word gives back to the expression in which it stands.
enum class Result : std::uint8_t { None, Number, Text };

// How the values of a form stand behind its word.
enum class Values : std::uint8_t {
  Equals,  // KEYWORD = value, value
  List,    // KEYWORD, value, value
  None,
};

// A keyword of a word, a suffix of its objects, or another way to write its arguments.
struct WordForm {
  std::string_view word;  // in upper case, a suffix with its "."
  Values values = Values::None;
  Signature arguments = {};
  std::string_view help;
  Result result = Result::None;
  // Found wherever it stands in the first argument, in this case alone.
  bool anywhere = false;
};

enum class Role : std::uint8_t { Statement, Value, Both, Declaration, Block };

// What the evaluators and the engine must know of a word beside its handler; any number of them.
namespace trait {

enum Trait : std::uint16_t {
  kPlain = 0,
  kTakesCommas = 1 << 0,  // a call that is settled before a list of arguments is cut at its commas
  kNumeric = 1 << 1,      // tells that a number is wanted
  kText = 1 << 2,         // a right side with such a call is text
  kPrefix = 1 << 3,       // reached by all words that begin with its three letters
  kEqualSign = 1 << 4,    // "=" is an argument of its own
  kEngine = 1 << 5,       // done by the statement loop itself: no command
  kReserved = 1 << 6,     // a line may begin with it, though it is no word of the search
  kBoundary = 1 << 7,     // begins or ends a routine
};

constexpr Trait operator|(Trait a, Trait b) {
  return static_cast<Trait>(static_cast<unsigned>(a) | static_cast<unsigned>(b));
}

}  // namespace trait

using trait::Trait;

// The chapters of the language.
enum class Topic : std::uint8_t {
  Structure,
  Texts,
  Numbers,
  Dates,
  Checks,
  Files,
  System,
  Records,
  Sql,
  Windows,
  Objects,
  Pictures,
  Events,
  Drawing,
  Reports,
  Printing,
  Media,
  Web,
  Network,
  Libraries,
};

// What few words have.
struct More {
  std::span<const WordForm> keywords = {};
  std::span<const WordForm> suffixes = {};
  std::span<const WordForm> otherForms = {};  // of the arguments, by names of our own
  std::size_t places = 0;                     // of the list, where it is longer or shorter than usual
};

struct Word {
  std::string_view name;  // as programs write it
  Topic topic;
  Role role;
  Result result;
  Trait traits;
  Signature arguments;
  std::string_view help;
  More more = {};

  constexpr bool Has(Trait trait) const { return (traits & trait) != 0; }

  // How many places the list of its arguments has: for most the least of the system's sizes above the
  // arguments that it takes, so that one argument too many is passed over and a longer list is failure 9.
  constexpr std::size_t Places() const {
    if (more.places != 0) return more.places;
    if (Has(trait::kEqualSign)) return 51;
    if (arguments.IsList()) return 101;
    for (const std::size_t size : {3u, 4u, 6u}) {
      if (size > arguments.size()) return size;
    }
    return 11;
  }
};

// A form by its word, exactly; null where there is none.
constexpr const WordForm* FindForm(std::span<const WordForm> forms, std::string_view word) {
  for (const WordForm& form : forms) {
    if (form.word == word) return &form;
  }
  return nullptr;
}

}  // namespace tessera
