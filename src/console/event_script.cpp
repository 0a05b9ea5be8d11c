#include "console/event_script.h"

#include <algorithm>
#include <array>
#include <limits>

#include "text/literal.h"
#include "text/number.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr int kLargestKeyCode = 255;

struct LineFault {
  std::string reason;
};

// The words of one line, taken from the left.
class Words {
 public:
  explicit Words(std::string_view line) : rest_(Trim(line)) {}

  bool AtEnd() const { return rest_.empty(); }

  std::string_view Next() {
    const std::size_t blank = std::min(rest_.find(' '), rest_.size());
    const std::string_view word = rest_.substr(0, blank);
    rest_ = rest_.substr(std::min(blank + 1, rest_.size()));
    skipped_ = rest_;
    rest_ = TrimLeft(rest_);
    return word;
  }

  std::string_view Name(std::string_view missing = "falta o nome") {
    if (AtEnd()) throw LineFault{std::string(missing)};
    return Next();
  }

  double Number() {
    if (AtEnd()) throw LineFault{std::string("falta um número"_w)};
    const std::string_view word = Next();
    const auto number = WholeNumber(word);
    if (!number) throw LineFault{std::string("não é um número: "_w).append(word)};
    return *number;
  }

  int Integer(int lowest, int highest) {
    const double number = Number();
    if (number != RoundHalfEven(number) || number < lowest || number > highest) FailLimits(number);
    return static_cast<int>(number);
  }

  // A height or width.
  double Size() {
    const double number = Number();
    if (number < 0) FailLimits(number);
    return number;
  }

  // How often, as "x20".
  int Times() {
    if (!rest_.starts_with('x')) End();
    rest_.remove_prefix(1);
    return Integer(1, std::numeric_limits<int>::max());
  }

  int Index() { return Integer(0, std::numeric_limits<int>::max()); }

  // All that stands behind the one blank after the last word, blanks included.
  std::string_view Rest() const { return skipped_; }

  void End() const {
    if (!AtEnd()) throw LineFault{std::string("sobra texto: "_w).append(rest_)};
  }

 private:
  [[noreturn]] static void FailLimits(double number) {
    throw LineFault{std::string("número fora dos limites: "_w).append(NumberText(number))};
  }

  std::string_view rest_;
  std::string_view skipped_;
};

PersonObject& KnownObject(std::string_view name, Person& person) {
  PersonObject* object = person.FindObject(name);
  if (object == nullptr) throw LineFault{std::string("objeto desconhecido: "_w).append(name)};
  return *object;
}

PersonObject& ObjectOf(Words& words, Person& person) {
  return KnownObject(words.Name(), person);
}

// Does one act with an object that can be reached.
template <typename Act>
void With(PersonObject& object, Person& person, Act act) {
  if (person.TurnTo(object)) act(object);
}

KeyShift ShiftOf(Words& words) {
  if (words.AtEnd()) return {};
  const std::string_view word = words.Next();
  if (EqualsIgnoringCase(word, "shift")) return {.shift = true};
  if (EqualsIgnoringCase(word, "ctrl")) return {.ctrl = true};
  throw LineFault{std::string("tecla de apoio desconhecida: "_w).append(word)};
}

// A tab or a menu entry may have blanks in its name.
void Clique(Words& words, Person& person) {
  if (words.AtEnd()) return person.Click();
  const std::string_view name = words.Name();
  if (words.AtEnd()) return With(KnownObject(name, person), person, [](auto& object) { object.Click(); });
  const std::string_view rest = words.Rest();
  if (PersonObject* object = person.FindObject(name)) {
    return With(*object, person, [rest](auto& grid) { grid.ClickTitle(rest); });
  }
  const std::string longName = std::string(name).append(" ").append(rest);
  With(KnownObject(longName, person), person, [](auto& object) { object.Click(); });
}

void DuploClique(Words& words, Person& person) {
  if (words.AtEnd()) return person.DoubleClick();
  PersonObject& object = ObjectOf(words, person);
  words.End();
  With(object, person, [](auto& reached) { reached.DoubleClick(); });
}

void Texto(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  With(object, person, [&](auto& reached) { reached.ReplaceText(words.Rest()); });
}

void Digita(Words& words, Person& person) {
  person.TypeText(words.Rest());
}

void Valor(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const double value = words.Number();
  words.End();
  With(object, person, [value](auto& reached) { reached.EnterValue(value); });
}

void Seta(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const std::string_view direction = words.AtEnd() ? std::string_view() : words.Next();
  if (direction != "+" && direction != "-") throw LineFault{std::string("falta + ou -"_w)};
  words.End();
  With(object, person, [direction](auto& reached) { reached.PressArrow(direction == "+"); });
}

void Escolhe(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const int entry = words.Index();
  words.End();
  With(object, person, [entry](auto& reached) { reached.Choose(entry); });
}

void Data(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const std::string_view date = words.Name("falta a data");
  words.End();
  With(object, person, [date](auto& reached) { reached.PickDate(date); });
}

void Linha(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const int row = words.Index();
  if (words.AtEnd()) return With(object, person, [row](auto& reached) { reached.ClickRow(row); });
  const int column = words.Index();
  words.End();
  With(object, person, [=](auto& reached) { reached.ClickCell(row, column); });
}

