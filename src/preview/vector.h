// Points, directions and turns in space, as far as drawing a sim needs them. Nothing here depends
// on the system's own sine, so that a picture is the same everywhere.
#pragma once

#include <array>
#include <cmath>

namespace marlowick {

struct Vector {
    float x = 0, y = 0, z = 0;

    bool operator==(const Vector&) const = default;
};

inline Vector operator+(const Vector& a, const Vector& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Vector operator-(const Vector& a, const Vector& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Vector operator*(const Vector& a, float factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
inline float dot(const Vector& a, const Vector& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}
inline Vector cross(const Vector& a, const Vector& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
inline float length(const Vector& a) {
    return std::sqrt(dot(a, a));
}
// Of length 1; what has no length stays as it is.
inline Vector unit(const Vector& a) {
    const float size = length(a);
    return size > 0 ? a * (1 / size) : a;
}

struct Quaternion {
    float x = 0, y = 0, z = 0, w = 1;

    bool operator==(const Quaternion&) const = default;
};

// A turn, as the three rows of its matrix.
struct Turn {
    std::array<Vector, 3> rows = {{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}};

    Vector operator*(const Vector& a) const {
        return {dot(rows[0], a), dot(rows[1], a), dot(rows[2], a)};
    }
    Turn operator*(const Turn& inner) const;
};

// v' = q v q^-1, for a quaternion of any length; one without a length turns nothing.
Turn turnOf(const Quaternion& q);

// A turn about an axis, in degrees.
Turn turnAboutX(float degrees);
Turn turnAboutY(float degrees);

// From one space into the one around it: first the turn, then the shift.
struct Placement {
    Turn turn;
    Vector shift;

    Vector operator*(const Vector& point) const { return turn * point + shift; }
    Placement operator*(const Placement& inner) const {
        return {turn * inner.turn, *this * inner.shift};
    }
};

// Sine and cosine of an angle in degrees.
float sineOf(float degrees);
float cosineOf(float degrees);

}  // namespace marlowick
