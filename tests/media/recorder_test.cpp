// The recorder and the camera of programs on the terminal, with files in the place of the devices.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "media/recording.h"
#include "support/process.h"
#include "support/temporary_folder.h"

namespace tessera::media {

namespace {

namespace fs = std::filesystem;

std::string Number(std::uint32_t number, std::size_t bytes) {
  std::string text;
  for (std::size_t i = 0; i < bytes; ++i) text += static_cast<char>(number >> (8 * i));
  return text;
}

// A WAV file of 16 bits, as RIFF has it: its header is 44 bytes.
std::string Wave(std::uint32_t rate, std::uint32_t channels, const std::string& samples) {
  const auto size = static_cast<std::uint32_t>(samples.size());
  return "RIFF" + Number(36 + size, 4) + "WAVEfmt " + Number(16, 4) + Number(1, 2) + Number(channels, 2) +
         Number(rate, 4) + Number(rate * channels * 2, 4) + Number(channels * 2, 2) + Number(16, 2) + "data" +
         Number(size, 4) + samples;
}

std::string Frames(std::size_t count, int step) {
  std::string samples;
  for (std::size_t i = 0; i < count; ++i) {
    const auto left = static_cast<std::uint16_t>(i * static_cast<std::size_t>(step));
    samples += Number(left, 2) + Number(static_cast<std::uint16_t>(~left), 2);
  }
  return samples;
}

// A bitmap of 2 by 1 pixels, 24 bits deep.
std::string Bitmap(const std::string& left, const std::string& right) {
  const std::string pixels = left + right + std::string(2, '\0');
  return "BM" + Number(54 + 8, 4) + Number(0, 4) + Number(54, 4) + Number(40, 4) + Number(2, 4) +
         Number(1, 4) + Number(1, 2) + Number(24, 2) + Number(0, 4) + Number(8, 4) + Number(0, 4) +
         Number(0, 4) + Number(0, 4) + Number(0, 4) + pixels;
}

class MediaOnTheTerminal : public testing::Test {
 protected:
  ProcessResult Run(const std::string& program, const std::string& input,
                    const std::vector<std::string>& options = {}) {
    WriteBytes(folder / "Prova.tsc", program);
    ProcessCall call{.words = {TESSERA_TOOL, "run", "--console", "--no-check"}, .input = input};
    call.words.insert(call.words.end(), options.begin(), options.end());
    call.words.push_back(folder / "Prova.tsc");
    return RunProcess(call);
  }
  std::vector<std::string> Stills() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder / "fotos"))
      names.push_back(entry.path().filename().string());
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder folder;
};

constexpr std::size_t kHeader = 44;
constexpr std::size_t kFrame = 4;

}  // namespace

TEST_F(MediaOnTheTerminal, TheRecorderSavesWhatItHeardInTheScriptsTime) {
  const std::string heard = Frames(44'100, 3);
  WriteBytes(folder / "mic.wav", Wave(44'100, 2, heard));
  const ProcessResult result =
      Run("GravaSom \"INICIAR\"\nAguarde Eventos\nGravaSom \"PARAR\"\nAguarde Eventos\nGravaSom \"SALVAR\", "
          "\"um.wav\"\n"
          "GravaSom \"INICIAR\"\nAguarde Eventos\nGravaSom \"INICIAR\"\nAguarde Eventos\nGravaSom "
          "\"salvar\", \"dois.wav\"\n",
          "espera 300\nespera 700\nespera 200\nespera 1500\n", {"--microphone", folder / "mic.wav"});
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.err, "");
  const std::string one = ReadBytes(folder / "um.wav");
  EXPECT_EQ(one, Wave(44'100, 2, heard.substr(0, 13'230 * kFrame)));
  // Begun anew it hears from the file's start, and behind its end silence.
  const std::string two = ReadBytes(folder / "dois.wav");
  EXPECT_EQ(two, Wave(44'100, 2, heard + std::string(22'050 * kFrame, '\0')));
}

