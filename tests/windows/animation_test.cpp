#include "windows/animation.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include "support/console_window.h"
#include "support/temporary_folder.h"
#include "windows/picture_file.h"
#include "windows/transicao.h"

namespace tessera::test {

namespace {

using namespace std::string_literals;
using std::chrono::milliseconds;

constexpr Pixel kRed = 0xFFFF0000;
constexpr Pixel kGreen = 0xFF00FF00;
constexpr Pixel kBlue = 0xFF0000FF;
constexpr Pixel kWhite = 0xFFFFFFFF;

// Two by two pixels; red, green, blue and white; repeated twice.
const std::string kScreen =
    "GIF89a\x02\0\x02\0\xF1\0\0\xFF\0\0\0\xFF\0\0\0\xFF\xFF\xFF\xFF"
    "!\xFF\x0BNETSCAPE2.0\x03\x01\x02\0\0"s;
// Red above green, 50 ms, stays.
const std::string kFirst = "!\xF9\x04\x04\x05\0\0\0,\0\0\0\0\x02\0\x02\0\0\x02\x03\x04\x98\x14\0"s;
// Blue above nothing at the right, 200 ms, cleared.
const std::string kSecond = "!\xF9\x04\x09\x14\0\x03\0,\x01\0\0\0\x01\0\x02\0\0\x02\x02\xD4\x0A\0"s;
// White and nothing below, no time told, what was there comes back.
const std::string kThird = "!\xF9\x04\x0D\0\0\0\0,\0\0\x01\0\x02\0\x01\0\0\x02\x02\x1C\x0A\0"s;
// A green pixel at the upper left, 70 ms.
const std::string kFourth = "!\xF9\x04\x05\x07\0\0\0,\0\0\0\0\x01\0\x01\0\0\x02\x02\x4C\x01\0"s;
const std::string kFour = kScreen + kFirst + kSecond + kThird + kFourth + ";";

using Pixels = std::array<Pixel, 4>;

Pixels SeenIn(const Film& film) {
  return {film.Seen().At(0, 0), film.Seen().At(1, 0), film.Seen().At(0, 1), film.Seen().At(1, 1)};
}

class AnimationProgram : public ConsoleWindowTest {};

}  // namespace

TEST(Animation, FramesTellTheirTimesAndTheFileHowOftenItIsShown) {
  const AnimationRef animation = DecodeAnimation(TestCodec(), kFour);
  ASSERT_NE(animation, nullptr);
  ASSERT_EQ(animation->frames.size(), 4U);
  EXPECT_EQ(animation->size, (Size{2, 2}));
  EXPECT_EQ(animation->plays, 3);
  EXPECT_EQ(animation->frames[0].time, milliseconds(50));
  EXPECT_EQ(animation->frames[1].time, milliseconds(200));
  EXPECT_EQ(animation->frames[2].time, kUntoldFrameTime);
  EXPECT_EQ(animation->frames[3].time, milliseconds(70));
}

TEST(Animation, WhatBecomesOfAFrameIsThatFramesOwn) {
  Film film(DecodeAnimation(TestCodec(), kFour));
  const Pixels frames[] = {{kRed, kRed, kGreen, kGreen},
                           {kRed, kBlue, kGreen, kGreen},
                           {kRed, 0, kWhite, 0},
                           {kGreen, 0, kGreen, 0}};
  for (const std::size_t frame : {0U, 1U, 2U, 3U, 1U, 3U, 0U, 2U}) {
    film.Show(frame);
    EXPECT_EQ(SeenIn(film), frames[frame]) << frame;
  }
}

TEST(Animation, ADamagedFileShowsTheFramesBeforeTheDamage) {
  const std::string whole = kScreen + kFirst + kSecond;
  const AnimationRef cut = DecodeAnimation(TestCodec(), whole + kThird.substr(0, 14));
  ASSERT_NE(cut, nullptr);
  EXPECT_EQ(cut->frames.size(), 2U);
  EXPECT_EQ(DecodeAnimation(TestCodec(), whole)->frames.size(), 2U) << "the end alone is missing";
  EXPECT_EQ(DecodeAnimation(TestCodec(), kScreen), nullptr) << "no frame";
  EXPECT_EQ(DecodeAnimation(TestCodec(), kScreen.substr(0, 9)), nullptr);
  for (std::size_t length = 0; length < kFour.size(); ++length)
    DecodeAnimation(TestCodec(), kFour.substr(0, length));
}

TEST(Animation, AFileThatClaimsMoreThanAScreenCouldShowIsDamaged) {
  std::string large = kFour;
  large.replace(6, 4, std::string("\0\xFF\0\xFF", 4));
  EXPECT_EQ(DecodeAnimation(TestCodec(), large), nullptr) << "the screen";
  std::string frame = kFirst;
  frame.replace(13, 4, "\xFF\xFF\xFF\xFF");
  EXPECT_EQ(DecodeAnimation(TestCodec(), kScreen + frame + ";"), nullptr) << "a frame";
}

TEST(Transicao, BlendsExactlyAtBothEndsWhereTheSecondPictureReaches) {
  Picture first{.raster = Raster(Size{2, 1})};
  first.raster.Set(0, 0, 0xFF0A141E);
  first.raster.Set(1, 0, kRed);
  Picture second{.raster = Raster(Size{1, 2})};
  second.raster.Set(0, 0, 0xFFC8FF00);
  EXPECT_EQ(AlphaBlend(first, second, 0)->raster.At(0, 0), 0xFF0A141EU);
  EXPECT_EQ(AlphaBlend(first, second, 255)->raster.At(0, 0), 0xFFC8FF00U);
  EXPECT_EQ(AlphaBlend(first, second, 128)->raster.At(0, 0), 0xFF698A0FU);
  EXPECT_EQ(AlphaBlend(first, second, 255)->raster.At(1, 0), kRed);
  EXPECT_EQ(AlphaBlend(first, second, 255)->size(), (Size{2, 1}));
}

TEST_F(AnimationProgram, ATransitionIsDrawnAtItsPlace) {
  TemporaryFolder folder;
  folder.Write("um.gif", kScreen + kFirst + ";");
  folder.Write("dois.gif", kScreen + kFirst + kFourth + ";");
  Draw("Transicao \"FIGURAINICIAL\", \"" + (folder / "um.gif") + "\"\nTransicao \"FIGURAFINAL\", \"" +
       (folder / "dois.gif") + "\"\nTransicao \"POSICAO\", 2, 3.5\nTransicao \"VALOR\", 999\n");
  EXPECT_EQ(At(28, 28), At(29, 28));
  EXPECT_NE(At(28, 28), At(27, 28));
  EXPECT_NE(At(28, 28), At(28, 27));
}

TEST_F(AnimationProgram, TwoObjectsOfOnePictureShareItsPixels) {
  TemporaryFolder folder;
  folder.Write("a.gif", kFour);
  folder.Write("copia.gif", kFour);
  SharedPictures& pictures = Windows().pictures;
  const PictureRef one = pictures.OfFile(folder / "a.gif");
  ASSERT_NE(one, nullptr);
  EXPECT_EQ(pictures.OfFile(folder / "copia.gif"), one);
  EXPECT_EQ(pictures.Keyed(one), pictures.Keyed(one));
  EXPECT_EQ(pictures.AnimationOfFile(folder / "a.gif"),
            AnimationRef(pictures.AnimationOfFile(folder / "copia.gif")));
  // A file that was written anew is another picture, and so is a source at an old one's address.
  folder.Write("a.gif", kScreen + kFourth + ";");
  EXPECT_NE(pictures.OfFile(folder / "a.gif"), one);
  folder.Write("a.gif", "nada");
  EXPECT_TRUE(Guard([&] { pictures.OfFile(folder / "a.gif"); }).has_value());
}

TEST_F(AnimationProgram, ADiskThatRefusesTheSavingAbandonsTheRun) {
  TemporaryFolder folder;
  folder.Write("pasta.bmp/dentro", "x");
  EXPECT_EQ(program.Start("Imagem P, \"\", 0, 0, 1, 1\nImagem P.SalvaFigura, \"" + (folder / "pasta.bmp") +
                          "\"\nEscreva \"nunca\""),
            RunOutcome::Abandoned);
  EXPECT_EQ(Printed(), "");
  EXPECT_TRUE(folder.Has("pasta.bmp/dentro"));
}

}  // namespace tessera::test
