#include "mesh/float_text.h"

#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <limits>
#include <random>
#include <string>
#include <vector>

namespace marlowick {
namespace {

float fromBits(std::uint32_t bits) {
    return std::bit_cast<float>(bits);
}

constexpr std::uint32_t kSignBit = 0x80000000U;

struct BitsRow {
    std::uint32_t bits;
    const char* written;
};

// Both signs of each row.
void expectRows(const std::vector<BitsRow>& rows) {
    for (const BitsRow& row : rows) {
        const std::string written = row.written;
        EXPECT_EQ(floatText(fromBits(row.bits)), written) << std::hex << row.bits;
        EXPECT_EQ(floatText(fromBits(row.bits | kSignBit)), "-" + written) << std::hex << row.bits;
    }
}

struct ValueRow {
    float value;
    const char* sevenDigits;
    const char* written;
};

TEST(FloatText, WorkedValues) {
    const ValueRow rows[] = {
        {0.0F, "0", "0.0"},
        {1.0F, "1", "1"},
        {-1.0F, "-1", "-1"},
        {2.0F, "2", "2.0"},
        {0.5F, "0.5", "0.5"},
        {-0.25F, "-0.25", "-0.25"},
        {1234567.0F, "1234567", "1234567.0"},
        {0.1234567F, "0.1234567", "0.1234567"},
        {0.01234567F, "1.234567E-02", "0.01234567"},
        {0.001234567F, "1.234567E-03", "0.001234567"},
        {0.0001234567F, "1.234567E-04", "0.000123457"},
        {0.00001234567F, "1.234567E-05", "1.234567e-005"},
        {-0.000000123F, "-1.23E-07", "-1.23e-007"},
        {0.00001F, "0.00001", "0.00001"},
        {0.000015F, "0.000015", "0.000015"},
        {0.00015F, "0.00015", "0.00015"},
        {0.00000123F, "1.23E-06", "1.23e-006"},
        {0.0000001F, "0.0000001", "0.0000001"},
        {0.00000001F, "1E-08", "1e-008"},
    };
    for (const ValueRow& row : rows) {
        EXPECT_EQ(sevenDigitText(row.value), row.sevenDigits);
        EXPECT_EQ(floatText(row.value), row.written);
    }
}

TEST(FloatText, SevenDigitsAreRoundedHalfAwayFromZero) {
    const ValueRow rows[] = {
        {1.5078125F, "1.507813", "1.507813"},        {-1.5078125F, "-1.507813", "-1.507813"},
        {1.5234375F, "1.523438", "1.523438"},        {4194304.5F, "4194305", "4194305.0"},
        {-4194304.5F, "-4194305", "-4194305.0"},     {4194305.5F, "4194306", "4194306.0"},
        {16777216.0F, "1.677722E+07", "16777220.0"}, {10000005.0F, "1.000001E+07", "10000010.0"},
        {10000004.0F, "1E+07", "10000000.0"},        {9999999.0F, "9999999", "9999999.0"},
    };
    for (const ValueRow& row : rows) {
        EXPECT_EQ(sevenDigitText(row.value), row.sevenDigits);
        EXPECT_EQ(floatText(row.value), row.written);
    }
}

// Seven digits at an exponent of -4 reach to the tenth decimal.
TEST(FloatText, TheTenthDecimalIsRoundedAwayOnTheSevenDigits) {
    EXPECT_EQ(floatText(fromBits(0x38D1BBA3)), "0.000100009");  // 0.00010000847...
    EXPECT_EQ(sevenDigitText(fromBits(0x38D1BBA3)), "1.000085E-04");
    EXPECT_EQ(sevenDigitText(fromBits(0x3A83126E)), "9.999999E-04");
    EXPECT_EQ(floatText(fromBits(0x3A83126E)), "0.001");
    EXPECT_EQ(floatText(fromBits(0x3A83126E | kSignBit)), "-0.001");
}

// The two texts in the middle belong to no float: a float of two digits has a plain form there.
TEST(FloatText, AnExponentOfFourOrLessGoesBackToDecimals) {
    EXPECT_EQ(textFromSevenDigits("1.5E-02"), "0.015");
    EXPECT_EQ(textFromSevenDigits("-1.5E-03"), "-0.0015");
    EXPECT_EQ(textFromSevenDigits("1.5E-04"), "0.00015");
    EXPECT_EQ(textFromSevenDigits("1.5E-05"), "1.5e-005");
    EXPECT_EQ(textFromSevenDigits("-1.5E-05"), "-1.5e-005");
    EXPECT_EQ(textFromSevenDigits("1.401298E-45"), "1.401298e-045");
}

TEST(FloatText, ALargeScientificTextIsWrittenWithAllItsDigits) {
    EXPECT_EQ(sevenDigitText(1E10F), "1E+10");
    EXPECT_EQ(textFromSevenDigits("1E+10"), "10000000000.0");
    EXPECT_EQ(floatText(1E10F), "10000000000.0");
    EXPECT_EQ(sevenDigitText(-1E10F), "-1E+10");
    EXPECT_EQ(floatText(-1E10F), "-10000000000.0");
    EXPECT_EQ(floatText(std::numeric_limits<float>::max()),
              "340282300000000000000000000000000000000.0");
    EXPECT_EQ(floatText(std::numeric_limits<float>::lowest()),
              "-340282300000000000000000000000000000000.0");
}

TEST(FloatText, OneIsBareAlsoWhereOnlyTheEighthDigitDiffers) {
    EXPECT_EQ(floatText(0.9999999F), "0.9999999");
    EXPECT_EQ(floatText(1.00000001F), "1");
    EXPECT_EQ(floatText(fromBits(0x3F800001)), "1");         // 1.00000012
    EXPECT_EQ(floatText(fromBits(0x3F800004)), "1");         // 1.00000048
    EXPECT_EQ(floatText(fromBits(0x3F800005)), "1.000001");  // 1.00000060
    EXPECT_EQ(floatText(fromBits(0xBF800001)), "-1");
    EXPECT_EQ(floatText(fromBits(0xBF800004)), "-1");
    EXPECT_EQ(floatText(fromBits(0xBF800005)), "-1.000001");
    EXPECT_EQ(floatText(fromBits(0x3F7FFFFF)), "0.9999999");  // 0.99999994
}

TEST(FloatText, AnExponentTextIsNeverBare) {
    EXPECT_EQ(floatText(1E-9F), "1e-009");
    EXPECT_EQ(floatText(-1E-9F), "-1e-009");
    // No float has this text; the tests for 1 and -1 belong to the plain texts alone.
    EXPECT_EQ(textFromSevenDigits("1E-00"), "1.0");
    EXPECT_EQ(textFromSevenDigits("-1E-00"), "-1.0");
}

TEST(FloatText, WhatIsNoOrdinaryNumberReadsTheSameEverywhere) {
    EXPECT_EQ(floatText(-0.0F), "0.0");
    EXPECT_EQ(floatText(fromBits(0x7F800000)), "inf");
    EXPECT_EQ(floatText(fromBits(0xFF800000)), "-inf");
    for (const std::uint32_t bits : {0x7F800001U, 0x7FC00000U, 0xFFC00000U, 0xFFFFFFFFU}) {
        EXPECT_EQ(floatText(fromBits(bits)), "nan") << std::hex << bits;
    }
}

TEST(FloatText, DenormalsHaveTheirOwnDigits) {
    expectRows({{0x00000001, "1.401298e-045"},
                {0x00000002, "2.802597e-045"},
                {0x00000003, "4.203895e-045"},
                {0x007FFFFF, "1.175494e-038"},
                {0x00800000, "1.175494e-038"}});
}

// The floats nearest to 1E-45, 1E-44 and so on up to 1E+38.
TEST(FloatText, PowersOfTenAtEveryExponent) {
    expectRows({
        {0x00000001, "1.401298e-045"},
        {0x00000007, "9.809089e-045"},
        {0x00000047, "9.949219e-044"},
        {0x000002CA, "1.000527e-042"},
        {0x00001BE0, "9.999666e-042"},
        {0x000116C2, "9.999946e-041"},
        {0x000AE398, "1e-039"},
        {0x006CE3EE, "9.999999e-039"},
        {0x02081CEA, "1e-037"},
        {0x03AA2425, "1e-036"},
        {0x0554AD2E, "1e-035"},
        {0x0704EC3D, "1e-034"},
        {0x08A6274C, "1e-033"},
        {0x0A4FB11F, "1e-032"},
        {0x0C01CEB3, "1e-031"},
        {0x0DA24260, "1e-030"},
        {0x0F4AD2F8, "1e-029"},
        {0x10FD87B6, "1e-028"},
        {0x129E74D2, "1e-027"},
        {0x14461206, "1e-026"},
        {0x15F79688, "1e-025"},
        {0x179ABE15, "1e-024"},
        {0x19416D9A, "1e-023"},
        {0x1AF1C901, "1e-022"},
        {0x1C971DA0, "1e-021"},
        {0x1E3CE508, "1e-020"},
        {0x1FEC1E4A, "1e-019"},
        {0x219392EF, "1e-018"},
        {0x233877AA, "1e-017"},
        {0x24E69595, "1e-016"},
        {0x26901D7D, "1e-015"},
        {0x283424DC, "1e-014"},
        {0x29E12E13, "1e-013"},
        {0x2B8CBCCC, "1e-012"},
        {0x2D2FEBFF, "1e-011"},
        {0x2EDBE6FF, "1e-010"},
        {0x3089705F, "1e-009"},
        {0x322BCC77, "1e-008"},
        {0x33D6BF95, "0.0000001"},
        {0x358637BD, "0.000001"},
        {0x3727C5AC, "0.00001"},
        {0x38D1B717, "0.0001"},
        {0x3A83126F, "0.001"},
        {0x3C23D70A, "0.01"},
        {0x3DCCCCCD, "0.1"},
        {0x3F800000, "1"},
        {0x41200000, "10.0"},
        {0x42C80000, "100.0"},
        {0x447A0000, "1000.0"},
        {0x461C4000, "10000.0"},
        {0x47C35000, "100000.0"},
        {0x49742400, "1000000.0"},
        {0x4B189680, "10000000.0"},
        {0x4CBEBC20, "100000000.0"},
        {0x4E6E6B28, "1000000000.0"},
        {0x501502F9, "10000000000.0"},
        {0x51BA43B7, "100000000000.0"},
        {0x5368D4A5, "1000000000000.0"},
        {0x551184E7, "10000000000000.0"},
        {0x56B5E621, "100000000000000.0"},
        {0x58635FA9, "1000000000000000.0"},
        {0x5A0E1BCA, "10000000000000000.0"},
        {0x5BB1A2BC, "100000000000000000.0"},
        {0x5D5E0B6B, "1000000000000000000.0"},
        {0x5F0AC723, "10000000000000000000.0"},
        {0x60AD78EC, "100000000000000000000.0"},
        {0x6258D727, "1000000000000000000000.0"},
        {0x64078678, "10000000000000000000000.0"},
        {0x65A96816, "100000000000000000000000.0"},
        {0x6753C21C, "1000000000000000000000000.0"},
        {0x69045951, "10000000000000000000000000.0"},
        {0x6AA56FA6, "100000000000000000000000000.0"},
        {0x6C4ECB8F, "1000000000000000000000000000.0"},
        {0x6E013F39, "9999999000000000000000000000.0"},
        {0x6FA18F08, "100000000000000000000000000000.0"},
        {0x7149F2CA, "1000000000000000000000000000000.0"},
        {0x72FC6F7C, "10000000000000000000000000000000.0"},
        {0x749DC5AE, "100000000000000000000000000000000.0"},
        {0x76453719, "1000000000000000000000000000000000.0"},
        {0x77F684DF, "10000000000000000000000000000000000.0"},
        {0x799A130C, "100000000000000000000000000000000000.0"},
        {0x7B4097CE, "1000000000000000000000000000000000000.0"},
        {0x7CF0BDC2, "10000000000000000000000000000000000000.0"},
        {0x7E967699, "100000000000000000000000000000000000000.0"},
    });
}

// The floats nearest to 1.234567 times those.
TEST(FloatText, SevenDigitsAtEveryExponent) {
    expectRows({
        {0x00000001, "1.401298e-045"},
        {0x00000009, "1.261169e-044"},
        {0x00000058, "1.233143e-043"},
        {0x00000371, "1.234544e-042"},
        {0x0000226A, "1.234544e-041"},
        {0x00015826, "1.234572e-040"},
        {0x000D7178, "1.234566e-039"},
        {0x00866EB5, "1.234567e-038"},
        {0x02280A62, "1.234567e-037"},
        {0x03D20CFA, "1.234567e-036"},
        {0x0583481C, "1.234567e-035"},
        {0x07241A23, "1.234567e-034"},
        {0x08CD20AC, "1.234567e-033"},
        {0x0A80346C, "1.234567e-032"},
        {0x0C204187, "1.234567e-031"},
        {0x0DC851E8, "1.234567e-030"},
        {0x0F7A6662, "1.234567e-029"},
        {0x111C7FFD, "1.234567e-028"},
        {0x12C39FFD, "1.234567e-027"},
        {0x147487FC, "1.234567e-026"},
        {0x1618D4FD, "1.234567e-025"},
        {0x17BF0A3D, "1.234567e-024"},
        {0x196ECCCC, "1.234567e-023"},
        {0x1B153FFF, "1.234567e-022"},
        {0x1CBA8FFF, "1.234567e-021"},
        {0x1E6933FF, "1.234567e-020"},
        {0x2011C080, "1.234567e-019"},
        {0x21B6309F, "1.234567e-018"},
        {0x2363BCC7, "1.234567e-017"},
        {0x250E55FD, "1.234567e-016"},
        {0x26B1EB7C, "1.234567e-015"},
        {0x285E665B, "1.234567e-014"},
        {0x2A0AFFF9, "1.234567e-013"},
        {0x2BADBFF7, "1.234567e-012"},
        {0x2D592FF4, "1.234567e-011"},
        {0x2F07BDF9, "1.234567e-010"},
        {0x30A9AD77, "1.234567e-009"},
        {0x325418D5, "1.234567e-008"},
        {0x34048F85, "1.234567e-007"},
        {0x35A5B366, "1.234567e-006"},
        {0x374F2040, "1.234567e-005"},
        {0x39017428, "0.000123457"},
        {0x3AA1D132, "0.001234567"},
        {0x3C4A457E, "0.01234567"},
        {0x3DFCD6DE, "0.1234567"},
        {0x3F9E064B, "1.234567"},
        {0x414587DD, "12.34567"},
        {0x42F6E9D5, "123.4567"},
        {0x449A5225, "1234.567"},
        {0x4640E6AE, "12345.67"},
        {0x47F1205A, "123456.7"},
        {0x4996B438, "1234567.0"},
        {0x4B3C6146, "12345670.0"},
        {0x4CEB7997, "123456700.0"},
        {0x4E932BFF, "1234567000.0"},
        {0x5037F6FE, "12345670000.0"},
        {0x51E5F4BE, "123456700000.0"},
        {0x538FB8F7, "1234567000000.0"},
        {0x5533A734, "12345670000000.0"},
        {0x56E09101, "123456700000000.0"},
        {0x588C5AA1, "1234567000000000.0"},
        {0x5A2F7149, "12345670000000000.0"},
        {0x5BDB4D9B, "123456700000000000.0"},
        {0x5D891081, "1234567000000000000.0"},
        {0x5F2B54A1, "12345670000000000000.0"},
        {0x60D629CA, "123456700000000000000.0"},
        {0x6285DA1E, "1234567000000000000000.0"},
        {0x642750A6, "12345670000000000000000.0"},
        {0x65D124CF, "123456700000000000000000.0"},
        {0x6782B701, "1234567000000000000000000.0"},
        {0x692364C2, "12345670000000000000000000.0"},
        {0x6ACC3DF2, "123456700000000000000000000.0"},
        {0x6C7F4D6F, "1234567000000000000000000000.0"},
        {0x6E1F9065, "12345670000000000000000000000.0"},
        {0x6FC7747F, "123456700000000000000000000000.0"},
        {0x7179519E, "1234567000000000000000000000000.0"},
        {0x731BD303, "12345670000000000000000000000000.0"},
        {0x74C2C7C4, "123456700000000000000000000000000.0"},
        {0x767379B4, "1234567000000000000000000000000000.0"},
        {0x78182C11, "12345670000000000000000000000000000.0"},
        {0x79BE3715, "123456700000000000000000000000000000.0"},
        {0x7B6DC4DA, "1234567000000000000000000000000000000.0"},
        {0x7D149B08, "12345670000000000000000000000000000000.0"},
        {0x7EB9C1CB, "123456700000000000000000000000000000000.0"},
    });
}

// 9.9999995 and more, times a power of ten.
TEST(FloatText, RoundingUpReachesTheNextPowerOfTen) {
    expectRows({
        {0x0A4FB11E, "1e-032"},
        {0x15F79687, "1e-025"},
        {0x1AF1C900, "1e-022"},
        {0x24E69594, "1e-016"},
    });
}

// An exact computation of its own: the whole decimal expansion of a float in big integers.
// value = digits * 10^scale, digits without a leading zero.
struct Expansion {
    std::string digits;
    int scale = 0;
};

class BigInteger {
  public:
    explicit BigInteger(std::uint32_t value) : limbs_{value} {}

