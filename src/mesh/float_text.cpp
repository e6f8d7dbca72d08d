#include "mesh/float_text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdlib>
#include <utility>

#include "system/game_text.h"

namespace marlowick {
namespace {

constexpr int kSignificant = 7;
constexpr int kPlainDigits = 7;    // on either side of the point
constexpr int kFixedDecimals = 9;  // at most
constexpr int kLastFixedExponent = 4;

// No float has more than 112 significant digits, so that this many behind the point hold every
// float whole and nothing is rounded but here.
constexpr int kExactDecimals = 111;

// A number as d.ddd times ten to the exponent. The digits don't end in zeros; zero has none.
struct Decimal {
    bool negative = false;
    std::string digits;
    int exponent = 0;
};

int decimalsOf(const Decimal& number) {
    return static_cast<int>(number.digits.size()) - 1 - number.exponent;
}

void cutZeros(Decimal& number) {
    number.digits.erase(number.digits.find_last_not_of('0') + 1);
}

// Rounds to so many digits, half away from zero. What lies behind the first dropped digit
// can't change the outcome.
void roundTo(Decimal& number, std::size_t count) {
    if (number.digits.size() > count) {
        const bool up = number.digits[count] >= '5';
        number.digits.resize(count);
        while (up && !number.digits.empty() && number.digits.back() == '9') {
            number.digits.pop_back();
        }
        if (up && number.digits.empty()) {
            number.digits = "1";
            ++number.exponent;
        } else if (up) {
            ++number.digits.back();
        }
    }
    cutZeros(number);
}

int numberOf(std::string_view text) {
    int number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// Digits and exponent of a text such as "-0.05" or "1.5E-04".
Decimal parsed(std::string_view text) {
    Decimal number;
    number.negative = text.starts_with('-');
    const std::size_t mark = std::min(text.find_first_of("eE"), text.size());
    if (mark < text.size()) {
        number.exponent = numberOf(text.substr(mark + (text.substr(mark + 1, 1) == "+" ? 2 : 1)));
    }
    const std::string_view mantissa = text.substr(0, mark).substr(number.negative ? 1 : 0);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    number.digits = mantissa.substr(0, point);
    number.digits += mantissa.substr(std::min(point + 1, mantissa.size()));
    const std::size_t zeros = std::min(number.digits.find_first_not_of('0'), number.digits.size());
    number.exponent += static_cast<int>(point) - 1 - static_cast<int>(zeros);
    number.digits.erase(0, zeros);
    cutZeros(number);
    return number;
}

// Digits and exponent of what to_chars wrote in its scientific form into text, which ends at end.
Decimal scientific(char* text, char* end) {
    Decimal number;
    number.negative = *text == '-';
    char* const mantissa = text + (number.negative ? 1 : 0);
    const char* const mark = std::find(mantissa, end, 'e');
    // The first digit takes the place of the point behind it, if there is one.
    const bool hasPoint = mantissa[1] == '.';
    char* const digits = mantissa + (hasPoint ? 1 : 0);
    *digits = *mantissa;
    number.digits.assign(digits, static_cast<std::size_t>(mark - digits));
    // A float's exponent is written with two digits.
    const int exponent = (mark[2] - '0') * 10 + mark[3] - '0';
    number.exponent = mark[1] == '-' ? -exponent : exponent;
    return number;
}

// The digits of a value, so many behind the first one, as the nearest decimal has them.
Decimal withDecimals(float value, int decimals) {
    std::array<char, kExactDecimals + 16> text;
    char* const begin = text.data();
    return scientific(begin, std::to_chars(begin, begin + text.size(), value,
                                           std::chars_format::scientific, decimals)
                                 .ptr);
}

// As few digits as tell a value apart from all others, at most nine; of those that do the nearest.
Decimal fewestDigits(float value) {
    std::array<char, 32> text;
    char* const begin = text.data();
    return scientific(
        begin, std::to_chars(begin, begin + text.size(), value, std::chars_format::scientific).ptr);
}

// Rounded half away from zero. The value lies within half a unit of the last of its fewest digits,
// so they tell which way to go if there are more of them than wanted, unless a single 5 is too
// many. Else two digits more than are wanted tell, unless they are a half, which may itself be
// rounded.
Decimal sevenDigits(float value) {
    if (value == 0) {
        return {};
    }
    Decimal number = fewestDigits(value);
    const bool isHalf = number.digits.size() == kSignificant + 1 && number.digits.back() == '5';
    if (number.digits.size() <= kSignificant || isHalf) {
        number = withDecimals(value, kSignificant + 1);
        if (number.digits.ends_with("50")) {
            number = withDecimals(value, kExactDecimals);
        }
    }
    roundTo(number, kSignificant);
    return number;
}

// The number of digits before the point.
std::size_t wholeDigits(const Decimal& number) {
    return static_cast<std::size_t>(std::max(number.exponent, 0)) + 1;
}

bool hasPoint(const Decimal& number) {
    return number.exponent < 0 || number.digits.size() > wholeDigits(number);
}

// The digits with the point where it belongs, without a point if nothing stands behind it.
std::string plainText(const Decimal& number) {
    if (number.digits.empty()) {
        return "0";
    }
    std::string text;
    if (number.negative) {
        text += '-';
    }
    if (number.exponent < 0) {
        text += "0.";
        text.append(static_cast<std::size_t>(-number.exponent) - 1, '0') += number.digits;
        return text;
    }
    const std::size_t whole = wholeDigits(number);
    text.append(number.digits, 0, whole);
    if (hasPoint(number)) {
        text += '.';
        return text.append(number.digits, whole);
    }
    return text.append(whole - number.digits.size(), '0');
}

std::string scientificText(const Decimal& number) {
    std::string text = (number.negative ? "-" : "") + number.digits.substr(0, 1);
    if (number.digits.size() > 1) {
        text += "." + number.digits.substr(1);
    }
    const std::string exponent = std::to_string(std::abs(number.exponent));
    text += number.exponent < 0 ? "E-" : "E+";
    return text + (exponent.size() < 2 ? "0" : "") + exponent;
}

// At least one decimal, at most nine.
std::string fixedText(Decimal number) {
    const int tooMany = decimalsOf(number) - kFixedDecimals;
    if (tooMany > 0 && tooMany < static_cast<int>(number.digits.size())) {
        roundTo(number, number.digits.size() - static_cast<std::size_t>(tooMany));
    }
    std::string text = plainText(number);
    if (number.digits.empty() || !hasPoint(number)) {
        text += ".0";
    }
    return text;
}

bool isPlain(const Decimal& number) {
    return number.digits.empty() ||
           (number.exponent < kPlainDigits && decimalsOf(number) <= kPlainDigits);
}

std::string withBareOne(std::string fixed) {
    if (fixed.ends_with("1.0") && (fixed.size() == 3 || (fixed.size() == 4 && fixed[0] == '-'))) {
        fixed.resize(fixed.size() - 2);
    }
    return fixed;
}

}  // namespace

std::string sevenDigitText(float value) {
    const Decimal number = sevenDigits(value);
    return isPlain(number) ? plainText(number) : scientificText(number);
}

std::string textFromSevenDigits(std::string_view text) {
    if (text.find("E-") == std::string_view::npos) {
        return withBareOne(fixedText(parsed(text)));
    }
    const std::size_t lastTwo = text.size() - 2;
    if (numberOf(text.substr(lastTwo)) <= kLastFixedExponent) {
        return fixedText(parsed(text));
    }
    return lowerCase(text).insert(lastTwo, 1, '0');
}

std::string floatText(float value) {
    if (std::isnan(value)) {
        return "nan";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-inf" : "inf";
    }
    Decimal number = sevenDigits(value);
    if (!isPlain(number) && number.exponent < -kLastFixedExponent) {
        return textFromSevenDigits(scientificText(number));
    }
    // What is scientific in seven digits with a larger exponent is never one.
    return withBareOne(fixedText(std::move(number)));
}

}  // namespace marlowick
