#include "fuzz/targets.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "commands/package_file.h"
#include "commands/side_file.h"
#include "console/console_host.h"
#include "console/event_script.h"
#include "controls/rtf.h"
#include "image/codec.h"
#include "image/image_reader.h"
#include "image/seal.h"
#include "platform/failure.h"
#include "platform/process_end.h"
#include "platform/registry_file.h"
#include "platform/system_files.h"
#include "prepare/block_report.h"
#include "prepare/linking.h"
#include "recorddb/tsa_reader.h"
#include "recorddb/tsa_repair.h"
#include "support/core_program.h"
#include "support/hosted_program.h"
#include "support/pe_file.h"
#include "support/temporary_folder.h"
#include "system/icon_changer.h"
#include "text/format.h"
#include "values/conditions.h"
#include "values/eval.h"
#include "windows/picture_file.h"

namespace tessera::fuzz {

namespace {

// What must hold for every input.
void Require(bool holds) {
  if (!holds) std::abort();
}

// A file with the bytes, for readers that read files.
class OneFile {
 public:
  explicit OneFile(std::string_view bytes) { folder_.Write("f", bytes); }
  std::string path() const { return folder_ / "f"; }
  std::string other() const { return folder_ / "g"; }

 private:
  TemporaryFolder folder_;
};

void Image(std::string_view bytes) {
  CheckSeal(bytes);
  ReadProgram(bytes);
  SplitPackage(bytes);
}

void Codec(std::string_view bytes) {
  const auto plain = TryDecodeText(bytes);
  Require(plain.has_value() == IsDecodable(bytes));
  for (int key = 0; key < kKeyCount; ++key) Require(DecodeText(EncodeTextWithKey(bytes, key)) == bytes);
}

// Editors are parted by a zero byte.
void Prepare(std::string_view bytes) {
  EditorTexts editors;
  for (std::size_t i = 0; i < kEditors && !bytes.empty(); ++i) {
    editors[i] = bytes.substr(0, bytes.find('\0'));
    bytes.remove_prefix(std::min(bytes.size(), editors[i].size() + 1));
  }
  const PreparedProgram program = PrepareProgram(editors, [](std::string_view) {});
  const RoutineTables& routines = program.routines;
  Require(routines.TimerNames.size() == routines.TimerIntervals.size());
  Require(routines.FunctionNames.size() == routines.FunctionTypes.size());
  const std::string_view text = program.ProgramText->text();
  Require(CheckBlocks(text).empty() == ReportBlocks(text).empty());
}

// A core program with some variables, in which texts are evaluated.
class Evaluated {
 public:
  Evaluated() {
    program_.Run(
        "Var n Inteiro, t String, d Decimal, v(3) Inteiro, s(3) String\nn = 7\nt = \"tres\"\nd = 1.5");
    program_.run.RunningFlag = true;
  }
  template <typename Evaluate>
  void Do(Evaluate evaluate) {
    Guard([&] { evaluate(program_.run); });
  }

