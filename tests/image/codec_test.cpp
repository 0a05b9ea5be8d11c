#include "image/codec.h"

#include <gtest/gtest.h>

#include <random>

#include "image/key_table.h"
#include "platform/failure.h"
#include "platform/system_clock.h"

namespace tessera {
namespace {

using namespace std::string_literals;

TEST(Codec, HasTheBytesOfItsLayout) {
  // Key 0 begins with 0xF6 0x49: 0x4F + 0xF6 = 0x45, 0x69 + 0x49 = 0xB2, then 255 minus each.
  EXPECT_EQ(EncodeTextWithKey("Oi", 0), "\x03\x00\x00\x00\xFF\xBA\x4D"s);
  EXPECT_EQ(DecodeText("\x03\x00\x00\x00\xFF\xBA\x4D"s), "Oi");
  EXPECT_EQ(EncodeTextWithKey("", 9), "\x01\x00\x00\x00\xF6"s);
}

TEST(Codec, ComplementInvertsItself) {
  EXPECT_EQ(ComplementText("\x00\x01\xFF"s), "\xFF\xFE\x00"s);
  EXPECT_EQ(ComplementText(ComplementText("maçã")), "maçã");
}

TEST(Codec, EveryCharacterAndLengthSurvivesEveryKey) {
  std::string all;
  for (int i = 0; i < 700; ++i) all.push_back(static_cast<char>(i * 7));
  for (int key = 0; key < kKeyCount; ++key) {
    const std::size_t length = kKeyLengths[static_cast<std::size_t>(key)];
    for (const std::size_t plainLength : {std::size_t{0}, std::size_t{1}, length, length + 1, all.size()}) {
      const std::string plain = all.substr(0, plainLength);
      const std::string encoded = EncodeTextWithKey(plain, key);
      ASSERT_EQ(encoded.size(), plain.size() + kEncodedOverhead);
      ASSERT_EQ(DecodeText(encoded), plain) << "key " << key;
    }
    // A key wraps around behind its last character.
    const std::string same(length + 1, 'a');
    const std::string encoded = EncodeTextWithKey(same, key);
    EXPECT_EQ(encoded[kEncodedOverhead], encoded[kEncodedOverhead + length]);
  }
}

TEST(Codec, ChanceChoosesAmongAllKeys) {
  SeededRandom random(3);
  std::array<bool, kKeyCount> seen{};
  for (int i = 0; i < 300; ++i) {
    const std::string encoded = EncodeText("x", random);
    seen.at(255 - static_cast<unsigned char>(encoded[4])) = true;
    EXPECT_EQ(DecodeText(encoded), "x");
  }
  for (const bool used : seen) EXPECT_TRUE(used);
}

TEST(Codec, DamageFailsAtTheKeyNumberAndBehindTheTextsEnd) {
  const auto failure = [](std::string_view encoded) {
    try {
      DecodeText(encoded);
      return 0L;
    } catch (const RunFailure& caught) {
      return caught.number();
    }
  };
  EXPECT_EQ(failure(std::string(40, ' ')), 9) << "blanks name key 223";
  EXPECT_EQ(failure("\x01\x00\x00\x00\xF4"s), 9) << "key 11";
  EXPECT_EQ(failure(""), 9);
  EXPECT_EQ(failure("\x02\x00\x00"s), 9);
  EXPECT_EQ(failure("\x00\x00\x00\x00\xFF"s), 9) << "a count of 0 leaves no key number";
  EXPECT_EQ(DecodeText("\x02\x00\x00\x00\xF5\x9E"s), "a") << "key 10 is empty and changes nothing";
  EXPECT_EQ(failure("\xFF\xFF\xFF\xFF\xFF\xBA\x4D"s), 5) << "a huge count";
  EXPECT_EQ(failure(EncodeTextWithKey("Oi", 3).substr(0, 6)), 5) << "a lost tail";
}

}  // namespace
}  // namespace tessera
