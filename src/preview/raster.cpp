#include "preview/raster.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace marlowick {
namespace {

constexpr int kSamples = 2;  // a pixel, each way: what smooths the edges
constexpr int kGridBits = 4;
constexpr int kGrid = 1 << kGridBits;  // places a sample, each way, that a vertex can have
constexpr int kMiddle = kGrid / 2;
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

// The three colours of a pixel, taken apart.
constexpr std::uint64_t kThreeChannels = 0x000000FF00FF00FFU;

// Pixels of a texture are counted in 1/256.
constexpr int kPixel = 256;

// Takes the texture at a point, mixed from the four pixels around it.
class Sampler {
  public:
    explicit Sampler(const Texture& texture)
        : pixels_(texture.pixels.data()), width_(texture.width), height_(texture.height) {}

    // The point is in 1/256 of the texture's pixels, light in 1/256; both may be a little off their
    // bounds, as what is interpolated is.
    std::uint32_t colour(float x, float y, float light) const {
        const Place across = placeOf(x, width_);
        const Place down = placeOf(y, height_);
        const std::uint32_t* upper = pixels_ + static_cast<std::ptrdiff_t>(down.first) * width_;
        const std::uint32_t* lower = pixels_ + static_cast<std::ptrdiff_t>(down.second) * width_;
        const std::uint32_t pixels[] = {upper[across.first], upper[across.second],
                                        lower[across.first], lower[across.second]};
        // The shares of the four add up to 256.
        const std::uint32_t last = across.amount * down.amount >> 8U;
        const std::uint32_t shares[] = {kPixel - across.amount - down.amount + last,
                                        across.amount - last, down.amount - last, last};
        std::uint64_t mixed = 0;
        for (int i = 0; i < 4; ++i) {
            mixed += threeChannels(pixels[i]) * shares[i];
        }
        const auto amount = static_cast<std::uint64_t>(within(light, kFullLight));
        const std::uint64_t lit = (mixed >> 8U & kThreeChannels) * amount >> 8U & kThreeChannels;
        return 0xFF000000U | static_cast<std::uint32_t>(lit >> 24U & 0xFF00U) |
               static_cast<std::uint32_t>(lit & kTwoChannels);
    }

  private:
    struct Place {
        int first;
        int second;
        std::uint32_t amount;  // of the second, in 1/256
    };

    // Blue, red and green, each with room for its product with 256.
    static std::uint64_t threeChannels(std::uint32_t pixel) {
        return (pixel & kTwoChannels) | std::uint64_t{pixel & 0xFF00U} << 24U;
    }

    // What is no number is 0.
    static int within(float value, float most) {
        return static_cast<int>(value > 0 ? std::min(value, most) : 0);
    }

    static Place placeOf(float coordinate, int size) {
        constexpr float kFarthest = 1073741824.0F;
        // The middles of the pixels count. Moved to where nothing is below 0.
        const auto place =
            static_cast<std::uint32_t>(within(coordinate, kFarthest) + size * kPixel - kPixel / 2);
        const int pixel = static_cast<int>(place / kPixel);
        const int first = (size & (size - 1)) == 0 ? pixel & (size - 1) : pixel % size;
        return {first, first + 1 == size ? 0 : first + 1, place & (kPixel - 1)};
    }

    const std::uint32_t* pixels_;
    int width_;
    int height_;
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

// Tells row by row which samples of an area lie in a triangle whose corners come clockwise. A
// sample on the line between two triangles belongs to the one below it or to its right.
class Spans {
  public:
    Spans(int left, int top, int width, int rows) : left_(left), top_(top), rows_(rows) {
        begins_.fill({0, 0});
        ends_.fill({width - 1.0, 0});
    }

    // What lies to the right of the way from one corner to the next is inside.
    template <class Point>
    void addSide(const Point& from, const Point& to) {
        const std::int64_t x = to.x - from.x;
        const std::int64_t y = to.y - from.y;
        const std::int64_t px = static_cast<std::int64_t>(left_) * kGrid + kMiddle - from.x;
        const std::int64_t py = static_cast<std::int64_t>(top_) * kGrid + kMiddle - from.y;
        const bool owns = y < 0 || (y == 0 && x > 0);
        // 0 and above at a sample that is inside; first at the area's first one.
        const std::int64_t inside = x * py - y * px - (owns ? 0 : 1);
        if (y == 0) {
            addFlatSide(inside, x * kGrid);
            return;
        }
        const auto right = static_cast<double>(-y * kGrid);
        Edge edge{-static_cast<double>(inside) / right, -static_cast<double>(x * kGrid) / right};
        // Where a row crosses the side is an integer or further from one than this, which is more
        // than the error of the reckoning.
        constexpr double kNothing = 1.0 / (1 << 24U);
        edge.crossing += y < 0 ? -kNothing : kNothing;
        Edge& place = y < 0 ? begins_[begin_++ % 2] : ends_[end_++ % 2];
        place = edge;
    }

