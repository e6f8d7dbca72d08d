#include "preview/raster.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstring>

namespace marlowick {
namespace {

constexpr int kSamples = 2;  // a pixel, each way, as many as a cell has: what smooths the edges
constexpr int kGridBits = 4;
constexpr int kGrid = 1 << kGridBits;  // places a sample, each way, that a vertex can have
constexpr int kMiddle = kGrid / 2;
constexpr float kMargin = 0.03F;
constexpr float kDistance = 5;    // of the eye, in sizes of the figure
constexpr float kClosest = 0.1F;  // of that distance: what comes closer isn't drawn
constexpr float kFarOut = 30000;  // samples from the picture's upper left corner: likewise
// Where a near look goes: up from the middle to the chest, by so much of the height.
constexpr float kNearLook = 0.22F;

// The light comes from the front, from above and from the left.
constexpr Vector kLight = {-0.35F, 0.5F, 0.79F};
constexpr float kAmbient = 0.46F;
// Reaches a little round the edge of what it shines on.
constexpr float kReach = 0.35F;
constexpr float kFullLight = 256;
// In 1/256 pixels of a texture: no place counts as further right or down.
constexpr float kFarthestPixel = 1073741824.0F;
// A face seen from behind: the lining of a skirt.
constexpr float kLining = 0.55F;
constexpr float kLiningDepth = 0.9995F;

// Of a texture a pixel takes at most so many pixels; of what would be more a halved copy is taken.
constexpr float kMostCovered = 4;
// With more than this, each sample takes its own: a fine pattern that is taken once a pixel shows
// up as a coarse one, which flickers while the figure turns.
constexpr float kMostCoveredAtOnce = 1;
constexpr std::uint32_t kSampled = 1;  // of a number of a triangle

// A tile of the picture, each way in samples: where a face is further away than all of a tile, it
// isn't seen there.
constexpr int kTile = 8;

// A picture's work, in samples that are looked at: so many for each that it has, but no fewer than
// the least. A face takes some by itself.
constexpr std::int64_t kWorkASample = 48;
constexpr std::int64_t kWorkAFace = 16;
constexpr std::int64_t kLeastWork = 4 << 20U;

// How a surface that looks that much towards the light is lit.
float lightOf(float towards) {
    const float facing = std::max(0.0F, (towards + kReach) * (1 / (1 + kReach)));
    return std::min(kFullLight, (kAmbient + (1 - kAmbient) * facing) * kFullLight);
}

float square(float value) {
    return value * value;
}

float finite(float value) {
    return std::isfinite(value) ? value : 0;
}

// Pixels of a texture are counted in 1/256.
constexpr int kPixel = 256;

constexpr std::uint16_t kFull = 255;
constexpr Words kOpaque = {0, 0, 0, kFull, 0, 0, 0, kFull};

// Which of a corner's items is which.
enum Item : std::uint8_t { kAcross, kDown, kLit, kNear };

using EightBytes = std::uint8_t __attribute__((vector_size(8)));

// Two pixels that lie side by side, a channel a lane.
Words channelsOfTwo(const std::uint32_t* pixels) {
    std::uint64_t both = 0;
    std::memcpy(&both, pixels, sizeof both);
    const auto bytes = std::bit_cast<Bytes>(Longs{both, 0});
    return std::bit_cast<Words>(__builtin_shufflevector(bytes, Bytes{}, 0, 16, 1, 17, 2, 18, 3, 19,
                                                        4, 20, 5, 21, 6, 22, 7, 23));
}

// One of a few words, in all lanes.
template <int word>
Words everywhere(const Words& words) {
    return __builtin_shufflevector(words, words, word, word, word, word, word, word, word, word);
}

// So far on the way from one to the other, in 1/256. What leaves its 16 bits on the way comes back.
Words between(const Words& from, const Words& to, const Words& part) {
    return (from * kPixel + (to - from) * part + kPixel / 2) / kPixel;
}

// The pixel of a row or column; those beyond its end repeat it.
std::uint32_t wrapped(std::uint32_t pixel, int size, bool isPowerOfTwo) {
    const auto count = static_cast<std::uint32_t>(size);
    return isPowerOfTwo ? pixel & (count - 1) : pixel % count;
}

// The texture at a place, mixed from the four pixels around it, in some light, in the lower lanes.
// Across and down are in 1/256 of the level's pixels, so much further right and down that the
// middles of pixels count; light is in 1/256.
Words colourAt(const TextureLevel& level, const Ints& place) {
    const auto across = static_cast<std::uint32_t>(place[kAcross]) / kPixel;
    const auto down = static_cast<std::uint32_t>(place[kDown]) / kPixel;
    const std::uint32_t* upper = level.pixels.data() +
                                 wrapped(down, level.height, level.isPowerOfTwo) * level.stride() +
                                 wrapped(across, level.width, level.isPowerOfTwo);
    const auto parts =
        std::bit_cast<Words>(place & Ints{kPixel - 1, kPixel - 1, 2 * kPixel - 1, 0});
    const Words left = between(channelsOfTwo(upper), channelsOfTwo(upper + level.stride()),
                               everywhere<2 * kDown>(parts));
    const Words right = __builtin_shufflevector(left, left, 4, 5, 6, 7, 4, 5, 6, 7);
    return between(left, right, everywhere<2 * kAcross>(parts)) * everywhere<2 * kLit>(parts) /
           kPixel;
}

std::uint32_t pixelOf(const Words& channels) {
    const auto bytes = __builtin_convertvector(channels, EightBytes);
    std::uint32_t pixel = 0;
    std::memcpy(&pixel, &bytes, sizeof pixel);
    return pixel;
}

// Where a side of a triangle crosses two rows of samples, one below the other; then the next two.
struct Side {
    Doubles crossing;
    Doubles step;

