#include <elf.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <cstring>
#include <random>

#include "image/byte_sum.h"
#include "image/codec.h"
#include "image/elf_file.h"
#include "image/image_layout.h"
#include "image/image_reader.h"
#include "image/image_writer.h"
#include "image/mapped_file.h"
#include "image/seal.h"
#include "platform/system_clock.h"

namespace tessera {
namespace {

using namespace std::string_literals;

// "Oi" in key 0.
const std::string kOi = "\x03\x00\x00\x00\xFF\xBA\x4D"s;
// The empty text in key 1.
const std::string kEmpty = "\x01\x00\x00\x00\xFE"s;

std::string ImageOf(std::string_view package) {
  return "\x7F"s + "ELF...INICIOPROGTSJOGO#FIMNOME" + std::string(package) + "FIMPROGTSJOGO";
}

std::optional<ImageProblem> ProblemOf(std::string_view image) {
  const auto read = ReadProgram(image);
  const ImageProblem* problem = std::get_if<ImageProblem>(&read);
  return problem == nullptr ? std::nullopt : std::optional(*problem);
}

PackedProgram MustRead(std::string_view image) {
  return std::get<PackedProgram>(ReadProgram(image));
}

// A generator that always gives the same number.
class FixedRandom final : public Random {
 public:
  explicit FixedRandom(double number) : number_(number) {}
  double Next() override { return number_; }

