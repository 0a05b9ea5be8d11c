#include "support/core_program.h"

#include <cstdlib>

#include "platform/failure.h"
#include "text/code_page.h"
#include "text/one_based.h"
#include "values/eval.h"

namespace tessera::test {

BoxAnswer RecordedBoxes::ShowBox(const Box& box) {
  boxes.push_back(box);
  if (meanwhile) meanwhile();
  return answer;
}

std::string FromSource(std::string_view utf8) {
  std::string text;
  const std::string source = std::get<std::string>(FromUtf8(utf8));
  for (const char c : source) {
    if (c == '\n') text.push_back('\r');
    text.push_back(c);
  }
  return text;
}

ProgramStart StartOf(const std::filesystem::path& folder, std::string commandLine) {
  ProgramStart start;
  start.program.name = "TESTE";
  start.folder = folder;
  start.commandLine = std::move(commandLine);
  return start;
}

Services TestServices(const Host& host) {
  return {.host = host,
          .folders = FindUserFolders(std::getenv),
          .dataFolder = ".",
          .machine = {.registry = RegistryFile(host.files, "/dev/null/registro"),
                      .startList = StartList(host.files, "/dev/null/autostart"),
                      .ports = HardwarePorts("/dev/null/port")},
          .findCodec = CodecOfPart({TESSERA_PARTS})};
}

PictureCodec& TestCodec() {
  static PictureCodec& codec = *CodecOfPart({TESSERA_PARTS})().codec;
  return codec;
}

namespace {

Services Changed(Services services, const std::function<void(Services&)>& change) {
  change(services);
  return services;
}

}  // namespace

void AtWord(Run& run, std::string_view word, std::function<Value(std::string_view arguments)> act) {
  run.doors.CommandCall = [word = std::string(word), act = std::move(act), otherwise = run.doors.CommandCall](
                              std::string_view name, const ArgumentText& arguments) {
    return EqualsIgnoringCase(name, word) ? act(arguments.text) : otherwise(name, arguments);
  };
}

CoreProgram::CoreProgram(const std::function<void(Services&)>& change)
    : program_(StartOf(".", ""), Changed(TestServices({dialogs, events, clock, random, files}), change)) {
  run.RunningFlag = true;
  AtWord(run, "Escreva", [this](std::string_view arguments) {
    for (const std::string& part : SplitArguments(run, arguments, 101)) {
      if (part.empty()) break;
      output_ += EvalNumber(run, part).ToText();
    }
    output_ += '\n';
    return Value();
  });
}

std::string CoreProgram::Run(std::string_view editor0, const std::vector<std::string_view>& furtherEditors) {
  EditorTexts editors;
  editors[0] = FromSource(editor0);
  for (std::size_t i = 0; i < furtherEditors.size(); ++i) editors[i + 1] = FromSource(furtherEditors[i]);
  output_.clear();
  const auto failure = Guard([&] { program_.Start(editors, {}); });
  if (failure) output_ += "falha " + std::to_string(failure->number()) + "\n";
  return ToUtf8(output_);
}

std::vector<std::string> CoreProgram::Boxes() const {
  std::vector<std::string> texts;
  for (const Box& box : dialogs.boxes) texts.push_back(ToUtf8(Replace(box.text, '\r', '|')));
  return texts;
}

std::string Output(std::string_view source) {
  return CoreProgram().Run(source);
}

}  // namespace tessera::test
