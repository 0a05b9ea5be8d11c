// The sub-commands of the tool; each tells the person what went wrong and returns the exit status.
// Paths and arguments are as the person gave them, in UTF-8.
#pragma once

#include <string>
#include <vector>

namespace tessera {

struct RunCall {
  std::string program;
  std::vector<std::string> arguments;
  bool console = false;       // without windows
  std::string printer;        // a queue, or a path ending in ".pdf"; empty for the system's own
  std::string microphone;     // a file of sound in the place of a device, or empty
  std::string camera;         // a picture, or a folder of them, in the place of a device, or empty
  bool plain = false;         // by the plain rules alone
  bool check = true;          // where a person reads along, what the check finds is shown first
  bool answerCancel = false;  // a script answers boxes of OK and Cancel with Cancel
  bool failures = false;      // failures that end a routine in silence are told as well
  std::string script;         // a file with an event script; "-" is the standard input, empty for none
  std::string record;         // where the script of what a person does is written; empty for none
};
int RunSubcommand(const RunCall& call);

struct BuildCall {
  std::string program;
  std::string output;                 // empty: the program's name in its own folder
  std::string runtime;                // empty: `tessera-runtime` beside the tool
  bool force = false;                 // also over a file that is no older finished program
  std::string icon;                   // a picture for the desktop; empty: none
  bool desktop = false;               // the program comes into the user's menu
  std::vector<std::string> included;  // files and folders that come to lie beside the program
  bool deb = false;                   // a package of the system, in the place of the program
  std::string version = "1.0";        // of the package
  bool needs = false;                 // tells what the program needs, and writes nothing
};
int BuildSubcommand(const BuildCall& call);

struct CheckCall {
  std::string program;
  bool json = false;          // one object a line
  std::string format;         // "sarif", or empty
  std::string colour;         // "always", "never", or empty: where a person reads
  bool denyWarnings = false;  // a warning refuses the program too
};
int CheckSubcommand(const CheckCall& call);

struct TestCall {
  std::string path;      // a folder, a program or a test's file; empty: the working directory
  std::string filter;    // runs the tests whose name has it, blind to case
  bool update = false;   // keeps what comes out as the expected output
  bool windows = false;  // with real windows that nobody sees
  std::string junit;     // an XML file for services
  int jobs = 0;          // tests at the same time; 0: as many as the machine has cores
  int patience = 60;     // seconds for one test
};
int TestSubcommand(const TestCall& call);

struct RecordCall {
  std::string program;
  std::vector<std::string> arguments;
  std::string script;  // where the script comes; empty: beside the program, by its name
  bool force = false;  // also over a test that is there
};
int RecordSubcommand(const RecordCall& call);

int ShowSubcommand(const std::string& program);
int NewSubcommand(const std::string& folder);

// Writes the table of the language as JSON: words with arguments, keywords and suffixes, built-in variables.
int WordsSubcommand();

// The sub-commands of `tessera bd`, on a record file.
int BdInfoSubcommand(const std::string& file);
int BdCheckSubcommand(const std::string& file);
int BdUnlockSubcommand(const std::string& file);
int BdRepairSubcommand(const std::string& file);

struct BdExportCall {
  std::string file;
  std::string csv;     // the text file to write, or
  std::string sqlite;  // the SQLite file to write
  std::string password;
};
int BdExportSubcommand(const BdExportCall& call);

struct BdImportCall {
  std::string file;    // the record file to make
  std::string csv;     // the text file to read, or
  std::string sqlite;  // the SQLite file to read
  std::string table;   // of the SQLite file
  std::string password;
};
int BdImportSubcommand(const BdImportCall& call);

}  // namespace tessera
