#include "engine/made_program.h"

namespace tessera::test {

namespace {

constexpr int kFunctions = 3;
constexpr int kSubs = 4;

}  // namespace

std::string MadeProgram::Number() {
  switch (Below(12)) {
    case 0:
      return "0";
    case 1:
      return std::to_string(Below(1000)) + "." + std::to_string(Below(1000));
    case 2:
      return AnyOf(
          {"0.1", "2.5", "0.00001", "999999999999", "123456789012345678", "1e5", ".5", "5.", "1.2.3"});
    case 3:
      return AnyOf({"-1", "-7", "-0.5", "1,5", "2147483647", "-2147483648", "3000000000"});
    default:
      return std::to_string(Below(10));
  }
}

std::string MadeProgram::Index() {
  return AnyOf(
      {"0", "1", "2", "3", "i1", "i2", "k", "d1", "s1", "9", "99", "-1", "falta", "1.5", "i1+1", "1 "});
}

std::string MadeProgram::Name() {
  if (!locals_.empty() && !OneIn(3)) return AnyOf(locals_);
  if (OneIn(3)) return AnyOf({"vi", "vd", "vs"}) + "(" + Index() + ")";
  if (OneIn(40)) return "falta";
  return AnyOf({"i1", "i2", "i3", "d1", "d2", "d3", "s1", "s2", "s3", "I1", "vi", "k"});
}

std::string MadeProgram::Writable() {
  if (OneIn(30)) return "falta";
  const std::string name = Name();
  if (name.find('(') != std::string::npos && !OneIn(8))
    return name.substr(0, 2) + AnyOf({"(0)", "(1)", "(k)", "(9)", "(-1)"});
  // s3 is joined to texts in loops, k is an index that stays, and an index out of chance finds loop counters.
  return name == "s3" || name == "k" || name.find('(') != std::string::npos ? "s1" : name;
}

std::string MadeProgram::Literal() {
  return '"' + AnyOf({"",        "a",   "abc", "5",    "2,5",   "a,b", "(x)", "x)", "(y", "a + b", "Seno (1)",
                      "Apara a", " E ", "OU",  "a[1]", "F0(1)", "i1",  " ",   "ç",  "p0", "TRUE"}) +
         '"';
}

std::string MadeProgram::NumericCall(int depth) {
  const auto text = [&] { return OneIn(2) ? TextCall() : OneIn(2) ? Literal() : Name(); };
  switch (Below(8)) {
    case 0:
      return "ValorAbsoluto(" + Arithmetic(depth - 1) + ")";
    case 1:
      return "ParteInteira(" + Term(depth - 1) + ")";
    case 2:
      return "RaizQuadrada(" + (OneIn(4) ? NumericCall(depth) : Name()) + ")";
    case 3:
      return "Comprimento(" + text() + ")";
    case 4:
      return "Asc(" + text() + ")" + (OneIn(20) ? ")" : "");
    case 5:
      return "ValStr(" + text() + ")";
    case 6:
      return "PosIni(" + text() + "," + Blank() + Literal() + ")";
    default:
      return "Arredonda(" + Name() + ")";
  }
}

std::string MadeProgram::TextCall() {
  switch (Below(7)) {
    case 0:
      return "Maiuscula(" + (OneIn(2) ? Literal() : Name()) + ")";
    case 1:
      return "Apara(" + (OneIn(4) ? TextCall() : OneIn(6) ? Arithmetic(1) : Name()) + ")";
    case 2:
      return "Unir(" + ListOfCalls() + ")";
    case 3:
      return "Car(" + (OneIn(4) ? NumericCall(1) : "6" + std::to_string(Below(10))) + ")";
    case 4:
      return "Separe(" + (OneIn(3) ? Literal() : Name()) + ", " + std::to_string(Below(4)) + ", 2)";
    case 5:
      return "Formata(" + Name() + ", \"0,00\")";
    default:
      return "ConvStr(" + Name() + ")";
  }
}

// A list in which calls are replaced before it is cut.
std::string MadeProgram::ListOfCalls() {
  std::string text;
  for (std::size_t pieces = 1 + Below(4); pieces > 0; --pieces) {
    if (!text.empty()) text += "," + Blank();
    text += OneIn(3) ? TextCall() : OneIn(6) ? NumericCall(1) : OneIn(2) ? Literal() : Name();
  }
  return text;
}

std::string MadeProgram::OwnCall() {
  if (callable_ == 0) return "7";
  const std::size_t number = Below(static_cast<std::size_t>(callable_));
  std::size_t count = functions_[number].parameters;
  if (OneIn(12)) ++count;
  if (OneIn(12) && count > 1) --count;
  std::string call = "F" + std::to_string(number) + "(";
  for (std::size_t i = 0; i < count; ++i) {
    if (i > 0) call += "," + Blank();
    if (OneIn(20)) continue;  // an empty one hides what follows it
    call += OneIn(8)    ? Literal()
            : OneIn(10) ? NumericCall(1)
            : OneIn(20) ? TextCall()
            : OneIn(5)  ? Arithmetic(1)
            : OneIn(3)  ? Number()
                        : Name();
  }
  return call + ")";
}

std::string MadeProgram::Operand(int depth) {
  if (depth > 0 && OneIn(6)) return "(" + Arithmetic(depth - 1) + ")";
  if (depth > 0 && OneIn(10)) return NumericCall(depth);
  if (OneIn(25)) return OwnCall();
  return OneIn(3) ? Number() : Name();
}

std::string MadeProgram::Arithmetic(int depth) {
  // What stands behind the outermost level is not computed.
  if (OneIn(50)) return Operand(0) + ") - " + Name();
  std::string text = OneIn(20) ? "-" : "";
  text += Operand(depth);
  for (std::size_t terms = 1 + Below(3); terms > 0; --terms) {
    text += Blank() + AnyOf({"+", "-", "*", "/", "%", "+", "-", "*", "^", "@"}) + Blank() + Operand(depth);
  }
  if (OneIn(40)) text += AnyOf({"+", " ", "2", "(3)", " 4"});
  return text;
}

// Calls, mostly of one kind, as numbers of a sum.
std::string MadeProgram::SumOfCalls() {
  const bool own = OneIn(2);
  std::string text;
  for (std::size_t terms = 2 + Below(4); terms > 0; --terms) {
    if (!text.empty()) text += Blank() + AnyOf({"+", "-", "*", "+", " + "}) + Blank();
    text += OneIn(5) ? Operand(0) : OneIn(8) ? TextCall() : own != OneIn(12) ? OwnCall() : NumericCall(1);
  }
  return text;
}

std::string MadeProgram::Term(int depth) {
  switch (Below(10)) {
    case 0:
      return Number();
    case 1:
      return Literal();
    case 2:
      return depth > 0 ? NumericCall(depth) : Number();
    case 3:
      return depth > 0 ? TextCall() : Name();
    case 4:
      return depth > 0 ? OwnCall() : Name();
    case 5:
      return Name();
    case 6:
      return depth > 1 ? SumOfCalls() : Name();
    default:
      return Arithmetic(depth);
  }
}

std::string MadeProgram::Condition() {
  std::string text;
  for (std::size_t terms = OneIn(4) ? 2 : 1; terms > 0; --terms) {
    text += Term(1) + " " + AnyOf({"=", "<", ">", "<>", "<=", ">="}) + " " + Term(1);
    if (terms > 1) text += AnyOf({" E ", " OU "});
  }
  return text;
}

std::string MadeProgram::Joined(const std::string& target) {
  std::string text = OneIn(2) ? target : Term(1);
  for (std::size_t terms = 1 + Below(3); terms > 0; --terms) {
    // No text that grows goes here, or a loop would double it until nothing holds it.
    text += " & " + (OneIn(3)   ? Literal()
                     : OneIn(6) ? AnyOf({"Apara(s3)", "ConvStr(d1)", "Formata(i1, \"0,00\")",
                                         "Comprimento(s3)", "Car(40)", "Separe(s3, 1, 2)", "Separe(s3, 0)",
                                         "Apara(Car(32))", "Apara(p0)", "Maiuscula(s3)", "Seno(d1) 1"})
                                : AnyOf({"i1", "d1", "s3", "vi(" + Index() + ")", "vd(1)", "falta"}));
  }
  return text;
}

void MadeProgram::Assignment(const std::string& indent) {
  const std::string target = Writable();
  switch (Below(6)) {
    case 0:
      Put(indent + target + " = " + Joined(target));
      break;
    case 1:
      Put(indent + target + AnyOf({" += ", " -= ", "+="}) +
          (OneIn(4)   ? Literal()
           : OneIn(2) ? Arithmetic(1)
                      : Number()));
      break;
    case 2:
      Put(indent + target + AnyOf({"++", "--"}));
      break;
    case 3:
      // A call with empty parentheses stands alone: inside an expression it is replaced for ever.
      if (callable_ > 0 && OneIn(4)) {
        Put(indent + target + " = F" + std::to_string(Below(static_cast<std::size_t>(callable_))) + "()");
        break;
      }
      [[fallthrough]];
    default:
      Put(indent + target + " = " + Term(2));
      break;
  }
}

void MadeProgram::Block(const std::string& indent, int depth) {
  const std::string inner = indent + "  ";
  if (OneIn(2)) {
    const std::string counter = "c" + std::to_string(loops_++);
    Put(indent + "Var " + counter + " Inteiro");
    Put(indent + counter + " = 0");
    Put(indent + "Enquanto " + counter + " < " + std::to_string(Below(5)));
    Put(inner + counter + "++");
    for (std::size_t count = 1 + Below(3); count > 0; --count) Statement(inner, depth - 1);
    Put(indent + "Repita");
    return;
  }
  Put(indent + "Se " + Condition());
  for (std::size_t count = 1 + Below(2); count > 0; --count) Statement(inner, depth - 1);
  if (OneIn(2)) {
    Put(indent + "CasoContrario");
    for (std::size_t count = 1 + Below(2); count > 0; --count) Statement(inner, depth - 1);
  }
  Put(indent + "FimSe");
}

void MadeProgram::Statement(const std::string& indent, int depth) {
  if (depth > 0 && OneIn(4)) {
    Block(indent, depth);
  } else if (OneIn(8)) {
    Put(indent + "Escreva " + Term(2) + ", \"|\", " + Term(1));
  } else if (OneIn(10)) {
    Put(indent + "Escreva " + ListOfCalls());
  } else if (OneIn(25)) {
    Put(indent + "Sobreponha " + Name() + ", " + std::to_string(1 + Below(3)) + ", " + Literal());
  } else if (OneIn(30)) {
    Put(indent + "RemoveVariavel " + AnyOf({"nova", "falta"}));
  } else if (OneIn(20)) {
    Put(indent + "Var " + AnyOf({"nova Inteiro", "nova String", "outra(3) Decimal"}));
  } else {
    Assignment(indent);
  }
}

void MadeProgram::Function(int number) {
  static const Words kTypes = {"Inteiro", "Decimal", "String", "Numero"};
  locals_.clear();
  const Signature signature{1 + Below(3)};
  std::string head = "Funcao F" + std::to_string(number) + "(";
  for (std::size_t i = 0; i < signature.parameters; ++i) {
    const std::string name = "p" + std::to_string(i);
    locals_.push_back(name);
    head += (i > 0 ? ", " : "") + name + " " + AnyOf({"Inteiro", "Decimal", "String"});
  }
  Put(head + ") " + AnyOf(kTypes));
  if (OneIn(2)) {
    Put("  Var t0 Inteiro, t1 " + AnyOf({"String", "Decimal"}));
    locals_.insert(locals_.end(), {"t0", "t1"});
  }
  callable_ = number;
  for (std::size_t count = 1 + Below(4); count > 0; --count) Statement("  ", 1);
  if (OneIn(10) && signature.parameters > 0) {
    // A recursion that ends.
    Put("  Se nivel < 3");
    Put("    nivel++");
    Put("    i3 = F" + std::to_string(number) + "(p0)");
    Put("    nivel--");
    Put("  FimSe");
  }
  if (!OneIn(12)) Put("  Retorne " + Term(1));
  Put("FimFuncao");
  functions_.push_back(signature);
  locals_.clear();
}

void MadeProgram::Sub(int number) {
  callable_ = kFunctions;
  Put("Sub T" + std::to_string(number) + "()");
  for (std::size_t count = 1 + Below(3); count > 0; --count) Statement("  ", 2);
  Put("FimSub");
}

void MadeProgram::Make() {
  Put("Var rodada Inteiro, nivel Inteiro, k Inteiro, vizinha Inteiro, vi(10) Inteiro, i1 Inteiro, i2 "
      "Inteiro, i3 Inteiro");
  Put("Var d1 Decimal, d2 Decimal, d3 Decimal, s1, s2, s3, vd(3) Decimal, vs(3) String");
  Put("k = 2");
  const std::vector<std::string> names = {"i1", "i2", "i3", "d1",    "d2",    "d3",
                                          "s1", "s2", "s3", "vi(1)", "vd(1)", "vs(1)"};
  for (const std::string& name : names) {
    if (!OneIn(3)) Put(name + " = " + (OneIn(3) ? Literal() : Number()));
  }
  if (OneIn(5)) Put("i1 = 0 - 3");
  if (OneIn(5)) Put("d1 = 0 - 2.5");
  // Calls of more than nine and more than 99 functions make names of other lengths.
  const std::size_t rounds = OneIn(40) ? 60 : 3 + Below(5);
  Put("Enquanto rodada < " + std::to_string(rounds));
  for (int sub = 0; sub < kSubs; ++sub) {
    Put("  T" + std::to_string(sub) + "()");
    if (rounds < 20)
      Put("  Escreva i1, \";\", i2, \";\", d1, \";\", d2, \";\", s1, \";\", s2, \";\", vi(1), \";\", vs(1)");
  }
  Put("  rodada++");
  Put("Repita");
  Put("Escreva d3, \";\", s3, \";\", i3");
  Put("FimPrograma");
  for (int number = 0; number < kFunctions; ++number) Function(number);
  for (int number = 0; number < kSubs; ++number) Sub(number);
}

}  // namespace tessera::test
