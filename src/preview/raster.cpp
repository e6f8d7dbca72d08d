#include "preview/raster.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace marlowick {
namespace {

constexpr int kSamples = 2;  // a pixel, each way: what smooths the edges
constexpr int kGrid = 16;    // places a sample, each way, that a vertex can have
constexpr float kMargin = 0.03F;
constexpr float kDistance = 5;    // of the eye, in sizes of the figure
constexpr float kClosest = 0.1F;  // of that distance: what comes closer isn't drawn
constexpr float kFarOut = 30000;  // samples beside the picture: likewise
// Where a near look goes: up from the middle to the chest, by so much of the height.
constexpr float kNearLook = 0.22F;

// The light comes from the front, from above and from the left.
constexpr Vector kLight = {-0.35F, 0.5F, 0.79F};
constexpr float kAmbient = 0.46F;
// Reaches a little round the edge of what it shines on.
constexpr float kReach = 0.35F;
constexpr float kFullLight = 256;
// A face seen from behind: the lining of a skirt.
constexpr float kLining = 0.55F;
constexpr float kLiningDepth = 0.9995F;

constexpr std::int64_t kWorkASample = 48;
constexpr std::int64_t kWorkAFace = 16;
constexpr std::int64_t kLeastWork = 4 << 20U;

float lightOn(const Vector& normal) {
    const float facing = std::max(0.0F, (dot(normal, kLight) + kReach) / (1 + kReach));
    return std::min(kFullLight, (kAmbient + (1 - kAmbient) * facing) * kFullLight);
}

float square(float value) {
    return value * value;
}

float finite(float value) {
    return std::isfinite(value) ? value : 0;
}

// Every other of a pixel's four channels: two can be reckoned with at once.
constexpr std::uint32_t kTwoChannels = 0x00FF00FFU;

// amount, in 1/256, is the second's.
std::uint32_t mixed(std::uint32_t a, std::uint32_t b, std::uint32_t amount) {
    return (a * (256 - amount) + b * amount) >> 8U & kTwoChannels;
}

// Takes the texture at a point, mixed from the four pixels around it.
class Sampler {
  public:
    explicit Sampler(const Texture& texture)
        : pixels_(texture.pixels.data()),
          width_(texture.width),
          height_(texture.height),
          u_(static_cast<float>(width_)),
          v_(static_cast<float>(height_)) {}

    // light is 0 to 256; all may be a little off their bounds, as what is interpolated is.
    std::uint32_t colour(float u, float v, float light) const {
        const Place x = placeOf(u, u_, width_);
        const Place y = placeOf(v, v_, height_);
        const std::uint32_t* upper = pixels_ + static_cast<std::ptrdiff_t>(y.first) * width_;
        const std::uint32_t* lower = pixels_ + static_cast<std::ptrdiff_t>(y.second) * width_;
        const auto red = [&](const std::uint32_t* row) {
            return mixed(row[x.first] & kTwoChannels, row[x.second] & kTwoChannels, x.amount);
        };
        const auto green = [&](const std::uint32_t* row) {
            return mixed(row[x.first] >> 8U & 0xFFU, row[x.second] >> 8U & 0xFFU, x.amount);
        };
        const auto amount = static_cast<std::uint32_t>(within(light, kFullLight));
        const std::uint32_t redBlue = mixed(red(upper), red(lower), y.amount) * amount;
        const std::uint32_t middle = mixed(green(upper), green(lower), y.amount) * amount;
        return 0xFF000000U | (redBlue >> 8U & kTwoChannels) | (middle & 0xFF00U);
    }

  private:
    struct Place {
        int first;
        int second;
        std::uint32_t amount;  // of the second, in 1/256
    };

    // What is no number is 0.
    static int within(float value, float most) {
        return static_cast<int>(value > 0 ? std::min(value, most) : 0);
    }

    static Place placeOf(float coordinate, float scale, int size) {
        constexpr float kMost = 1 << 20U;
        const float bounded = coordinate > 0 ? std::min(coordinate, kMost) : 0;
        const float shifted =
            (bounded - static_cast<float>(static_cast<int>(bounded))) * scale + 0.5F;
        const int second = static_cast<int>(shifted);
        const float amount = (shifted - static_cast<float>(second)) * 256;
        return {second == 0 ? size - 1 : second - 1, second == size ? 0 : second,
                static_cast<std::uint32_t>(static_cast<int>(amount))};
    }