    void goDown() { crossing += step; }
};

// From that row on. A side crosses a row at the first sample whose middle doesn't lie left of it:
// the whole part of what is told. The side isn't level.
template <class Point>
Side sideOf(const Point& from, const Point& to, int row) {
    const std::int64_t x = to.x - from.x;
    const std::int64_t y = to.y - from.y;
    const std::int64_t below = static_cast<std::int64_t>(row) * kGrid + kMiddle - from.y;
    const std::int64_t crossing = (from.x - kMiddle) * y + below * x;
    // That over 16 y. Made less by half of one it is never a whole number, and further from one
    // than all errors of the reckoning.
    const double part = 1 / static_cast<double>(y * kGrid);
    const double first = (static_cast<double>(crossing) - (y < 0 ? -0.5 : 0.5)) * part + 1;
    const double step = static_cast<double>(x * kGrid) * part;
    return {Doubles{first, first + step}, Doubles{2 * step, 2 * step}};
}

// Tells which samples of two rows lie in a triangle whose corners come clockwise, the uppermost one
// first. A sample on the line between two triangles belongs to the one below it or to its right.
class Spans {
  public:
    // From a row on, in a picture of so many samples a row.
    template <class Point>
    Spans(const Point& top, const Point& next, const Point& last, int row, int width)
        : begin_(last.y > top.y ? sideOf(top, last, row) : uprightAt(0)),
          end_(next.y > top.y ? sideOf(top, next, row) : uprightAt(width)),
          otherBegin_(uprightAt(0)),
          otherEnd_(uprightAt(width)) {
        if (next.y != last.y) {
            (next.y > last.y ? otherBegin_ : otherEnd_) = sideOf(next, last, row);
        }
    }

    // The first sample of both rows and the one behind the last, each twice. What lies left of the
    // picture may come out as its first sample. Rows above and below the triangle have no samples
    // between, unless one of its sides is level.
    Ints first() const { return wholeTwice(larger(begin_.crossing, otherBegin_.crossing)); }
    Ints end() const { return wholeTwice(smaller(end_.crossing, otherEnd_.crossing)); }

    void goDown() {
        begin_.goDown();
        otherBegin_.goDown();
        end_.goDown();
        otherEnd_.goDown();
    }

  private:
    static Side uprightAt(double x) { return {Doubles{x, x}, Doubles{}}; }