TEST_F(MediaOnTheTerminal, AMicrophoneOfAnotherFormatIsHeardInThatOfRecordings) {
  std::string samples;
  for (int i = 0; i < 22'050; ++i) samples += Number(static_cast<std::uint32_t>(i % 1000 * 20), 2);
  WriteBytes(folder / "mic.wav", Wave(22'050, 1, samples));
  Run("GravaSom \"INICIAR\"\nAguarde Eventos\nGravaSom \"SALVAR\", \"um.wav\"\n", "espera 100\n",
      {"--microphone", folder / "mic.wav"});
  const std::string one = ReadBytes(folder / "um.wav");
  ASSERT_EQ(one.size(), kHeader + 4410 * kFrame);
  // Between two samples of the file lies one more, half way.
  EXPECT_EQ(one.substr(kHeader, 4 * kFrame),
            Number(0, 4) + Number(10 * 0x10001, 4) + Number(20 * 0x10001, 4) + Number(30 * 0x10001, 4));
}

TEST_F(MediaOnTheTerminal, WithoutADeviceEachStepOfTheRecorderIsToldTwice) {
  const ProcessResult result = Run(
      "GravaSom \"INICIAR\"\nGravaSom \"PARAR\"\nGravaSom \"SALVAR\", \"um.wav\"\nEscreva \"segue\"\n", "");
  const std::string steps =
      "[caixa] Erro de abertura do arquivo!\n[caixa] Definições não consistentes!\n"
      "[caixa] Erro de inicialização!\n";
  EXPECT_EQ(result.err, steps + steps);
  EXPECT_EQ(result.out, "segue\n");
  EXPECT_FALSE(fs::exists(folder / "um.wav"));
}

TEST_F(MediaOnTheTerminal, ANameWithABlankSavesNothingAndClosesTheDevice) {
  WriteBytes(folder / "mic.wav", Wave(44'100, 2, Frames(100, 1)));
  const ProcessResult result =
      Run("GravaSom \"INICIAR\"\nAguarde Eventos\nGravaSom \"SALVAR\", \"um som.wav\"\nGravaSom \"SALVAR\", "
          "\"b.wav\"\n",
          "espera 100\n", {"--microphone", folder / "mic.wav"});
  EXPECT_EQ(result.err, "");
  EXPECT_FALSE(fs::exists(folder / "um som.wav"));
  EXPECT_FALSE(fs::exists(folder / "b.wav"));
}

TEST_F(MediaOnTheTerminal, ARecordingThatTheDiskRefusesIsTold) {
  WriteBytes(folder / "mic.wav", Wave(44'100, 2, Frames(100, 1)));
  const ProcessResult result =
      Run("GravaSom \"INICIAR\"\nGravaSom \"SALVAR\", \"falta/um.wav\"\nEscreva \"segue\"\n", "",
          {"--microphone", folder / "mic.wav"});
  EXPECT_TRUE(result.err.starts_with("[caixa] A gravação não foi salva: ")) << result.err;
  EXPECT_EQ(result.out, "segue\n");
}

TEST_F(MediaOnTheTerminal, WhatIsNoDeviceIsAWrongCall) {
  WriteBytes(folder / "texto.wav", "nada de som");
  fs::create_directory(folder / "vazia");
  fs::create_symlink("laco", folder / "laco");
  struct Case {
    const char* option;
    const char* file;
    const char* why;
  };
  const Case cases[] = {{"--microphone", "falta.wav", ": o caminho não existe"},
                        {"--microphone", "texto.wav", ": não é um arquivo de som"},
                        {"--camera", "falta", ": o caminho não existe"},
                        {"--camera", "vazia", ": não há ali uma figura"},
                        {"--camera", "laco", ": os atalhos não levam a nenhum arquivo"},
                        {"--camera", "texto.wav", ": não há ali uma figura"}};
  for (const Case& c : cases) {
    const ProcessResult result = Run("Escreva \"nunca\"\n", "", {c.option, folder / c.file});
    EXPECT_EQ(result.status, 2) << c.file;
    EXPECT_EQ(result.out, "");
    EXPECT_NE(result.err.find((folder / c.file) + c.why), std::string::npos) << result.err;
  }
}

TEST_F(MediaOnTheTerminal, TheCameraTakesItsPicturesRoundAndRound) {
  const std::string black(3, '\0');
  const std::string white(3, '\xFF');
  fs::create_directory(folder / "cam");
  WriteBytes(folder / "cam/b.bmp", Bitmap(white, white));
  WriteBytes(folder / "cam/a.bmp", Bitmap(black, black));
  WriteBytes(folder / "cam/aa.txt", "nada");
  const ProcessResult result =
      Run("WebCam CONFIG, 2, 2, 10, 20, 2, \"fotos\\foto\", 90\nWebCam \"inicia\"\nAguarde Eventos\nWebCam "
          "\"PARE\"\n"
          "Aguarde Eventos\n",
          "espera 500\nespera 1000\n", {"--camera", folder / "cam"});
  EXPECT_EQ(result.err, "");
  // The ticks 1, 3 and 5 take a frame each.
  EXPECT_EQ(Stills(), (std::vector<std::string>{"foto00000.jpg", "foto00001.jpg", "foto00002.jpg"}));
  const std::string first = ReadBytes(folder / "fotos/foto00000.jpg");
  EXPECT_TRUE(first.starts_with("\xFF\xD8\xFF"));
  EXPECT_NE(first, ReadBytes(folder / "fotos/foto00001.jpg"));
  EXPECT_EQ(first, ReadBytes(folder / "fotos/foto00002.jpg"));
}

TEST_F(MediaOnTheTerminal, TheCamerasNumbersAndPathMayBeLeftOut) {
  WriteBytes(folder / "a.bmp", Bitmap("abc", "def"));
  const std::vector<std::string> camera = {"--camera", folder / "a.bmp"};
  Run("WebCam \"CONFIG\", 2, 2, 10, 20, 0, \"fotos/f\", 0\nWebCam \"INICIA\"\nAguarde Eventos\n",
      "espera 700\n", camera);
  EXPECT_EQ(Stills().size(), 3u) << "the ticks 1, 4 and 7";
  fs::remove_all(folder / "fotos");
  const ProcessResult shown =
      Run("WebCam \"CONFIG\", 2, 2, 10, 20\nWebCam \"INICIA\"\nAguarde Eventos\nEscreva \"fim\"\n",
          "espera 700\n", camera);
  EXPECT_EQ(shown.out, "fim\n");
  EXPECT_FALSE(fs::exists(folder / "fotos"));
}

TEST_F(MediaOnTheTerminal, AStillThatIsRefusedLeavesItsNumberToTheNext) {
  WriteBytes(folder / "a.bmp", Bitmap("abc", "def"));
  const ProcessResult result =
      Run("WebCam \"CONFIG\", 2, 2, 10, 20, 1, \"fotos\\f\"\nRemovePasta \"fotos\"\nWebCam "
          "\"INICIA\"\nAguarde Eventos\n"
          "CriaPasta \"fotos\"\nAguarde Eventos\n",
          "espera 300\nespera 200\n", {"--camera", folder / "a.bmp"});
  EXPECT_EQ(result.err, "");
  EXPECT_EQ(Stills(), (std::vector<std::string>{"f00000.jpg", "f00001.jpg"}));
}

// The failure comes once, to whoever waits; behind the program's end it is told, and events go on.
TEST_F(MediaOnTheTerminal, ACameraThatWasNotConfiguredFailsOnce) {
  const ProcessResult result =
      Run("Var s String\nWebCam \"INICIA\"\ns = Espera()\nAguarde Eventos\nEscreva \"segue\"\nFimPrograma\n\n"
          "Funcao Espera()\nAguarde Eventos\nRetorne \"x\"\nFimFuncao\n",
          "espera 300\nespera 300\n");
  EXPECT_EQ(result.out, "segue\n");
  EXPECT_TRUE(result.err.starts_with("[critico] ")) << result.err;
  EXPECT_EQ(result.err.find("[critico]"), result.err.rfind("[critico]"));
  const ProcessResult behind =
      Run("Botao B, 1, 1, \"b\"\nWebCam \"INICIA\"\n", "espera 300\nclique B\nfecha\n");
  EXPECT_EQ(behind.status, 1);
  EXPECT_NE(behind.err.find("Divisão por zero"), std::string::npos) << behind.err;
  EXPECT_EQ(behind.err.find("Divisão por zero"), behind.err.rfind("Divisão por zero"));
}

TEST(Recording, EndsAtItsLimitAndKeepsWhatItHas) {
  Recording recording(5);
  const std::vector<SoundFrame> three = {{1, 2}, {3, 4}, {5, 6}};
  EXPECT_TRUE(recording.Append(three));
  EXPECT_FALSE(recording.HasEnded());
  EXPECT_FALSE(recording.Append(three)) << "two of them have room";
  EXPECT_TRUE(recording.HasEnded());
  EXPECT_FALSE(recording.Append(three));
  EXPECT_EQ(recording.Frames(), 5u);
  const std::vector<SoundFrame> all = recording.Read(0, 100);
  ASSERT_EQ(all.size(), 5u);
  EXPECT_EQ(all[4].right, 4);
  EXPECT_TRUE(recording.Read(5, 100).empty());
}

}  // namespace tessera::media
