#include "solid.h"

#include <cmath>

namespace sample {
namespace {

constexpr int kHalfSteps = 6;  // of a half ring
constexpr int kHalf = kHalfSteps + 1;
constexpr int kRound = 2 * kHalf;

double sineSeries(double degrees) {
    const double radians = degrees * 0.017453292519943295;
    double term = radians;
    double sum = term;
    for (int n = 1; n <= 9; ++n) {
        term *= -radians * radians / (2.0 * n * (2.0 * n + 1));
        sum += term;
    }
    return sum;
}

double stepDegrees(int step) {
    const int half = step / kHalf;
    return -90 + 180 * half + 180.0 / kHalfSteps * (step % kHalf);
}

// Twelve times the volume, above 0 if the faces are counterclockwise seen from outside.
double volume(const Solid& solid, std::size_t firstFace) {
    double sum = 0;
    for (std::size_t i = firstFace; i < solid.faces.size(); ++i) {
        const auto& [a, b, c] = solid.faces[i];
        const auto place = [&](int v) { return solid.vertices[static_cast<std::size_t>(v)].place; };
        sum += dot(place(a), cross(place(b), place(c)));
    }
    return sum;
}

class TubeMaker {
  public:
    TubeMaker(Solid& solid, std::size_t rings)
        : solid_(solid),
          first_(static_cast<int>(solid.vertices.size())),
          firstFace_(solid.faces.size()),
          rings_(static_cast<int>(rings)) {}

    void addVertices(const std::vector<Ring>& rings, const SheetMap& map) {
        for (std::size_t i = 0; i < rings.size(); ++i) {
            for (int step = 0; step < kRound; ++step) {
                const double degrees = stepDegrees(step);
                const Point3 place = rings[i].centre + rings[i].right * sine(degrees) +
                                     rings[i].front * cosine(degrees);
                solid_.vertices.push_back(
                    {place, {}, map({i, degrees, step >= kHalf, place}), rings[i].hold});
            }
        }
        for (const std::size_t i : {std::size_t{0}, rings.size() - 1}) {
            for (const bool isBack : {false, true}) {
                solid_.vertices.push_back({rings[i].centre,
                                           {},
                                           map({i, isBack ? 180.0 : 0.0, isBack, rings[i].centre}),
                                           rings[i].hold});
            }
        }
    }

    void addFaces() {
        for (int ring = 0; ring < rings_; ++ring) {
            for (int step = 0; step < kRound; ++step) {
                if (step % kHalf == kHalfSteps) {
                    continue;  // between two halves there is nothing to bridge
                }
                const int a = vertex(ring, step);
                const int b = vertex(ring, step + 1);
                if (ring + 1 < rings_) {
                    const int c = vertex(ring + 1, step);
                    const int d = vertex(ring + 1, step + 1);
                    solid_.faces.push_back({a, c, b});
                    solid_.faces.push_back({b, c, d});
                }
                const int half = step / kHalf;
                if (ring == 0) {
                    solid_.faces.push_back({a, b, middle(0, half)});
                }
                if (ring + 1 == rings_) {
                    solid_.faces.push_back({b, a, middle(1, half)});
                }
            }
        }
        if (volume(solid_, firstFace_) < 0) {
            for (std::size_t i = firstFace_; i < solid_.faces.size(); ++i) {
                std::swap(solid_.faces[i][1], solid_.faces[i][2]);
            }
        }
    }

    void smooth() {
        const auto place = [&](int v) -> SolidVertex& {
            return solid_.vertices[static_cast<std::size_t>(v)];
        };
        for (std::size_t i = firstFace_; i < solid_.faces.size(); ++i) {
            const auto& [a, b, c] = solid_.faces[i];
            const Point3 normal =
                cross(place(b).place - place(a).place, place(c).place - place(a).place);
            for (const int v : {a, b, c}) {
                place(v).normal = place(v).normal + normal;
            }
        }
        // Where the halves meet, and in the middle of an end, two vertices are one place.
        for (int ring = 0; ring < rings_; ++ring) {
            join(vertex(ring, 0), vertex(ring, kRound - 1));
            join(vertex(ring, kHalfSteps), vertex(ring, kHalf));
        }
        join(middle(0, 0), middle(0, 1));
        join(middle(1, 0), middle(1, 1));
        for (auto v = static_cast<std::size_t>(first_); v < solid_.vertices.size(); ++v) {
            Point3& normal = solid_.vertices[v].normal;
            const double length = std::sqrt(dot(normal, normal));
            normal = length > 0 ? normal * (1 / length) : Point3{0, 1, 0};
        }
    }

  private:
    int vertex(int ring, int step) const { return first_ + ring * kRound + step; }
    int middle(int end, int half) const { return first_ + rings_ * kRound + end * 2 + half; }

    void join(int a, int b) {
        Point3& first = solid_.vertices[static_cast<std::size_t>(a)].normal;
        Point3& second = solid_.vertices[static_cast<std::size_t>(b)].normal;
        first = second = first + second;
    }

    Solid& solid_;
    int first_;
    std::size_t firstFace_;
    int rings_;
};

}  // namespace

Point3 cross(const Point3& a, const Point3& b) {
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(const Point3& a, const Point3& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

double sine(double degrees) {
    while (degrees > 180) {
        degrees -= 360;
    }
    while (degrees < -180) {
        degrees += 360;
    }
    if (degrees > 90) {
        degrees = 180 - degrees;
    } else if (degrees < -90) {
        degrees = -180 - degrees;
    }
    return sineSeries(degrees);
}

double cosine(double degrees) {
    return sine(degrees + 90);
}

void addTube(Solid& solid, const std::vector<Ring>& rings, const SheetMap& map) {
    TubeMaker maker(solid, rings.size());
    maker.addVertices(rings, map);
    maker.addFaces();
    maker.smooth();
}

std::vector<Ring> egg(const Point3& centre, const Point3& radii, int rings, const Hold& hold) {
    std::vector<Ring> result;
    for (int i = 0; i < rings; ++i) {
        // The ends stay a little short of the poles, where a ring would be a point.
        const double degrees = 90 - 6 - (180.0 - 12) * i / (rings - 1);
        const double width = cosine(degrees);
        result.push_back({centre + Point3{0, radii.y * sine(degrees), 0},
                          {radii.x * width, 0, 0},
                          {0, 0, radii.z * width},
                          hold});
    }
    return result;
}

}  // namespace sample