    void multiply(std::uint32_t factor) {
        std::uint64_t carry = 0;
        for (std::uint32_t& limb : limbs_) {
            carry += static_cast<std::uint64_t>(limb) * factor;
            limb = static_cast<std::uint32_t>(carry % kBase);
            carry /= kBase;
        }
        while (carry > 0) {
            limbs_.push_back(static_cast<std::uint32_t>(carry % kBase));
            carry /= kBase;
        }
    }

    void multiplyByPower(std::uint32_t factor, int times, int perStep) {
        std::uint32_t step = 1;
        for (int i = 0; i < perStep; ++i) {
            step *= factor;
        }
        for (; times >= perStep; times -= perStep) {
            multiply(step);
        }
        for (; times > 0; --times) {
            multiply(factor);
        }
    }

    std::string text() const {
        std::string text = std::to_string(limbs_.back());
        for (std::size_t i = limbs_.size() - 1; i-- > 0;) {
            const std::string limb = std::to_string(limbs_[i]);
            text += std::string(9 - limb.size(), '0') + limb;
        }
        return text;
    }

  private:
    static constexpr std::uint64_t kBase = 1000000000;
    std::vector<std::uint32_t> limbs_;  // the lowest first
};

Expansion expand(std::uint32_t bits) {
    const std::uint32_t biased = bits >> 23U & 0xFFU;
    const std::uint32_t fraction = bits & 0x7FFFFFU;
    const int power = (biased == 0 ? 1 : static_cast<int>(biased)) - 150;
    BigInteger number((biased == 0 ? 0 : 0x800000U) + fraction % 0x800000U);
    if (power >= 0) {
        number.multiplyByPower(2, power, 29);
        return {number.text(), 0};
    }
    // A half is five tenths.
    number.multiplyByPower(5, -power, 13);
    return {number.text(), power};
}

// The contract in integers: value = whole * 10^scale after each rounding.
std::string expectedText(std::uint32_t bits) {
    Expansion exact = expand(bits);
    if (exact.digits == "0") {
        return "0.0";
    }
    const std::string sign = (bits & kSignBit) != 0 ? "-" : "";
    long whole = std::stol(exact.digits.substr(0, 7));
    if (exact.digits.size() > 7) {
        whole += exact.digits[7] >= '5' ? 1 : 0;
        exact.scale += static_cast<int>(exact.digits.size()) - 7;
    }
    const auto dropZeros = [&] {
        while (whole % 10 == 0) {
            whole /= 10;
            ++exact.scale;
        }
    };
    dropZeros();
    const std::string mantissa = std::to_string(whole);
    const int exponent = exact.scale + static_cast<int>(mantissa.size()) - 1;
    if (-exact.scale > 7 && exponent < -4) {
        const std::string decimals = mantissa.substr(1);
        const std::string number = std::to_string(1000 - exponent).substr(1);
        return sign + mantissa[0] + (decimals.empty() ? "" : "." + decimals) + "e-" + number;
    }
    if (exact.scale < -9) {
        whole = (whole + 5) / 10;
        ++exact.scale;
        dropZeros();
    }
    std::string text = std::to_string(whole);
    if (exact.scale >= 0) {
        text += std::string(static_cast<std::size_t>(exact.scale), '0');
        return sign + (text == "1" ? "1" : text + ".0");
    }
    const auto decimals = static_cast<std::size_t>(-exact.scale);
    if (text.size() <= decimals) {
        text.insert(0, decimals + 1 - text.size(), '0');
    }
    return sign + text.insert(text.size() - decimals, 1, '.');
}

TEST(FloatText, TheComputationOfTheTestKnowsTheWorkedValues) {
    EXPECT_EQ(expand(0x3FC10000).digits + "|" + std::to_string(expand(0x3FC10000).scale),
              "150781250000000000000000|-23");
    EXPECT_EQ(expectedText(std::bit_cast<std::uint32_t>(-0.000000123F)), "-1.23e-007");
    EXPECT_EQ(expectedText(std::bit_cast<std::uint32_t>(0.0001234567F)), "0.000123457");
    EXPECT_EQ(expectedText(std::bit_cast<std::uint32_t>(1234567.0F)), "1234567.0");
    EXPECT_EQ(expectedText(0x7F7FFFFF), "340282300000000000000000000000000000000.0");
}

TEST(FloatText, AMillionBitPatternsAgreeWithAnExactComputation) {
    std::mt19937 random(20010828);
    int checked = 0;
    while (checked < 1000000) {
        const auto bits = static_cast<std::uint32_t>(random());
        if ((bits >> 23U & 0xFFU) == 0xFFU) {
            continue;
        }
        ++checked;
        const std::string written = floatText(fromBits(bits));
        const std::string expected = expectedText(bits);
        // A plain comparison: a million of the test library's own take too long.
        if (written != expected) {
            FAIL() << std::hex << bits << ": " << written << " instead of " << expected;
        }
    }
}

// Where a mesh has its numbers, and where the forms of the text meet: all exponents from -30 to 30.
TEST(FloatText, PatternsOfOrdinarySizeAgreeWithAnExactComputation) {
    std::mt19937 random(19700101);
    for (int i = 0; i < 200000; ++i) {
        const std::uint32_t biased = 127 - 30 + static_cast<std::uint32_t>(random()) % 61;
        const auto bits = (static_cast<std::uint32_t>(random()) & 0x807FFFFFU) | biased << 23U;
        if (floatText(fromBits(bits)) != expectedText(bits)) {
            FAIL() << std::hex << bits << ": " << floatText(fromBits(bits)) << " instead of "
                   << expectedText(bits);
        }
    }
}

}  // namespace
}  // namespace marlowick