    const std::uint32_t* pixels_;
    int width_;
    int height_;
    float u_;
    float v_;
};

}  // namespace

struct Raster::Camera {
    Turn turn;
    Vector centre;
    float distance = 0;
    float scale = 0;  // samples, of what is one wide at a distance of one
    float x = 0;      // where the centre of the figure goes, in samples
    float y = 0;
};

namespace {

// One of a triangle's sides, going clockwise. What lies to its right is inside.
struct Side {
    std::int64_t start;  // at the first sample of the first row; inside is 0 and above
    std::int64_t right;  // what a step of a sample to the right adds
    std::int64_t down;
    double inverse;  // of what a step to the right adds

    // Narrows the samples of a row, from first up to and including last, to those inside.
    void narrow(std::int64_t atRow, int& first, int& last) const {
        // The quotient is an integer or further away from one than this.
        constexpr double kNothing = 1.0 / (1 << 26U);
        if (right == 0) {
            last = atRow < 0 ? first - 1 : last;
            return;
        }
        const double crossing = std::clamp(-static_cast<double>(atRow) * inverse, -1.0, last + 2.0);
        if (right > 0) {
            first = std::max(first, static_cast<int>(std::ceil(crossing - kNothing)));
        } else {
            last = std::min(last, static_cast<int>(std::floor(crossing + kNothing)));
        }
    }
};

template <class Point>
Side sideBetween(const Point& from, const Point& to, int left, int top) {
    const std::int64_t x = to.x - from.x;
    const std::int64_t y = to.y - from.y;
    const std::int64_t px = static_cast<std::int64_t>(left) * kGrid + kGrid / 2 - from.x;
    const std::int64_t py = static_cast<std::int64_t>(top) * kGrid + kGrid / 2 - from.y;
    // A sample on the line between two triangles belongs to the one below it or to its right.
    const bool owns = y < 0 || (y == 0 && x > 0);
    const std::int64_t right = -y * kGrid;
    return {x * py - y * px - (owns ? 0 : 1), right, x * kGrid,
            right == 0 ? 0 : 1 / static_cast<double>(right)};
}

// Something that is interpolated over a triangle.
struct Plane {
    float start;  // at the first sample of the first row
    float right;  // what a step of a sample adds
    float down;

    float at(float column, float row) const { return start + right * column + down * row; }
};

// Above 0 for corners that come clockwise, in the grid's places.
template <class Point>
std::int64_t doubledArea(const Point& a, const Point& b, const Point& c) {
    return static_cast<std::int64_t>(b.x - a.x) * (c.y - a.y) -
           static_cast<std::int64_t>(b.y - a.y) * (c.x - a.x);
}

// Of four pixels, each channel on its own.
std::uint32_t average(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
    const std::uint32_t even = (a & kTwoChannels) + (b & kTwoChannels) + (c & kTwoChannels) +
                               (d & kTwoChannels) + 0x00020002U;
    const std::uint32_t odd = (a >> 8U & kTwoChannels) + (b >> 8U & kTwoChannels) +
                              (c >> 8U & kTwoChannels) + (d >> 8U & kTwoChannels) + 0x00020002U;
    return (even >> 2U & kTwoChannels) | (odd >> 2U & kTwoChannels) << 8U;
}

// A pixel before another one, both multiplied by their alpha.
std::uint32_t over(std::uint32_t pixel, std::uint32_t behind) {
    const std::uint32_t seen = 255 - (pixel >> 24U);
    if (seen == 0 || behind == 0) {
        return pixel;
    }
    // Divides by 255, rounded.
    const auto share = [&](std::uint32_t channels) {
        const std::uint32_t product = (channels & kTwoChannels) * seen + 0x00800080U;
        return (product + (product >> 8U & kTwoChannels)) >> 8U & kTwoChannels;
    };
    return pixel + (share(behind) | share(behind >> 8U) << 8U);
}

}  // namespace

const std::vector<std::uint32_t>& Raster::draw(const Figure& figure, const View& view, int width,
                                               int height, std::uint32_t background) {
    prepare(width, height);
    const Camera camera = cameraFor(figure.bounds, view);
    corners_.clear();
    for (const FigurePart& part : figure.parts) {
        project(part, camera);
    }
    // What is seen from behind comes last: it is hidden almost everywhere.
    for (const bool fronts : {true, false}) {
        const Corner* corners = corners_.data();
        for (const FigurePart& part : figure.parts) {
            drawFaces(part, corners, fronts);
            corners += part.vertices.size();
        }
    }
    resolve(background);
    return pixels_;
}