 private:
  double number_;
};

TEST(ImageReader, ReadsAProgramTypedByHand) {
  const PackedProgram one = MustRead(ImageOf(kOi + "#~^"));
  EXPECT_EQ(one.name, "JOGO");
  EXPECT_EQ(one.EditorText[0], "Oi");
  EXPECT_EQ(one.EditorText[1], "");

  const PackedProgram two = MustRead(ImageOf(kEmpty + "#~^" + kOi + "&~^" + kOi + "#~^"));
  EXPECT_EQ(two.EditorText[0], "");
  EXPECT_EQ(two.EditorName[0], "Oi");
  EXPECT_EQ(two.EditorText[1], "Oi");
}

TEST(ImageReader, IgnoresASeventhFurtherEditor) {
  std::string package = kOi + "#~^";
  for (int i = 1; i <= 7; ++i) package += kOi + "&~^" + kOi + "#~^";
  const PackedProgram program = MustRead(ImageOf(package));
  EXPECT_EQ(program.EditorText[6], "Oi");
  EXPECT_EQ(program.EditorText[7], "");
}

TEST(ImageReader, TellsEachKindOfDamage) {
  const std::string hugeCount = "\xFF\xFF\xFF\x7F\xFF\xBA\x4D"s;
  const std::string key11 = "\x01\x00\x00\x00\xF4"s;
  struct Case {
    const char* what;
    std::string image;
    ImageProblem problem;
  };
  const Case cases[] = {
      {"empty file", "", ImageProblem::NoProgram},
      {"bare runtime", "\x7F"s + "ELF", ImageProblem::NoProgram},
      {"opening without a name", "INICIOPROGTSJOGO", ImageProblem::NoProgram},
      {"name without an opening", "JOGO#FIMNOME", ImageProblem::NoPackage},
      {"opening behind the name", "#FIMNOMEINICIOPROGTSJOGO", ImageProblem::NoPackage},
      {"no end marker", "INICIOPROGTSJOGO#FIMNOME" + kOi + "#~^", ImageProblem::NoPackage},
      {"end marker of another name", "INICIOPROGTSJOGO#FIMNOME" + kOi + "#~^FIMPROGTSX",
       ImageProblem::NoPackage},
      {"end marker in front", "FIMPROGTSJOGO" + ImageOf(kOi + "#~^"), ImageProblem::NoPackage},
      {"name not in upper case", "INICIOPROGTSJogo#FIMNOME" + kOi + "#~^FIMPROGTSJOGO",
       ImageProblem::NoPackage},
      {"no package", ImageOf(""), ImageProblem::CutPackage},
      {"source without its end", ImageOf(kOi), ImageProblem::CutPackage},
      {"editor without its source", ImageOf(kOi + "#~^" + kOi + "&~^"), ImageProblem::CutPackage},
      {"source cut", ImageOf(kOi + "#~^" + kOi + "&~^" + kOi), ImageProblem::CutPackage},
      {"empty field", ImageOf("#~^"), ImageProblem::DamagedField},
      {"field shorter than its head", ImageOf("\x01\x00\x00#~^"s), ImageProblem::DamagedField},
      {"huge count", ImageOf(hugeCount + "#~^"), ImageProblem::DamagedField},
      {"count too small", ImageOf("\x02" + kOi.substr(1) + "#~^"), ImageProblem::DamagedField},
      {"key number above 10", ImageOf(key11 + "#~^"), ImageProblem::DamagedField},
      {"damaged editor name", ImageOf(kOi + "#~^" + key11 + "&~^" + kOi + "#~^"), ImageProblem::DamagedField},
      {"damaged further source", ImageOf(kOi + "#~^" + kOi + "&~^" + hugeCount + "#~^"),
       ImageProblem::DamagedField},
  };
  for (const Case& c : cases) EXPECT_EQ(ProblemOf(c.image), c.problem) << c.what;
}

TEST(ImageReader, FirstMarkersCount) {
  const std::string first = ImageOf(kOi + "#~^");
  EXPECT_EQ(MustRead(first + "INICIOPROGTSZ#FIMNOME" + kEmpty + "#~^FIMPROGTSZ").name, "JOGO");
}

PackedProgram SevenEditors() {
  PackedProgram program;
  program.name = "Jogo";
  std::mt19937 random(5);
  for (std::size_t i = 0; i < kEditors; ++i) {
    for (std::size_t n = 0; n < i * 300; ++n) program.EditorText[i].push_back(static_cast<char>(random()));
    if (i > 0) program.EditorName[i - 1] = "editor " + std::to_string(i);
  }
  program.EditorText[3].clear();  // an editor without text keeps its place
  return program;
}

TEST(ImageWriter, WritesWhatTheReaderReads) {
  SeededRandom random(1);
  const PackedProgram program = SevenEditors();
  for (int i = 0; i < 50; ++i) {
    const PackedProgram read = MustRead("ELF" + *WriteProgramImage(program, random));
    EXPECT_EQ(read.name, "JOGO");
    EXPECT_EQ(read.EditorText, program.EditorText);
    EXPECT_EQ(read.EditorName, program.EditorName);
  }
}

TEST(ImageWriter, APointInTheNameShortensTheMarkersOnly) {
  SeededRandom random(1);
  for (const char* name : {"FOLHA.V2", "A.B", "X.TSC"}) {
    PackedProgram program;
    program.name = name;
    program.EditorText[0] = "Cls";
    const std::string image = *WriteProgramImage(program, random);
    EXPECT_EQ(MustRead(image).name, name);
    EXPECT_EQ(MustRead(image).EditorText[0], "Cls");
  }
  PackedProgram program;
  program.name = "X.TSC";
  EXPECT_TRUE(WriteProgramImage(program, random)->ends_with("FIMPROGTSX"));
}

// The plain text whose encoding in `key` holds `bytes` behind the head.
std::string PlainThatEncodesTo(std::string_view bytes, int key) {
  return DecodeText(EncodeTextWithKey(std::string(bytes.size(), ' '), key).substr(0, kEncodedOverhead) +
                    std::string(bytes));
}

TEST(ImageWriter, TakesAnotherKeyWhereAFieldWouldHoldASeparator) {
  for (const char* forbidden : {"#~^", "&~^", "INICIOPROGTS", "#FIMNOME", "FIMPROGTS"}) {
    PackedProgram program;
    program.name = "JOGO";
    program.EditorText[0] = PlainThatEncodesTo(forbidden, 4);
    ASSERT_NE(EncodeTextWithKey(program.EditorText[0], 4).find(forbidden), std::string::npos);
    FixedRandom always4(0.45);
    const std::string image = *WriteProgramImage(program, always4);
    EXPECT_EQ(MustRead(image).EditorText[0], program.EditorText[0]) << forbidden;
  }
}

TEST(ImageWriter, RefusesATextThatNoKeyCanCarry) {
  PackedProgram program;
  program.name = "JOGO";
  for (int key = 0; key < kKeyCount; ++key) {
    // The separator of each key stands at a place of its own; the filling before it does not matter.
    const std::string filled = EncodeTextWithKey(program.EditorText[0], key).substr(kEncodedOverhead);
    program.EditorText[0] =
        program.EditorText[0] + PlainThatEncodesTo(filled + "#~^", key).substr(program.EditorText[0].size());
  }
  SeededRandom random(1);
  EXPECT_FALSE(WriteProgramImage(program, random));
}

TEST(ImageReader, SurvivesEveryCutAndManyMutations) {
  SeededRandom random(1);
  const std::string image = *WriteProgramImage(SevenEditors(), random);
  for (std::size_t length = 0; length < image.size(); ++length) {
    EXPECT_TRUE(ProblemOf(image.substr(0, length))) << length;
  }
  std::mt19937 chance(9);
  int refused = 0;
  for (int i = 0; i < 5000; ++i) {
    std::string damaged = image;
    for (unsigned n = chance() % 4 + 1; n > 0; --n) {
      const std::size_t at = chance() % damaged.size();
      switch (chance() % 3) {
        case 0:
          damaged[at] = static_cast<char>(chance());
          break;
        case 1:
          damaged.erase(at, chance() % 50);
          break;
        default:
          damaged.insert(at, damaged.substr(chance() % damaged.size(), chance() % 50));
          break;
      }
    }
    if (ProblemOf(damaged)) ++refused;
  }
  EXPECT_GT(refused, 1000);
}

// A program of before, whose package stands behind the last byte, knows every other byte and every cut.
TEST(Seal, OfOlderProgramsTellsEveryFlippedByteAndEveryCut) {
  const std::string seal = "TESSERA#SELO#001\x59\x00\x00\x00\x00\x00\x00\x00\xA5\x2A\x58\xE6"s;
  const std::string whole =
      "\x7F"s + "ELF first" + seal + "lastINICIOPROGTSJOGO#FIMNOME" + kOi + "#~^FIMPROGTSJOGO";
  ASSERT_EQ(CheckSeal(whole), SealState::Whole);
  EXPECT_EQ(MustRead(whole).EditorText[0], "Oi");
  EXPECT_EQ(ProblemOf(whole + "x"), ImageProblem::ChangedFile);
  const std::size_t word = whole.find("TESSERA#SELO");
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (i >= word && i < word + kSealWordLength) continue;  // the copy is then one without a seal
    std::string flipped = whole;
    flipped[i] = static_cast<char>(flipped[i] ^ (1 << i % 8));
    const auto problem = ProblemOf(flipped);
    EXPECT_TRUE(problem == ImageProblem::ChangedFile || problem == ImageProblem::CutFile) << i;
  }
  for (std::size_t length = word + sizeof(SealPlace); length < whole.size(); ++length) {
    EXPECT_EQ(ProblemOf(whole.substr(0, length)), ImageProblem::CutFile) << length;
  }
}

template <typename Record>
std::string BytesOf(const Record& record) {
  return std::string(reinterpret_cast<const char*>(&record), sizeof record);
}

// The smallest executable that has all that matters: two loaded segments, with the blank seal in the first,
// and a table of sections that holds their names alone.
std::string SmallRuntime() {
  const SealPlace blank = BlankSeal();
  const std::string loaded = "first" + std::string(blank.data(), blank.size()) + "last.";
  const std::string names = "\0.shstrtab\0"s;
  Elf64_Ehdr header{};
  std::memcpy(header.e_ident, ELFMAG "\x02\x01\x01", 7);
  header.e_phoff = sizeof header;
  header.e_phentsize = sizeof(Elf64_Phdr);
  header.e_phnum = 2;
  Elf64_Phdr segment{};
  segment.p_type = PT_LOAD;
  segment.p_filesz = sizeof header + 2 * sizeof segment + loaded.size() - 5;
  Elf64_Phdr last = segment;
  last.p_offset = segment.p_filesz;
  last.p_filesz = 5;
  Elf64_Shdr table{};
  table.sh_name = 1;
  table.sh_type = SHT_STRTAB;
  table.sh_offset = last.p_offset + last.p_filesz;
  table.sh_size = names.size();
  header.e_shoff = table.sh_offset + names.size();
  header.e_shentsize = sizeof table;
  header.e_shnum = 2;
  header.e_shstrndx = 1;
  return BytesOf(header) + BytesOf(segment) + BytesOf(last) + loaded + names + BytesOf(Elf64_Shdr{}) +
         BytesOf(table);
}

TEST(Seal, OfAPackageInASectionTellsWhatIsLoadedAndThePackage) {
  const std::string runtime = SmallRuntime();
  EXPECT_EQ(CheckSeal(runtime), SealState::None);
  EXPECT_EQ(ProblemOf(runtime), ImageProblem::NoProgram);
  const std::string image = "INICIOPROGTSJOGO#FIMNOME" + kOi + "#~^FIMPROGTSJOGO";
  const std::string whole = SealedFile(runtime, image);
  ASSERT_EQ(CheckSeal(whole), SealState::Whole);
  EXPECT_EQ(MustRead(whole).EditorText[0], "Oi");
  EXPECT_EQ(MustRead(whole + "what a tool put behind it").EditorText[0], "Oi");
  EXPECT_EQ(elf::FindSection(whole, ".tessera"), image);
  EXPECT_EQ(elf::FindSection(whole, ".tesser"), std::nullopt);
  EXPECT_EQ(MustRead(runtime + image).EditorText[0], "Oi") << "a blank seal forbids nothing";
  EXPECT_EQ(SealedFile("none", image), "none" + image);
  for (const std::size_t more : {0U, 1U, 2U, 3U, 4U, 5U, 6U, 7U}) {
    Elf64_Ehdr header;
    std::memcpy(&header, SealedFile(runtime, image + std::string(more, ' ')).data(), sizeof header);
    EXPECT_EQ(header.e_shoff % alignof(Elf64_Shdr), 0U) << "the table stands where a reader may look at it";
  }

  const std::size_t word = whole.find("TESSERA#SELO");
  const std::size_t package = whole.find("INICIOPROGTS");
  const auto isSummed = [&](std::size_t i) {
    const bool isLoaded = i >= sizeof(Elf64_Ehdr) && i < whole.find("last.") + 5;
    const bool isWord = i >= word && i < word + kSealWordLength;
    return (isLoaded && !isWord) || (i >= package && i < package + image.size());
  };
  for (std::size_t i = 0; i < whole.size(); ++i) {
    if (!isSummed(i)) continue;
    std::string flipped = whole;
    flipped[i] = static_cast<char>(flipped[i] ^ (1 << i % 8));
    const auto problem = ProblemOf(flipped);
    EXPECT_TRUE(problem == ImageProblem::ChangedFile || problem == ImageProblem::CutFile) << i;
  }
  for (std::size_t length = word + sizeof(SealPlace); length < whole.size(); ++length) {
    EXPECT_EQ(ProblemOf(whole.substr(0, length)), ImageProblem::CutFile) << length;
  }
}

TEST(ByteSum, IsTheSameByTableAndByLanes) {
  EXPECT_EQ(~AddToSum(~0U, "123456789"), 0xCBF43926U) << "the check value of CRC-32";
  std::mt19937 random(29);
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes.push_back(static_cast<char>(random()));
  for (std::size_t length = 0; length < 400; ++length) {
    const std::string_view part = std::string_view(bytes).substr(random() % 600, length);
    const auto begin = static_cast<std::uint32_t>(random());
    ASSERT_EQ(AddToSum(begin, part), AddToSumByTable(begin, part)) << length;
  }
}

TEST(ProjectStyle, FirstWordFoundEndsTheScan) {
  const auto scan = [](std::string_view editor0, std::string_view editor1) {
    EditorTexts editors;
    editors[0] = editor0;
    editors[1] = editor1;
    return ScanProjectStyle(editors);
  };
  EXPECT_EQ(scan("' SemBorda", "").ProjectStyleWord, "SemBorda");
  EXPECT_EQ(scan("SemBorda JanelaTransparente", "").ProjectStyleWord, "JanelaTransparente");
  EXPECT_EQ(scan("", "SemBorda").ProjectStyleWord, "SemBorda");
  EXPECT_EQ(scan("semborda", "").ProjectStyleWord, "");
  EXPECT_TRUE(scan("", "API Biblioteca").MessageHookFlag);
  EXPECT_FALSE(scan("SemBorda", "API Biblioteca").MessageHookFlag);
  EXPECT_TRUE(scan("API Biblioteca", "SemBorda").MessageHookFlag);
  EXPECT_EQ(scan("API Biblioteca", "SemBorda").ProjectStyleWord, "");
  EXPECT_FALSE(scan("", "").MessageHookFlag);
}

TEST(MappedFile, ReadsTheRunningExecutableAndRefusesWhatIsNoFile) {
  const int unused = dup(STDERR_FILENO);
  close(unused);
  const auto own = MappedFile::Open(kOwnExecutable);
  ASSERT_TRUE(own);
  EXPECT_EQ(dup(STDERR_FILENO), unused) << "the descriptor is not kept";
  close(unused);
  EXPECT_EQ(own->bytes().substr(1, 3), "ELF");
  EXPECT_FALSE(MappedFile::Open("/nonexistent/file"));
  EXPECT_FALSE(MappedFile::Open("/"));
  const auto empty = MappedFile::Open("/proc/self/comm");  // a file of size 0
  ASSERT_TRUE(empty);
  EXPECT_EQ(empty->bytes(), "");
}

}  // namespace
}  // namespace tessera
