#include "preview/vector.h"

namespace marlowick {
namespace {

// The series of the sine, for an angle of at most a quarter turn.
double sineSeries(double radians) {
    const double square = radians * radians;
    double term = radians;
    double sum = term;
    for (int n = 1; n <= 9; ++n) {
        term *= -square / (2.0 * n * (2.0 * n + 1));
        sum += term;
    }
    return sum;
}

}  // namespace

float sineOf(float degrees) {
    constexpr double kRadians = 0.017453292519943295;
    double angle = std::fmod(static_cast<double>(degrees), 360.0);
    if (angle < 0) {
        angle += 360;
    }
    const double sign = angle >= 180 ? -1 : 1;
    if (angle >= 180) {
        angle -= 180;
    }
    return static_cast<float>(sign * sineSeries((angle > 90 ? 180 - angle : angle) * kRadians));
}

float cosineOf(float degrees) {
    return sineOf(degrees + 90);
}

Turn Turn::operator*(const Turn& inner) const {
    Turn result;
    for (std::size_t i = 0; i < 3; ++i) {
        result.rows.at(i) = inner.rows[0] * rows.at(i).x + inner.rows[1] * rows.at(i).y +
                            inner.rows[2] * rows.at(i).z;
    }
    return result;
}

Turn turnOf(const Quaternion& q) {
    const float square = q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w;
    if (!(square > 0) || !std::isfinite(square)) {
        return {};
    }
    const float s = 2 / square;
    return {{{{1 - s * (q.y * q.y + q.z * q.z), s * (q.x * q.y - q.z * q.w),
               s * (q.x * q.z + q.y * q.w)},
              {s * (q.x * q.y + q.z * q.w), 1 - s * (q.x * q.x + q.z * q.z),
               s * (q.y * q.z - q.x * q.w)},
              {s * (q.x * q.z - q.y * q.w), s * (q.y * q.z + q.x * q.w),
               1 - s * (q.x * q.x + q.y * q.y)}}}};
}

Turn turnAboutX(float degrees) {
    const float s = sineOf(degrees);
    const float c = cosineOf(degrees);
    return {{{{1, 0, 0}, {0, c, -s}, {0, s, c}}}};
}

Turn turnAboutY(float degrees) {
    const float s = sineOf(degrees);
    const float c = cosineOf(degrees);
    return {{{{c, 0, s}, {0, 1, 0}, {-s, 0, c}}}};
}

}  // namespace marlowick