void Raster::prepare(int width, int height) {
    const bool hasArea = width > 0 && height > 0;
    width_ = hasArea ? width * kSamples : 0;
    height_ = hasArea ? height * kSamples : 0;
    const std::size_t samples =
        static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_);
    pixels_.resize(samples / kSamples / kSamples);
    // Between two pictures the buffers are clear.
    nearness_.resize(samples);
    colours_.resize(samples);
    touched_ = {width_, height_, 0, 0};
    work_ = std::max(kLeastWork, static_cast<std::int64_t>(samples) * kWorkASample);
}

Raster::Camera Raster::cameraFor(const FigureBounds& bounds, const View& view) const {
    const float pitch = std::clamp(finite(view.pitch), -kSteepestPitch, kSteepestPitch);
    const float zoom = std::clamp(finite(view.zoom), 1.0F, kNearestZoom);
    Camera camera;
    camera.turn = turnAboutX(pitch) * turnAboutY(finite(view.yaw));
    camera.centre = bounds.centre;
    camera.distance = bounds.size * kDistance;
    // How far the rings reach on a picture at a distance of one.
    const float s = sineOf(pitch);
    const float c = cosineOf(pitch);
    float side = 0;
    float low = 0;
    float high = 0;
    for (const FigureBounds::Ring& ring : bounds.rings) {
        const float middle = camera.distance - ring.height * s;
        side = std::max(side, ring.radius / std::sqrt(middle * middle - square(ring.radius * c)));
        for (const float z : {-ring.radius, ring.radius}) {
            const float y = (ring.height * c - z * s) / (middle - z * c);
            low = std::min(low, y);
            high = std::max(high, y);
        }
    }
    constexpr float kFilled = 1 - 2 * kMargin;
    const float wide = static_cast<float>(width_);
    const float tall = static_cast<float>(height_);
    camera.scale = zoom * std::min(side > 0 ? wide * kFilled / (2 * side) : kFarOut,
                                   high > low ? tall * kFilled / (high - low) : kFarOut);
    const float lookedAt = (low + high) / 2 + (1 - 1 / zoom) * kNearLook * (high - low);
    camera.x = wide / 2;
    camera.y = tall / 2 + camera.scale * lookedAt;
    return camera;
}

void Raster::project(const FigurePart& part, const Camera& camera) {
    // Textures repeat, so all may be moved by whole textures to where none is below 0.
    float least[2] = {0, 0};
    for (const FigureVertex& vertex : part.vertices) {
        least[0] = std::min(least[0], vertex.u);
        least[1] = std::min(least[1], vertex.v);
    }
    const float moveU = -std::floor(least[0]);
    const float moveV = -std::floor(least[1]);
    for (const FigureVertex& vertex : part.vertices) {
        const Vector place = camera.turn * (vertex.position - camera.centre);
        const float distance = camera.distance - place.z;
        Corner corner;
        if (distance > camera.distance * kClosest) {
            const float nearness = 1 / distance;
            const float x = camera.x + camera.scale * place.x * nearness;
            const float y = camera.y - camera.scale * place.y * nearness;
            if (std::abs(x) < kFarOut && std::abs(y) < kFarOut) {
                corner = {static_cast<std::int32_t>(std::floor(x * kGrid + 0.5F)),
                          static_cast<std::int32_t>(std::floor(y * kGrid + 0.5F)),
                          nearness,
                          (vertex.u + moveU) * nearness,
                          (vertex.v + moveV) * nearness,
                          lightOn(camera.turn * vertex.normal)};
            }
        }
        corners_.push_back(corner);
    }
}

void Raster::drawFaces(const FigurePart& part, const Corner* corners, bool fronts) {
    for (const FigureFace& face : part.faces) {
        const Corner& a = corners[face[0]];
        const Corner& b = corners[face[1]];
        const Corner& c = corners[face[2]];
        work_ -= kWorkAFace;
        if (work_ < 0) {
            return;
        }
        if (!(a.nearness > 0 && b.nearness > 0 && c.nearness > 0)) {
            continue;
        }
        const std::int64_t area = doubledArea(a, b, c);
        if (fronts && area > 0) {
            drawTriangle(a, b, c, *part.texture, true);
        } else if (!fronts && area < 0) {
            drawTriangle(a, c, b, *part.texture, false);
        }
    }
}

