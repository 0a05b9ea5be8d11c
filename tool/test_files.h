// The tests of users: an event script beside a program, and what is expected to come out.
//
//   Nome.roteiro   the script; none is an empty one
//   Nome.saida     the output: what is printed, boxes and failures in their order, at the end "[estado] N"
//   where
//                  the exit status is not 0
//   Nome.teste     both in one file, with the line "=== saida ===" between them
//   Nome.argumentos  the program's arguments, one a line
//
// Nome is the program's name, or begins with it and a point: `Clientes.novo.roteiro` tests `Clientes`. In a
// folder that is a program of several editors every test is one of that program.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tessera {

struct ProgramTest {
  std::string name;               // as a person is told of it: the path below the folder that was asked for
  std::filesystem::path program;  // the file or folder; empty where none is beside the test
  std::filesystem::path stem;     // of the test's own files
  bool isOneFile = false;         // `.teste`
};

// What a test's files say.
struct TestContent {
  std::string script;
  std::optional<std::string> expected;  // none where nobody has written it yet
  std::vector<std::string> arguments;
};

// The tests below a folder, of a program's file, or the one of which a file is given, in order of their
// names; or, in the user's language, why there are none. Folders whose name begins with a point are passed
// over.
std::variant<std::vector<ProgramTest>, std::string> FindTests(const std::string& path);

// The test of a program whose script lies there, or beside the program where no place is given. The answer is
// the test, or why that is no program.
std::variant<ProgramTest, std::string> TestFor(const std::string& program, const std::string& script);

// The test's file of that kind.
std::filesystem::path ScriptOf(const ProgramTest& test);
std::filesystem::path OutputOf(const ProgramTest& test);
std::filesystem::path ArgumentsOf(const ProgramTest& test);

// A file that can't be read is told in the user's language.
std::variant<TestContent, std::string> ReadTest(const ProgramTest& test);

// Keeps the program's arguments, and no file where it has none. The answer is empty, or why they could not be
// written.
std::string WriteArguments(const ProgramTest& test, const std::vector<std::string>& arguments);

// Keeps an output as the expected one. The answer is empty, or why it could not be written.
std::string WriteExpected(const ProgramTest& test, const std::string& script, const std::string& output);

}  // namespace tessera