// OPEN: what a person does with the page of a grid, the caret of an entry and the button of a list has lines
// of its own, so that a recorded script can tell it.
void Rola(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const int row = words.Index();
  words.End();
  With(object, person, [row](auto& reached) { reached.ScrollTo(row); });
}

void Abre(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  words.End();
  With(object, person, [](auto& reached) { reached.PressDropButton(); });
}

void Cursor(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const auto anchor = static_cast<std::size_t>(words.Index());
  const std::size_t caret = words.AtEnd() ? anchor : static_cast<std::size_t>(words.Index());
  words.End();
  With(object, person, [=](auto& reached) { reached.PlaceCaret(anchor, caret); });
}

void Celula(Words& words, Person& person) {
  PersonObject& object = ObjectOf(words, person);
  const int row = words.Index();
  const int column = words.Index();
  With(object, person, [&](auto& reached) { reached.EditCell(row, column, words.Rest()); });
}

void Foco(Words& words, Person& person) {
  const std::string_view name = words.Name();
  words.End();
  if (PersonObject* object = person.FindObject(name)) {
    person.TurnTo(*object);
  } else if (!person.TurnToWindow(name)) {
    throw LineFault{std::string("objeto desconhecido: "_w).append(name)};
  }
}

struct Key {
  int code;
  KeyShift shift;
};

Key KeyOf(Words& words, bool withShift) {
  const int code = words.Integer(0, kLargestKeyCode);
  const KeyShift shift = withShift ? ShiftOf(words) : KeyShift{};
  words.End();
  return {code, shift};
}

void Tecla(Words& words, Person& person) {
  const Key key = KeyOf(words, true);
  person.PressKey(key.code, key.shift);
  person.ReleaseKey(key.code, key.shift);
}

void Aperta(Words& words, Person& person) {
  person.PressKey(KeyOf(words, false).code, {});
}

void Solta(Words& words, Person& person) {
  person.ReleaseKey(KeyOf(words, false).code, {});
}

void Mouse(Words& words, Person& person) {
  const double line = words.Number();
  const double column = words.Number();
  words.End();
  person.MovePointer(line, column);
}

MouseButton ButtonOf(Words& words) {
  const int button = words.Integer(1, 2);
  words.End();
  return static_cast<MouseButton>(button);
}

void Pressiona(Words& words, Person& person) {
  person.PressButton(ButtonOf(words));
}

void Libera(Words& words, Person& person) {
  person.ReleaseButton(ButtonOf(words));
}

void Redim(Words& words, Person& person) {
  const double lines = words.Size();
  const double columns = words.Size();
  words.End();
  person.ResizeWindow(lines, columns);
}

void Espera(Words& words, Person& person) {
  const int time = words.Index();
  const int times = words.AtEnd() ? 1 : words.Times();
  words.End();
  person.LetTimePass(std::chrono::milliseconds(time), times);
}

void Rede(Words& words, Person& person) {
  constexpr int kUsualWait = 10'000;
  const int time = words.AtEnd() ? kUsualWait : words.Index();
  words.End();
  person.LetNetworkAct(std::chrono::milliseconds(time));
}

void Retrato(Words& words, Person& person) {
  const std::string_view rest = Trim(words.Rest());
  if (rest.empty()) throw LineFault{std::string("falta o arquivo"_w)};
  const std::string reason = person.TakePortrait(rest);
  if (!reason.empty()) throw LineFault{std::string("o retrato não pôde ser gravado: "_w).append(reason)};
}

void Fecha(Words& words, Person& person) {
  const std::string_view name = words.AtEnd() ? std::string_view() : words.Next();
  words.End();
  if (!person.CloseWindow(name)) throw LineFault{std::string("janela desconhecida: "_w).append(name)};
}

struct WordRow {
  std::string_view word;
  void (*act)(Words& words, Person& person);
};

constexpr std::array kWords = {
    WordRow{"clique", Clique},   WordRow{"duploclique", DuploClique},
    WordRow{"texto", Texto},     WordRow{"digita", Digita},
    WordRow{"valor", Valor},     WordRow{"seta", Seta},
    WordRow{"escolhe", Escolhe}, WordRow{"data", Data},
    WordRow{"linha", Linha},     WordRow{"celula", Celula},
    WordRow{"foco", Foco},       WordRow{"tecla", Tecla},
    WordRow{"aperta", Aperta},   WordRow{"solta", Solta},
    WordRow{"mouse", Mouse},     WordRow{"pressiona", Pressiona},
    WordRow{"libera", Libera},   WordRow{"redim", Redim},
    WordRow{"espera", Espera},   WordRow{"fecha", Fecha},
    WordRow{"rede", Rede},       WordRow{"retrato", Retrato},
    WordRow{"abre", Abre},       WordRow{"cursor", Cursor},
    WordRow{"rola", Rola},
};

}  // namespace

std::string DoEventLine(std::string_view line, Person& person) {
  Words words(line);
  const std::string_view word = words.Next();
  const auto row = std::find_if(kWords.begin(), kWords.end(),
                                [&](const WordRow& r) { return EqualsIgnoringCase(r.word, word); });
  if (row == kWords.end()) return std::string("palavra desconhecida: "_w).append(word);
  try {
    row->act(words, person);
  } catch (const LineFault& fault) {
    return fault.reason;
  }
  return {};
}

}  // namespace tessera