void Raster::drawTriangle(const Corner& a, const Corner& b, const Corner& c, const Texture& texture,
                          bool isFront) {
    // The samples whose middles can lie inside.
    const auto firstSample = [](std::int32_t place) { return (place + kGrid / 2 - 1) >> 4; };
    const Area area = {std::max(0, firstSample(std::min({a.x, b.x, c.x}))),
                       std::max(0, firstSample(std::min({a.y, b.y, c.y}))),
                       std::min(width_, firstSample(std::max({a.x, b.x, c.x}) + 1)),
                       std::min(height_, firstSample(std::max({a.y, b.y, c.y}) + 1))};
    if (area.left >= area.right || area.top >= area.bottom) {
        return;
    }
    Side sides[] = {sideBetween(a, b, area.left, area.top), sideBetween(b, c, area.left, area.top),
                    sideBetween(c, a, area.left, area.top)};
    const float part = 1 / static_cast<float>(doubledArea(a, b, c));
    const auto planeOf = [&](float Corner::*item) {
        const float toB = b.*item - a.*item;
        const float toC = c.*item - a.*item;
        const float right =
            (toB * static_cast<float>(c.y - a.y) - toC * static_cast<float>(b.y - a.y)) * part;
        const float down =
            (toC * static_cast<float>(b.x - a.x) - toB * static_cast<float>(c.x - a.x)) * part;
        const float x = static_cast<float>(area.left * kGrid + kGrid / 2 - a.x);
        const float y = static_cast<float>(area.top * kGrid + kGrid / 2 - a.y);
        return Plane{a.*item + right * x + down * y, right * kGrid, down * kGrid};
    };
    const Plane nearness = planeOf(&Corner::nearness);
    const Plane u = planeOf(&Corner::u);
    const Plane v = planeOf(&Corner::v);
    const Plane light = planeOf(&Corner::light);
    const float lightShare = isFront ? 1 : kLining;
    const float depthShare = isFront ? 1 : kLiningDepth;
    const Sampler sampler(texture);

    for (int y = area.top; y < area.bottom; ++y) {
        int first = 0;
        int last = area.right - area.left - 1;
        for (Side& side : sides) {
            side.narrow(side.start, first, last);
            side.start += side.down;
        }
        work_ -= last - first + 2;
        const auto row = static_cast<float>(y - area.top);
        const std::size_t start = static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                                  static_cast<std::size_t>(area.left);
        for (int x = first; x <= last; ++x) {
            const auto column = static_cast<float>(x);
            const float near = nearness.at(column, row);
            float& shown = nearness_[start + static_cast<std::size_t>(x)];
            if (near * depthShare > shown) {
                shown = near;
                const float distance = 1 / near;
                colours_[start + static_cast<std::size_t>(x)] =
                    sampler.colour(u.at(column, row) * distance, v.at(column, row) * distance,
                                   light.at(column, row) * lightShare);
            }
        }
    }
    touched_ = {std::min(touched_.left, area.left), std::min(touched_.top, area.top),
                std::max(touched_.right, area.right), std::max(touched_.bottom, area.bottom)};
}

void Raster::resolve(std::uint32_t background) {
    std::fill(pixels_.begin(), pixels_.end(), background);
    for (int y = touched_.top / kSamples; y * kSamples < touched_.bottom; ++y) {
        for (int x = touched_.left / kSamples; x * kSamples < touched_.right; ++x) {
            const std::size_t upper =
                static_cast<std::size_t>(y * kSamples) * static_cast<std::size_t>(width_) +
                static_cast<std::size_t>(x * kSamples);
            const std::size_t lower = upper + static_cast<std::size_t>(width_);
            const std::uint32_t pixel =
                average(colours_[upper], colours_[upper + 1], colours_[lower], colours_[lower + 1]);
            std::uint32_t& result =
                pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_ / kSamples) +
                        static_cast<std::size_t>(x)];
            result = over(pixel, result);
        }
    }
    for (int y = touched_.top; y < touched_.bottom; ++y) {
        const auto start = static_cast<std::ptrdiff_t>(y) * width_ + touched_.left;
        const auto count = touched_.right - touched_.left;
        std::fill_n(colours_.begin() + start, count, 0U);
        std::fill_n(nearness_.begin() + start, count, 0.0F);
    }
}

}  // namespace marlowick