 private:
  test::CoreProgram program_;
};

void Evaluators(std::string_view bytes) {
  Evaluated evaluated;
  evaluated.Do([&](Run& run) { EvalNumber(run, bytes); });
  evaluated.Do([&](Run& run) { EvalText(run, bytes); });
  evaluated.Do([&](Run& run) { SplitArguments(run, bytes, 11); });
}

void Conditions(std::string_view bytes) {
  Evaluated evaluated;
  evaluated.Do([&](Run& run) { EvaluateCondition(run, SplitCondition(bytes)); });
}

// The value stands before the first line feed.
void Format(std::string_view bytes) {
  const std::size_t end = bytes.find('\n');
  if (end != std::string_view::npos) FormatText(bytes.substr(0, end), bytes.substr(end + 1));
}

void Rtf(std::string_view bytes) {
  const StyledText text = ReadRtf(bytes, {});
  Require(ReadRtf(WriteRtf(text), {}).Text() == text.Text());
}

void Pictures(std::string_view bytes) {
  DecodePicture(test::TestCodec(), bytes);
}

// Each frame forwards, and back to the first one.
void Animations(std::string_view bytes) {
  const AnimationRef animation = DecodeAnimation(test::TestCodec(), bytes);
  if (animation == nullptr || animation->size.width * std::int64_t{animation->size.height} > 4'000'000)
    return;
  Film film(animation);
  const std::size_t frames = std::min<std::size_t>(animation->frames.size(), 50);
  for (std::size_t frame = 0; frame < frames; ++frame) film.Show(frame);
  film.Show(0);
  Require(film.Seen().size() == animation->size);
}

void Registry(std::string_view bytes) {
  const OneFile file(bytes);
  SystemFiles files;
  const RegistryFile registry(files, file.path());
  registry.Read("HKEY_USERS", "k", "n");
  Require(registry.Write("HKEY_USERS", "k", "n", "v") && registry.Read("HKEY_USERS", "k", "n") == "v");
}

void Records(std::string_view bytes) {
  SystemFiles files;
  const OneFile file(bytes);
  Guard([&] {
    const auto opened = BinaryFile::Open(files, file.path());
    const auto header = ReadTsaHeader(*opened);
    if (const auto* whole = std::get_if<TsaHeader>(&header); whole != nullptr && whole->count < 10'000) {
      const TsaFindings findings = ExamineTsa(*opened, *whole);
      test::FixedRandom random;
      RepairTsa(*opened, *whole, findings, random);
      const auto mended = ReadTsaHeader(*opened);
      Require(!ExamineTsa(*opened, std::get<TsaHeader>(mended)).NeedsRepair());
    }
  });
}

void Package(std::string_view bytes) {
  const OneFile file(bytes);
  SystemFiles files;
  Guard([&] { ExtractFromPackage(files, "a", file.other(), file.path()); });
  Guard([&] { InsertIntoPackage(files, "b", file.path(), file.path() + "p"); });
  Guard([&] { InsertIntoPackage(files, "b", __FILE__, file.path()); });
}

void Side(std::string_view bytes) {
  const OneFile file(bytes);
  SystemFiles files;
  SideFile side(files);
  side.LeString(file.path(), "a");
  side.SalvaString(file.path(), "b", "valor");
  SideFile again(files);
  again.LeString(file.path(), "b");
}

// A host whose program ends after some breaths and some yields.
class ShortLife final : public EventDispatch {
 public:
  explicit ShortLife(EventDispatch& host) : host_(host) {}
  void ProcessEvents() override { Live(), host_.ProcessEvents(); }
  bool AwaitEvents(std::chrono::milliseconds) override { return Live(), host_.AwaitEvents({}); }
  bool AwaitNextEvents() override { return Live(), host_.AwaitNextEvents(); }
  void Pause(std::chrono::milliseconds) override { Live(); }
  void ShowDrawn() override { Live(); }
  void Post(std::function<void()> act) override { host_.Post(std::move(act)); }
  std::chrono::milliseconds DispatchTime() override { return host_.DispatchTime(); }
  std::unique_ptr<Timer> StartTimer(std::chrono::milliseconds interval, std::function<void()> tick) override {
    return host_.StartTimer(interval, std::move(tick));
  }

