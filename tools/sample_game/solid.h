// Round shapes in space, built up from rings: what the bodies of the sample game are made of. y is
// up, a sim faces +z and has its own left at +x.
#pragma once

#include <array>
#include <functional>
#include <vector>

#include "canvas.h"

namespace sample {

struct Point3 {
    double x = 0, y = 0, z = 0;
};

inline Point3 operator+(const Point3& a, const Point3& b) {
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}
inline Point3 operator-(const Point3& a, const Point3& b) {
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}
inline Point3 operator*(const Point3& a, double factor) {
    return {a.x * factor, a.y * factor, a.z * factor};
}
Point3 cross(const Point3& a, const Point3& b);
double dot(const Point3& a, const Point3& b);

// The same on every system. Degrees.
double sine(double degrees);
double cosine(double degrees);

// Which bone a vertex moves with, and how much another one pulls at it.
struct Hold {
    int bone = 0;
    int other = -1;  // -1: none
    int pull = 0;    // of the other, in 1/32768
};

struct SolidVertex {
    Point3 place;
    Point3 normal;  // of length 1
    Point sheet;    // its place on the bitmap, in units of a square of 100 by 100
    Hold hold;
};

// The faces of a solid are counterclockwise seen from outside.
struct Solid {
    std::vector<SolidVertex> vertices;
    std::vector<std::array<int, 3>> faces;
};

// An ellipse in space. right and front are its half axes; for an upright shape they point to +x and
// to +z.
struct Ring {
    Point3 centre;
    Point3 right;
    Point3 front;
    Hold hold;
};

// Where on the bitmap a place of a ring is: ring counts from 0, degrees go from 0 in front over 90
// at its right. The back half begins and ends where the front half does, with places of its own.
struct RingPlace {
    std::size_t ring;
    double degrees;  // -90 to 90, or 90 to 270 for the back half
    bool isBack;
    Point3 place;
};
using SheetMap = std::function<Point(const RingPlace&)>;

// A closed skin over the rings, flat at both ends.
void addTube(Solid& solid, const std::vector<Ring>& rings, const SheetMap& map);

// The rings of an upright egg, from its top to its bottom.
std::vector<Ring> egg(const Point3& centre, const Point3& radii, int rings, const Hold& hold);

}  // namespace sample