    int firstRow() const { return firstRow_; }
    int rows() const { return rows_; }

    // The samples of a row, counted from the area's left; last is included.
    int first(int row) const {
        const double exact =
            std::clamp(std::max(begins_[0].at(row), begins_[1].at(row)), 0.0, kFar);
        const int whole = static_cast<int>(exact);
        return whole + (exact > whole ? 1 : 0);
    }
    int last(int row) const {
        const double exact = std::clamp(std::min(ends_[0].at(row), ends_[1].at(row)), -1.0, kFar);
        return static_cast<int>(exact + 1) - 1;
    }

  private:
    struct Edge {
        double crossing;  // of the first row
        double step;      // what a row adds

        double at(int row) const { return crossing + row * step; }
    };
    static constexpr double kFar = 1 << 20U;

    // A level side begins or ends all rows at once.
    void addFlatSide(std::int64_t inside, std::int64_t down) {
        if (down > 0) {
            firstRow_ = inside < 0 ? 1 : 0;
        } else {
            rows_ = inside < 0
                        ? 0
                        : static_cast<int>(std::min<std::int64_t>(rows_, inside / -down + 1));
        }
    }

    int left_;
    int top_;
    int firstRow_ = 0;
    int rows_;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
    std::array<Edge, 2> begins_;
    std::array<Edge, 2> ends_;
};

struct RowOfPlane {
    float start;
    float right;

    float at(int column) const { return start + right * static_cast<float>(column); }
};

// Something that is interpolated over a triangle.
struct Plane {
    float start;  // at the first sample of the first row
    float right;  // what a step of a sample adds
    float down;

    RowOfPlane at(int row) const { return {start + down * static_cast<float>(row), right}; }
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
    const auto wide = static_cast<float>(part.texture->width * kPixel);
    const auto tall = static_cast<float>(part.texture->height * kPixel);
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
                          (vertex.u + moveU) * wide * nearness,
                          (vertex.v + moveV) * tall * nearness,
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
    const auto firstSample = [](std::int32_t place) { return (place + kMiddle - 1) >> kGridBits; };
    const Area area = {std::max(0, firstSample(std::min({a.x, b.x, c.x}))),
                       std::max(0, firstSample(std::min({a.y, b.y, c.y}))),
                       std::min(width_, firstSample(std::max({a.x, b.x, c.x}) + 1)),
                       std::min(height_, firstSample(std::max({a.y, b.y, c.y}) + 1))};
    if (area.left >= area.right || area.top >= area.bottom) {
        return;
    }
    Spans spans(area.left, area.top, area.right - area.left, area.bottom - area.top);
    spans.addSide(a, b);
    spans.addSide(b, c);
    spans.addSide(c, a);
    const float part = 1 / static_cast<float>(doubledArea(a, b, c));
    const auto planeOf = [&](float Corner::*item) {
        const float toB = b.*item - a.*item;
        const float toC = c.*item - a.*item;
        const float right =
            (toB * static_cast<float>(c.y - a.y) - toC * static_cast<float>(b.y - a.y)) * part;
        const float down =
            (toC * static_cast<float>(b.x - a.x) - toB * static_cast<float>(c.x - a.x)) * part;
        const float x = static_cast<float>(area.left * kGrid + kMiddle - a.x);
        const float y = static_cast<float>(area.top * kGrid + kMiddle - a.y);
        return Plane{a.*item + right * x + down * y, right * kGrid, down * kGrid};
    };
    const Plane nearness = planeOf(&Corner::nearness);
    const Plane u = planeOf(&Corner::u);
    const Plane v = planeOf(&Corner::v);
    const Plane light = planeOf(&Corner::light);
    const float lightShare = isFront ? 1 : kLining;
    const float depthShare = isFront ? 1 : kLiningDepth;
    const Sampler sampler(texture);

    for (int row = spans.firstRow(); row < spans.rows(); ++row) {
        const int first = spans.first(row);
        const int last = std::min(spans.last(row), area.right - area.left - 1);
        work_ -= std::max(0, last - first + 1) + 1;
        const std::size_t start =
            static_cast<std::size_t>(area.top + row) * static_cast<std::size_t>(width_) +
            static_cast<std::size_t>(area.left);
        const RowOfPlane nearRow = nearness.at(row);
        const RowOfPlane uRow = u.at(row);
        const RowOfPlane vRow = v.at(row);
        const RowOfPlane lightRow = light.at(row);
        float* const shown = nearness_.data() + start;
        std::uint32_t* const colours = colours_.data() + start;
        for (int x = first; x <= last; ++x) {
            const float near = nearRow.at(x);
            if (near * depthShare > shown[x]) {
                shown[x] = near;
                const float distance = 1 / near;
                colours[x] = sampler.colour(uRow.at(x) * distance, vRow.at(x) * distance,
                                            lightRow.at(x) * lightShare);
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
