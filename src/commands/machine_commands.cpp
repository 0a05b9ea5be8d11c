#include "commands/machine_commands.h"

#include <algorithm>
#include <array>

#include "commands/arguments.h"
#include "platform/child_process.h"
#include "platform/failure.h"
#include "platform/file_system.h"
#include "platform/paths.h"
#include "platform/start_form.h"
#include "text/code_page.h"
#include "text/literal.h"
#include "text/one_based.h"

namespace tessera {

namespace {

constexpr std::array<std::string_view, 4> kRoots = {"HKEY_CLASSES_ROOT", "HKEY_CURRENT_USER",
                                                    "HKEY_LOCAL_MACHINE", "HKEY_USERS"};

bool IsRoot(std::string_view root) {
  return std::find(kRoots.begin(), kRoots.end(), Upper(root)) != kRoots.end();
}

struct WindowForm {
  std::string_view word;
  StartForm form;
};

constexpr std::array kWindowForms = {
    WindowForm{"OCULTO", StartForm::Hidden},
    WindowForm{"NORMAL", StartForm::Normal},
    WindowForm{"MINIMIZADO", StartForm::Minimised},
    WindowForm{"MAXIMIZADO", StartForm::Maximised},
    WindowForm{"NORMALSEMFOCO", StartForm::NormalWithoutFocus},
    WindowForm{"MINIMIZADOSEMFOCO", StartForm::MinimisedWithoutFocus},
};

StartForm StartFormOf(std::string_view word) {
  const auto found = std::find_if(kWindowForms.begin(), kWindowForms.end(),
                                  [&](const WindowForm& form) { return form.word == Upper(word); });
  return found == kWindowForms.end() ? StartForm::Hidden : found->form;
}

// The programs' numbers of ports have 16 bits, of which none is a sign on the machine.
std::uint16_t PortOf(const ArgumentView& arguments) {
  return static_cast<std::uint16_t>(arguments.Number("porta").ToShort());
}

}  // namespace

Value MachineCommands::LeRegWin(const WordCall& call) {
  const Arguments arguments(call);
  const std::string root = arguments.Text("raiz");
  const std::string key = arguments.Text("chave");
  const std::string name = arguments.Text("nome");
  return Quote(IsRoot(root) ? places_.registry.Read(root, key, name) : std::string());
}

Value MachineCommands::SalvaRegWin(const WordCall& call) {
  const Arguments arguments(call);
  const std::string root = arguments.Text("raiz");
  const std::string key = arguments.Text("chave");
  const std::string name = arguments.Text("nome");
  const std::string value = arguments.Text("valor");
  if (IsRoot(root)) places_.registry.Write(root, key, name, value);
  return {};
}

// The entry starts this process's own program as it was started itself.
// OPEN: a program that is run from its sources has no executable of its own, and is refused with a box.
Value MachineCommands::AdicioneSistema(const WordCall& call) {
  const Arguments arguments(call);
  if (!places_.isFinished) {
    ShowCritical(run_, std::string("AdicioneSistema - O programa ainda não é um executável. "
                                   "Grave-o com tessera build e execute o que foi gravado."_w)
                           .append(kCrLf)
                           .append(SourcePositionText(run_)));
    return {};
  }
  places_.startList.Add(arguments.Number("entrada").ToText(), places_.ownStart());
  return {};
}

Value MachineCommands::RemoveSistema(const WordCall& call) {
  const Arguments arguments(call);
  places_.startList.Remove(arguments.Number("entrada").ToText());
  return {};
}

Value MachineCommands::Chame(const WordCall& call) {
  const Arguments arguments(call);
  const std::string line = arguments.Text("comando");
  const std::string form = arguments.Text("janela");
  std::string answer;
  const auto failure = Guard([&] { answer = NumberText(std::int32_t{Start(line, form)}); });
  return failure ? Quote("Erro " + std::to_string(failure->number())) : answer;
}

// OPEN: no program of this system can set the window of another one, so that the form is asked for in the
// environment (start_form.h).
int MachineCommands::Start(const std::string& line, std::string_view form) {
  ForgetEnded(processes_);
  run_.fileNumbers.FlushAll();
  std::vector<std::string> words = CommandWords(line);
  for (std::size_t i = 0; i < words.size(); ++i) words[i] = i == 0 ? ProgramPath(words[i]) : ToUtf8(words[i]);
  processes_.push_back(StartProgram(words, {StartFormVariable(StartFormOf(form))}));
  return processes_.back();
}

// A name alone is one of the program's folder, or else the system's to search for.
std::string MachineCommands::ProgramPath(const std::string& word) const {
  const bool isPath = CharAt(word, 2) == ':' || std::any_of(word.begin(), word.end(), IsPathSeparator);
  const std::string path = run_.paths.SystemPath(isPath ? word : run_.ProgramFolderText + word);
  return isPath || IsFile(run_.host.files, path) ? path : ToUtf8(word);
}

Value MachineCommands::LePorta(const WordCall& call) {
  const Arguments arguments(call);
  const std::uint16_t port = PortOf(arguments);
  if (const auto value = places_.ports.Read(port)) return std::int32_t{*value};
  TellForbiddenPort("LePorta", port);
  return std::int32_t{0};
}

Value MachineCommands::EnviaPorta(const WordCall& call) {
  const Arguments arguments(call);
  const std::uint16_t port = PortOf(arguments);
  const auto value = static_cast<std::uint8_t>(arguments.Number("valor").ToShort());
  if (!places_.ports.Write(port, value)) TellForbiddenPort("EnviaPorta", port);
  return {};
}

// OPEN: a port that the system keeps to itself is told in a box, and the run goes on; it reads as 0.
void MachineCommands::TellForbiddenPort(std::string_view command, std::uint16_t port) {
  ShowCritical(run_, std::string(command)
                         .append(" - O sistema não permite o acesso à porta "_w)
                         .append(std::to_string(port))
                         .append(". Execute o programa como administrador."_w)
                         .append(kCrLf)
                         .append(SourcePositionText(run_)));
}

MachineCommands::MachineCommands(CommandTable& table, Run& run, Places places)
    : run_(run), places_(std::move(places)) {
  constexpr MemberRow<MachineCommands> kRows[] = {
      {"LeRegWin", &MachineCommands::LeRegWin},
      {"SalvaRegWin", &MachineCommands::SalvaRegWin},
      {"AdicioneSistema", &MachineCommands::AdicioneSistema},
      {"RemoveSistema", &MachineCommands::RemoveSistema},
      {"Chame", &MachineCommands::Chame},
      {"LePorta", &MachineCommands::LePorta},
      {"EnviaPorta", &MachineCommands::EnviaPorta},
  };
  Bind(table, kRows, *this);
}

}  // namespace tessera
