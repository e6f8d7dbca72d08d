#include "foundation/sha256.h"

#include <gtest/gtest.h>

namespace marlowick {
namespace {

struct Vector {
    std::string content;
    const char* hash;
};

// The examples of the standard, and those that its authors publish for lengths around a block.
const Vector kVectors[] = {
    {"", "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855"},
    {"abc", "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad"},
    {"abcdbcdecdefdefgefghfghighijhijkijkljklmklmnlmnomnopnopq",
     "248d6a61d20638b8e5c026930c3e6039a33ce45964ff2167f6ecedd419db06c1"},
    {"abcdefghbcdefghicdefghijdefghijkefghijklfghijklmghijklmnhijklmnoijklmnopjklmnopqklmnopqrlmnop"
     "qrsmnopqrstnopqrstu",
     "cf5b16a778af8380036ce59e7b0492370b249b11e8f07a51afac45037afee9d1"},
    {std::string(1000000, 'a'), "cdc76e5c9914fb9281a1c7e284d73e67f1809a48a497200e046d39ccc7112cd0"},
    {"\xBD", "68325720aabd7c82f30f554b313d0570c95accbb7dc4b5aae11204c08ffe732b"},
    {"\xC9\x8C\x8E\x55", "7abc22c0ae5af26ce93dbb94433a0e0b2e119d014f8e7f65bd56c61ccccd9504"},
    {std::string(55, '\0'), "02779466cdec163811d078815c633f21901413081449002f24aa3e80f0b88ef7"},
    {std::string(56, '\0'), "d4817aa5497628e7c77e6b606107042bbba3130888c5f47a375e6179be789fbb"},
    {std::string(57, '\0'), "65a16cb7861335d5ace3c60718b5052e44660726da4cd13bb745381b235a1785"},
    {std::string(64, '\0'), "f5a5fd42d16a20302798ef6ed309979b43003d2320d9f0e8ea9831a92759fb4b"},
    {std::string(1000, '\0'), "541b3e9daa09b20bf85fa273e5cbd3e80185aa4ec298e765db87742b70138a53"},
    {std::string(1000, 'A'), "c2e686823489ced2017f6059b8b239318b6364f6dcd835d0a519105a1eadd6e4"},
    {std::string(1005, 'U'), "f4d62ddec0f3dd90ea1380fa16a5ff8dc4c54b21740650f24afc4120903552b0"},
};

class Sha256Test : public ::testing::TestWithParam<Sha256Way> {
  protected:
    static std::string hashInPieces(std::string_view content, std::size_t piece) {
        Sha256Stream stream(GetParam());
        while (!content.empty()) {
            stream.add(content.substr(0, piece));
            content.remove_prefix(std::min(piece, content.size()));
        }
        return hexText(stream.finish());
    }
};

TEST_P(Sha256Test, ThePublishedVectors) {
    for (const Vector& vector : kVectors) {
        EXPECT_EQ(hashInPieces(vector.content, vector.content.size()), vector.hash)
            << vector.content.size() << " bytes";
    }
}

TEST_P(Sha256Test, ContentMayComeInPiecesOfAnySize) {
    for (const Vector& vector : kVectors) {
        for (const std::size_t piece : {1, 3, 63, 64, 65, 4096}) {
            EXPECT_EQ(hashInPieces(vector.content, piece), vector.hash)
                << vector.content.size() << " bytes in pieces of " << piece;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(BothWays, Sha256Test,
                         ::testing::Values(Sha256Way::Fastest, Sha256Way::Plain),
                         [](const auto& way) {
                             return way.param == Sha256Way::Fastest ? "Fastest" : "Plain";
                         });

TEST(Sha256TextTest, SixtyFourDigitsOfEitherCaseAreAHash) {
    const std::string text(kVectors[1].hash);
    EXPECT_EQ(hashOfHexText(text), sha256("abc"));
    EXPECT_EQ(hashOfHexText("BA7816BF8F01CFEA414140DE5DAE2223B00361A396177A9CB410FF61F20015AD"),
              sha256("abc"));
    EXPECT_EQ(hashOfHexText(""), std::nullopt);
    EXPECT_EQ(hashOfHexText(text.substr(1)), std::nullopt);
    EXPECT_EQ(hashOfHexText(text + "0"), std::nullopt);
    for (const char wrong : {'g', 'G', '/', ':', '@', '`', ' ', '\0'}) {
        std::string changed = text;
        changed[63] = wrong;
        EXPECT_EQ(hashOfHexText(changed), std::nullopt) << wrong;
        changed = text;
        changed[0] = wrong;
        EXPECT_EQ(hashOfHexText(changed), std::nullopt) << wrong;
    }
}

}  // namespace
}  // namespace marlowick