 private:
  void Live() {
    if (++age_ > 100) throw ProcessEnd{};
  }
  EventDispatch& host_;
  int age_ = 0;
};

// Words at random must start, remove and write nothing.
void KeepFromTheMachine(Run& run) {
  run.doors.CommandCall = [real = run.doors.CommandCall](std::string_view name,
                                                         const ArgumentText& arguments) {
    constexpr std::array<std::string_view, 17> kWords = {
        "CHAME",       "REMOVEARQUIVO",   "REMOVEPASTA",   "CRIAPASTA",   "COPIA",     "EXTRAIARQUIVO",
        "ABREARQUIVO", "INSEREARQUIVO",   "SALVASTRING",   "LIMPABD",     "ABREBD",    "PROCUREARQUIVO",
        "MUDAPAPEL",   "ADICIONESISTEMA", "REMOVESISTEMA", "SALVAREGWIN", "ENVIAPORTA"};
    const bool isKept = std::find(kWords.begin(), kWords.end(), Upper(name)) != kWords.end();
    return isKept ? Value() : real(name, arguments);
  };
  run.doors.RunDatabaseBlock = [](std::string_view, Position, Position, std::int32_t) { return 0; };
}

// A program, its routines and its event script, parted by zero bytes.
void Program(std::string_view bytes) {
  std::array<std::string, 3> parts;
  for (std::string& part : parts) {
    part = bytes.substr(0, bytes.find('\0'));
    bytes.remove_prefix(std::min(bytes.size(), part.size() + 1));
  }
  std::istringstream in(parts[2]);
  std::ostringstream out, err;
  ConsoleHost host({in, out, err}, {});
  ShortLife life(host);
  Host parties = host.host();
  test::HostedProgram program({parties.dialogs, life, parties.clock, parties.random, parties.files}, host);
  KeepFromTheMachine(program.run);
  EditorTexts editors;
  editors[0] = parts[0];
  editors[1] = parts[1];
  try {
    program.Start(editors);
    host.ServeEvents();
  } catch (const ProcessEnd&) {
  }
}

// An event line on a window with an object of each kind that takes one.
void Script(std::string_view bytes) {
  const std::string source =
      "Botao B, 1, 1\nTexto T, 3, 1, 20\nMascara M, \"##/##\", 5, 1\nMoeda D, 7, 1\nCombo C, 9, 1\n"
      "Combo C.Adiciona \"um\"\nCalendario K, 11, 1\nCheck H, 13, 1, \"x\"\nOpcao O, 15, 1, \"y\"\n"
      "BarraRolagem R, 9, 17, 1, 1, 20\nBox G, 19, 1, 6\nBox G.Titulo, \"a\", 9\nBox G.Ativa\nBox G.Add 1\n"
      "Box G.New\nBox G.Fim\nEnquanto 1 = 1\nAguarde Eventos\nRepita\n";
  Program(source + std::string(2, '\0') + std::string(bytes));
}

// A change stays inside of the executable, the second one too.
void Change(std::string executable, std::string_view icon) {
  const auto image = ReadFirstIcon(icon);
  if (!image) return;
  for (int i = 0; i < 2; ++i) {
    const auto plan = PlanIconChange(executable, *image);
    const auto* patches = std::get_if<std::vector<Patch>>(&plan);
    if (patches == nullptr) return;
    for (const Patch& patch : *patches) {
      Require(patch.offset <= executable.size() && patch.bytes.size() <= executable.size() - patch.offset);
      executable.replace(patch.offset, patch.bytes.size(), patch.bytes);
    }
  }
}

void Executable(std::string_view bytes) {
  Change(std::string(bytes), test::MakeIco({"imagem"}));
}

void Icon(std::string_view bytes) {
  Change(test::MakePe({}).bytes, bytes);
}

}  // namespace

const std::array<Target, 17> kTargets = {{{"image", Image},
                                          {"codec", Codec},
                                          {"prepare", Prepare},
                                          {"evaluators", Evaluators},
                                          {"conditions", Conditions},
                                          {"format", Format},
                                          {"rtf", Rtf},
                                          {"animations", Animations},
                                          {"pictures", Pictures},
                                          {"registry", Registry},
                                          {"records", Records},
                                          {"package", Package},
                                          {"side", Side},
                                          {"script", Script},
                                          {"program", Program},
                                          {"executable", Executable},
                                          {"icon", Icon}}};

}  // namespace tessera::fuzz
