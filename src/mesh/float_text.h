// How a float of a mesh becomes text: plain decimals down to an exponent of -4, and below that a
// mantissa and a lower-case exponent of three digits. The same on every system.
#pragma once

#include <string>
#include <string_view>

namespace marlowick {

// The text of a float in a mesh: "0.5", "2.0", "1.234567e-005"; 1 and -1 are bare, and so is what
// differs from them only beyond the seventh digit. -0.0 is "0.0", the infinities are "inf" and
// "-inf", every NaN is "nan".
std::string floatText(float value);

// The first half of floatText: a finite value rounded to seven significant digits, half away from
// zero, trailing zeros removed. Scientific ("1.234567E-02") if the plain form had more than seven
// digits on one side of the point.
std::string sevenDigitText(float value);

// The second half: a text of that shape ("0.5", "1.5E-04") to the text in the mesh.
std::string textFromSevenDigits(std::string_view text);

}  // namespace marlowick
