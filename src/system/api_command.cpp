#include "system/api_command.h"

#include <cstddef>

#include "commands/form_table.h"
#include "language/words.h"
#include "platform/failure.h"
#include "text/number.h"
#include "text/one_based.h"
#include "windows/form.h"
#include "windows/window_model.h"

namespace tessera {

ApiCommand::ApiCommand(CommandTable& table, Run& run, const WindowModel& windows)
    : run_(run), windows_(windows), call_(run) {
  constexpr MemberRow<ApiCommand> kRows[] = {{"API", &ApiCommand::API}};
  Bind(table, kRows, *this);
}

// Inside an expression it stands for the empty text, whatever it does.
Value ApiCommand::API(const WordCall& call) {
  using Act = void (ApiCommand::*)(const ArgumentView& arguments);
  constexpr FormTable<Act>::Row kActs[] = {
      {"BIBLIOTECA", &ApiCommand::Biblioteca},
      {"NOMEFUNCAO", &ApiCommand::NomeFuncao},
      {"EXECUTE", &ApiCommand::Execute},
      {"ARGUMENTO", &ApiCommand::Argumento},
  };
  static const FormTable<Act> kForms(FindWord("API")->more.keywords, {kActs});
  const Arguments arguments(call);
  if (const auto* bound = kForms.Find(arguments.Word("palavra"))) {
    (this->*bound->act)(arguments.As(bound->form->arguments, 1));
  }
  return Quote({});
}

void ApiCommand::Biblioteca(const ArgumentView& arguments) {
  ApiLibrary_ = arguments.Text("nome");
}

void ApiCommand::NomeFuncao(const ArgumentView& arguments) {
  ApiFunction_ = arguments.Text("nome");
}

void ApiCommand::Execute(const ArgumentView& arguments) {
  std::vector<std::string> texts;
  for (const std::string& argument : arguments.List("argumento")) texts.push_back(ArgumentText(argument));
  ApiArguments_ = std::move(texts);
  call_.SetLibraryName(ApiLibrary_);
  call_.SetFunctionName(ApiFunction_);
  run_.variables.VarWrite("Retorno", NumberText(call_.CallFunction(ApiArguments_)), true);
}

// No window of this system has a device context that another library could draw with.
std::string ApiCommand::ArgumentText(std::string_view argument) {
  std::string text = EvalNumber(run_, argument).ToText();
  const std::string word = Upper(text);
  if (word == "HWND") return std::to_string(windows_.CurrentForm().hWnd());
  if (word == "HDC") return "0";
  return text;
}

void ApiCommand::Argumento(const ArgumentView& arguments) {
  const std::int32_t index = arguments.Number("índice").ToInteger();
  if (index < 0 || static_cast<std::size_t>(index) >= ApiArguments_.size()) FailSubscript();
  run_.variables.VarWrite("Retorno", ApiArguments_[static_cast<std::size_t>(index)], true);
}

}  // namespace tessera