    Side begin_;
    Side end_;
    Side otherBegin_;
    Side otherEnd_;
};

// The first row or column of samples whose middles don't lie before a place.
int firstSample(std::int32_t place) {
    return (place + kMiddle - 1) >> kGridBits;
}

// Above 0 for corners that come clockwise, in the grid's places.
template <class Point>
std::int64_t doubledArea(const Point& a, const Point& b, const Point& c) {
    return static_cast<std::int64_t>(b.x - a.x) * (c.y - a.y) -
           static_cast<std::int64_t>(b.y - a.y) * (c.x - a.x);
}

// The texture's pixels that a pixel of the picture covers; from one sample to the next, places in
// the texture, in 1/256 of its pixels, change by these.
float coveredPixels(const Floats& right, const Floats& down) {
    constexpr float kPart = float{kSamples * kSamples} / (kPixel * kPixel);
    return std::abs(right[kAcross] * down[kDown] - right[kDown] * down[kAcross]) * kPart;
}

// Of the samples of a pixel: the upper left one is 1, the one to its right 2, those below 4 and 8.
constexpr unsigned kAllSamples = 15;

// Some of a pixel's samples: how many, and their middle, from the first one of the four.
struct Group {
    std::uint16_t count;
    float x;
    float y;
};

using Groups = std::array<Group, std::size_t{kAllSamples} + 1>;

constexpr Groups groupsOfSamples() {
    Groups groups = {};
    for (unsigned samples = 1; samples <= kAllSamples; ++samples) {
        const auto count = static_cast<float>(std::popcount(samples));
        groups[samples] = {static_cast<std::uint16_t>(std::popcount(samples)),
                           static_cast<float>(std::popcount(samples & 10U)) / count,
                           static_cast<float>(std::popcount(samples & 12U)) / count};
    }
    return groups;
}
constexpr Groups kGroups = groupsOfSamples();

// The place of a float on the grid, rounded.
std::int32_t onGrid(float place) {
    const float exact = place * kGrid + 0.5F;
    const auto whole = static_cast<std::int32_t>(exact);
    return whole - (exact < static_cast<float>(whole) ? 1 : 0);
}

// The pixels of so many samples each way.
std::size_t cellsOf(int width, int height) {
    return static_cast<std::size_t>(width / kSamples) * static_cast<std::size_t>(height / kSamples);
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

struct Raster::Camera {
    Turn turn;
    Vector light;  // where it comes from, as the figure sees it
    Vector centre;
    float distance = 0;
    float scale = 0;  // samples, of what is one wide at a distance of one
    float x = 0;      // where the centre of the figure goes, in samples
    float y = 0;
};

const std::vector<std::uint32_t>& Raster::draw(const Figure& figure, const View& view, int width,
                                               int height, std::uint32_t background) {
    prepare(figure, width, height);
    const Camera camera = cameraFor(figure.bounds, view);
    for (const FigurePart& part : figure.parts) {
        project(part, camera);
    }
    const Corner* corners = corners_.data();
    for (const FigurePart& part : figure.parts) {
        drawFronts(part, corners);
        corners += part.vertices.size();
    }
    // What is seen from behind comes last: it is hidden almost everywhere.
    drawBacks();
    resolve(background);
    return pixels_;
}

// All memory is taken before anything is drawn, so that what fails leaves clear cells.
void Raster::prepare(const Figure& figure, int width, int height) {
    const bool hasArea = width > 0 && height > 0;
    width_ = hasArea ? width * kSamples : 0;
    height_ = hasArea ? height * kSamples : 0;
    const std::size_t pixels = cellsOf(width_, height_);
    pixels_.resize(pixels);
    // Between two pictures the cells are clear.
    cells_.resize(pixels);
    tiles_ = width_ / kTile;
    farthest_.assign(static_cast<std::size_t>(tiles_) * static_cast<std::size_t>(height_ / kTile),
                     0);
    std::size_t vertices = 0;
    std::size_t faces = 0;
    for (const FigurePart& part : figure.parts) {
        vertices += part.vertices.size();
        faces += part.faces.size();
    }
    corners_.clear();
    corners_.reserve(vertices);
    backs_.clear();
    backs_.reserve(faces);
    triangles_.clear();
    triangles_.reserve(faces);
    touched_ = {width_, height_, 0, 0};
    work_ = std::max(kLeastWork,
                     static_cast<std::int64_t>(pixels) * kWorkASample * kSamples * kSamples);
}

Raster::Cell* Raster::cellAt(int x, int y) {
    return cells_.data() + cellsOf(width_, y) + x / kSamples;
}

Raster::Camera Raster::cameraFor(const FigureBounds& bounds, const View& view) const {
    const float pitch = std::clamp(finite(view.pitch), -kSteepestPitch, kSteepestPitch);
    const float zoom = std::clamp(finite(view.zoom), 1.0F, kNearestZoom);
    Camera camera;
    camera.turn = turnAboutX(pitch) * turnAboutY(finite(view.yaw));
    camera.light = camera.turn.rows[0] * kLight.x + camera.turn.rows[1] * kLight.y +
                   camera.turn.rows[2] * kLight.z;
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
    const float wide = static_cast<float>(part.texture->width) * kPixel;
    const float tall = static_cast<float>(part.texture->height) * kPixel;
    for (const FigureVertex& vertex : part.vertices) {
        const Vector place = camera.turn * (vertex.position - camera.centre);
        const float distance = camera.distance - place.z;
        Corner corner;
        if (distance > camera.distance * kClosest) {
            const float nearness = 1 / distance;
            const float x = camera.x + camera.scale * place.x * nearness;
            const float y = camera.y - camera.scale * place.y * nearness;
            if (std::abs(x) < kFarOut && std::abs(y) < kFarOut) {
                const Floats items = {(vertex.u + moveU) * wide, (vertex.v + moveV) * tall,
                                      lightOf(dot(vertex.normal, camera.light)), 1};
                corner = {items * nearness, onGrid(x), onGrid(y), nearness};
            }
        }
        corners_.push_back(corner);
    }
}

void Raster::drawFronts(const FigurePart& part, const Corner* corners) {
    for (const FigureFace& face : part.faces) {
        const Corner& a = corners[face[0]];
        const Corner& b = corners[face[1]];
        const Corner& c = corners[face[2]];
        work_ -= kWorkAFace;
        if (work_ < 0) {
            return;
        }
        if (!(a.near > 0 && b.near > 0 && c.near > 0)) {
            continue;
        }
        const std::int64_t area = doubledArea(a, b, c);
        if (area > 0) {
            drawTriangle(a, b, c, *part.levels);
        } else if (area < 0) {
            backs_.push_back({&a, &c, &b, part.levels.get()});
        }
    }
}

void Raster::drawBacks() {
    if (backs_.empty()) {
        return;
    }
    findFarthest();
    const auto lining = [](const Corner& corner) {
        constexpr Floats kShares = {kLiningDepth, kLiningDepth, kLiningDepth * kLining,
                                    kLiningDepth};
        return Corner{corner.items * kShares, corner.x, corner.y, corner.near * kLiningDepth};
    };
    for (const Back& back : backs_) {
        work_ -= kWorkAFace;
        if (work_ < 0) {
            return;
        }
        if (!isHidden(back)) {
            drawTriangle(lining(*back.a), lining(*back.b), lining(*back.c), *back.texture);
        }
    }
}

Raster::Area Raster::areaOf(const Corner& a, const Corner& b, const Corner& c) const {
    return {std::max(0, firstSample(std::min({a.x, b.x, c.x}))),
            std::max(0, firstSample(std::min({a.y, b.y, c.y}))),
            std::min(width_, firstSample(std::max({a.x, b.x, c.x}))),
            std::min(height_, firstSample(std::max({a.y, b.y, c.y})))};
}

std::size_t Raster::tileAt(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(tiles_) +
           static_cast<std::size_t>(x);
}

void Raster::findFarthest() {
    const int right = std::min(tiles_, touched_.right / kTile);
    const int bottom = std::min(height_ / kTile, touched_.bottom / kTile);
    for (int y = touched_.top / kTile; y < bottom; ++y) {
        for (int x = touched_.left / kTile; x < right; ++x) {
            constexpr int kPixels = kTile / kSamples;
            const Cell* row = cellAt(x * kTile, y * kTile);
            Floats least = row->nearness;
            for (int i = 0; i < kPixels; ++i, row += width_ / kSamples) {
                for (int j = 0; j < kPixels; ++j) {
                    least = smaller(least, row[j].nearness);
                }
            }
            farthest_[tileAt(x, y)] = std::min({least[0], least[1], least[2], least[3]});
        }
    }
}

bool Raster::isHidden(const Back& back) {
    const Area area = areaOf(*back.a, *back.b, *back.c);
    if (area.right > tiles_ * kTile || area.bottom > height_ / kTile * kTile) {
        return false;
    }
    const float nearest = std::max({back.a->near, back.b->near, back.c->near});
    for (int y = area.top / kTile; y * kTile < area.bottom; ++y) {
        work_ -= 1 + std::max(0, area.right - area.left) / kTile;
        for (int x = area.left / kTile; x * kTile < area.right; ++x) {
            if (farthest_[tileAt(x, y)] < nearest) {
                return false;
            }
        }
    }
    return true;
}

void Raster::drawTriangle(const Corner& a, const Corner& b, const Corner& c,
                          const TextureLevels& texture) {
    const Area area = areaOf(a, b, c);
    if (area.left >= area.right || area.top >= area.bottom) {
        return;
    }
    const float part = 1 / static_cast<float>(doubledArea(a, b, c));
    const Floats toB = (b.items - a.items) * part;
    const Floats toC = (c.items - a.items) * part;
    Planes planes;
    planes.right = toB * static_cast<float>(c.y - a.y) - toC * static_cast<float>(b.y - a.y);
    planes.down = toC * static_cast<float>(b.x - a.x) - toB * static_cast<float>(c.x - a.x);
    planes.start = a.items + planes.right * static_cast<float>(area.left * kGrid + kMiddle - a.x) +
                   planes.down * static_cast<float>(area.top * kGrid + kMiddle - a.y);
    planes.right *= float{kGrid};
    planes.down *= float{kGrid};
    // How the items change at a corner once they are divided by the nearness.
    const Floats there = a.items / a.near;
    float covered = coveredPixels((planes.right - there * planes.right[kNear]) / a.near,
                                  (planes.down - there * planes.down[kNear]) / a.near);
    std::size_t level = 0;
    for (; covered > kMostCovered && level + 1 < texture.size(); ++level) {
        covered /= 4;
    }
    const auto number = static_cast<std::int32_t>(2 * (triangles_.size() + 1) +
                                                  (covered > kMostCoveredAtOnce ? kSampled : 0));
    const bool isSeen = b.y < a.y && b.y <= c.y ? drawSamples(b, c, a, area, planes, number)
                        : c.y < a.y             ? drawSamples(c, a, b, area, planes, number)
                                                : drawSamples(a, b, c, area, planes, number);
    if (isSeen) {
        touched_ = {std::min(touched_.left, area.left), std::min(touched_.top, area.top),
                    std::max(touched_.right, area.right), std::max(touched_.bottom, area.bottom)};
        keep(planes, area, texture, level);
    }
}

void Raster::keep(const Planes& planes, const Area& area, const TextureLevels& texture,
                  std::size_t number) {
    const TextureLevel& level = texture[number];
    const auto across = static_cast<float>(level.width);
    const auto down = static_cast<float>(level.height);
    const Floats scale = {across / static_cast<float>(texture[0].width),
                          down / static_cast<float>(texture[0].height), 1, 1};
    // The middles of pixels count. Moved to where nothing is below 0.
    constexpr float kHalf = float{kPixel} / 2;
    const Floats shift = {across * kPixel - kHalf, down * kPixel - kHalf, 0, 0};
    const auto onLevel = [&](const Floats& items) { return items * scale + shift * items[kNear]; };
    triangles_.push_back({{onLevel(planes.start), onLevel(planes.right), onLevel(planes.down)},
                          static_cast<float>(area.left),
                          static_cast<float>(area.top),
                          &level});
}

bool Raster::drawSamples(const Corner& top, const Corner& next, const Corner& last,
                         const Area& area, const Planes& planes, std::int32_t number) {
    const int firstRow = area.top / kSamples * kSamples;
    Spans spans(top, next, last, firstRow, width_);
    const float right = planes.right[kNear];
    const float down = planes.down[kNear];
    const Floats twoRight = Floats{} + right * kSamples;
    const Floats twoDown = Floats{} + down * kSamples;
    Floats nearRow = planes.start[kNear] + right * Floats{0, 1, 0, 1} +
                     down * (Floats{0, 0, 1, 1} - static_cast<float>(area.top - firstRow));
    const int cellsARow = width_ / kSamples;
    Cell* row = cellAt(0, firstRow);
    std::int64_t work = area.bottom - area.top;
    Ints changed = {};  // how often, the first of the samples and so on
    // Of a level side the others don't tell which rows lie beyond it.
    const bool isLevel = top.y == next.y || top.y == last.y || next.y == last.y;
    for (int y = firstRow; y < area.bottom; y += kSamples) {
        const Ints before = spans.first() - 1;
        Ints end = spans.end();
        spans.goDown();
        if (isLevel) {
            const Ints rows = y + Ints{0, 0, 1, 1};
            end &= (rows >= area.top) & (rows < area.bottom);
        }
        int x = std::max(area.left, std::min(before[0], before[2]) + 1) / kSamples * kSamples;
        const int behind = std::min(area.right, std::max(end[0], end[2]));
        work += std::max(0, behind - x);
        Floats near = nearRow + right * static_cast<float>(x - area.left);
        Ints columns = x + Ints{0, 1, 0, 1};
        for (Cell* cell = row + x / kSamples; x < behind; x += kSamples, ++cell) {
            // Nothing is nearer than 0.
            const auto inside = std::bit_cast<Floats>(std::bit_cast<Ints>(near) &
                                                      (columns > before) & (end > columns));
            const Ints nearer = inside > cell->nearness;
            cell->nearness = larger(inside, cell->nearness);
            cell->shown ^= (cell->shown ^ number) & nearer;
            changed -= nearer;
            near += twoRight;
            columns += kSamples;
        }
        nearRow += twoDown;
        row += cellsARow;
    }
    work_ -= kSamples * work;
    return bitsOf(changed != 0) != 0;
}

void Raster::resolve(std::uint32_t background) {
    std::fill(pixels_.begin(), pixels_.end(), background);
    const int left = touched_.left / kSamples;
    const int right = (touched_.right + 1) / kSamples;
    for (int y = touched_.top / kSamples; y * kSamples < touched_.bottom; ++y) {
        Cell* cells = cellAt(0, y * kSamples);
        std::uint32_t* result = pixels_.data() + cellsOf(width_, y * kSamples);
        for (int x = left; x < right; ++x) {
            const auto shown = std::bit_cast<std::array<std::uint64_t, 2>>(cells[x].shown);
            const auto one = static_cast<std::uint32_t>(shown[0]);
            const auto across = static_cast<float>(x * kSamples);
            const auto down = static_cast<float>(y * kSamples);
            if (shown[0] != shown[1] || shown[0] >> 32U != one || (one & kSampled) != 0) {
                result[x] = over(mixed(cells[x].shown, across, down), result[x]);
            } else if (one != 0) {
                constexpr float kToMiddle = 0.5F;
                result[x] = pixelOf(colourOf(one, across + kToMiddle, down + kToMiddle) | kOpaque);
            }
        }
        std::fill(cells + left, cells + std::max(left, right), Cell{});
    }
}

Words Raster::colourOf(std::uint32_t number, float x, float y) const {
    const Shown& shown = triangles_[number / 2 - 1];
    const Floats items =
        shown.planes.start + shown.planes.right * (x - shown.x) + shown.planes.down * (y - shown.y);
    const Floats there = items / items[kNear];
    // What is interpolated can be a little off its bounds; what is no number is 0.
    constexpr Floats kMost = {kFarthestPixel, kFarthestPixel, kFullLight, 1};
    return colourAt(*shown.level,
                    __builtin_convertvector(smaller(larger(there, Floats{}), kMost), Ints));
}

std::uint32_t Raster::mixed(const Ints& shown, float x, float y) const {
    const auto numbers = std::bit_cast<std::array<std::uint32_t, 4>>(shown);
    Words sum = {2, 2, 2, 2};
    for (unsigned rest = bitsOf(shown != 0); rest != 0;) {
        const std::uint32_t number = numbers[static_cast<std::size_t>(std::countr_zero(rest))];
        const unsigned samples = (number & kSampled) != 0
                                     ? rest & ~(rest - 1)
                                     : bitsOf(shown == static_cast<std::int32_t>(number));
        rest &= ~samples;
        const Group& group = kGroups[samples];
        sum += (colourOf(number, x + group.x, y + group.y) | kOpaque) * group.count;
    }
    return pixelOf(sum / 4);
}

}  // namespace marlowick
