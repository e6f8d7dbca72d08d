#include "canvas.h"

#include <algorithm>
#include <cmath>

namespace sample {
namespace {

constexpr int kOversize = 3;

std::uint8_t mixByte(int first, int second, int amount) {
    return static_cast<std::uint8_t>((first * (100 - amount) + second * amount) / 100);
}

bool insidePolygon(const std::vector<Point>& points, double x, double y) {
    bool inside = false;
    for (std::size_t i = 0, j = points.size() - 1; i < points.size(); j = i++) {
        const Point& a = points[i];
        const Point& b = points[j];
        if ((a.y > y) != (b.y > y) && x < (b.x - a.x) * (y - a.y) / (b.y - a.y) + a.x) {
            inside = !inside;
        }
    }
    return inside;
}

}  // namespace

Colour rgb(unsigned hex) {
    return {static_cast<std::uint8_t>(hex >> 16U), static_cast<std::uint8_t>(hex >> 8U),
            static_cast<std::uint8_t>(hex)};
}

Colour mix(Colour first, Colour second, int amount) {
    return {mixByte(first.r, second.r, amount), mixByte(first.g, second.g, amount),
            mixByte(first.b, second.b, amount)};
}

Canvas::Canvas(int width, int height)
    : width_(width * kOversize),
      height_(height * kOversize),
      unit_(height * kOversize / 100.0),
      pixels_(static_cast<std::size_t>(width_) * static_cast<std::size_t>(height_)) {}

void Canvas::place(Point origin, double scale, double width, double height) {
    origin_ = origin;
    scaleX_ = scale / 100 * width;
    scaleY_ = scale / 100 * height;
}

Point Canvas::mapped(Point point) const {
    return {(origin_.x + point.x * scaleX_) * unit_, (origin_.y + point.y * scaleY_) * unit_};
}

Canvas::Box Canvas::clipped(double left, double top, double right, double bottom) const {
    return {std::max(0, static_cast<int>(std::floor(left))),
            std::max(0, static_cast<int>(std::floor(top))),
            std::min(width_ - 1, static_cast<int>(std::ceil(right))),
            std::min(height_ - 1, static_cast<int>(std::ceil(bottom)))};
}

void Canvas::fill(Colour top, Colour bottom) {
    for (int y = 0; y < height_; ++y) {
        const Colour row = mix(top, bottom, y * 100 / height_);
        std::fill_n(pixels_.begin() + static_cast<std::ptrdiff_t>(y) * width_, width_, row);
    }
}

void Canvas::dome(Point centre, double radiusX, double radiusY, double cutY, Colour colour) {
    const Point c = mapped(centre);
    const double cut = mapped({0, cutY}).y;
    const double rx = radiusX * scaleX_ * unit_;
    const double ry = radiusY * scaleY_ * unit_;
    const Box box = clipped(c.x - rx, c.y - ry, c.x + rx, std::min(c.y + ry, cut));
    for (int y = box.top; y <= box.bottom; ++y) {
        for (int x = box.left; x <= box.right; ++x) {
            const double dx = (x + 0.5 - c.x) / rx;
            const double dy = (y + 0.5 - c.y) / ry;
            if (dx * dx + dy * dy <= 1) {
                pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                        static_cast<std::size_t>(x)] = colour;
            }
        }
    }
}

void Canvas::ellipse(Point centre, double radiusX, double radiusY, Colour colour) {
    dome(centre, radiusX, radiusY, centre.y + radiusY + 1, colour);
}

void Canvas::polygon(const std::vector<Point>& points, Colour colour) {
    std::vector<Point> big;
    Point low{1e9, 1e9};
    Point high{-1e9, -1e9};
    for (const Point& point : points) {
        big.push_back(mapped(point));
        low = {std::min(low.x, big.back().x), std::min(low.y, big.back().y)};
        high = {std::max(high.x, big.back().x), std::max(high.y, big.back().y)};
    }
    const Box box = clipped(low.x, low.y, high.x, high.y);
    for (int y = box.top; y <= box.bottom; ++y) {
        for (int x = box.left; x <= box.right; ++x) {
            if (insidePolygon(big, x + 0.5, y + 0.5)) {
                pixels_[static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                        static_cast<std::size_t>(x)] = colour;
            }
        }
    }
}

void Canvas::rect(double left, double top, double right, double bottom, Colour colour) {
    polygon({{left, top}, {right, top}, {right, bottom}, {left, bottom}}, colour);
}

void Canvas::stroke(const std::vector<Point>& points, double width, Colour colour) {
    const double half = width / 2;
    for (std::size_t i = 0; i < points.size(); ++i) {
        ellipse(points[i], half, half, colour);
        if (i + 1 == points.size()) {
            break;
        }
        const Point a = points[i];
        const Point b = points[i + 1];
        const double dx = b.x - a.x;
        const double dy = b.y - a.y;
        const double length = std::sqrt(dx * dx + dy * dy);
        if (length > 0) {
            const double nx = -dy / length * half;
            const double ny = dx / length * half;
            polygon({{a.x + nx, a.y + ny},
                     {b.x + nx, b.y + ny},
                     {b.x - nx, b.y - ny},
                     {a.x - nx, a.y - ny}},
                    colour);
        }
    }
}

Picture Canvas::finished() const {
    Picture picture{width_ / kOversize, height_ / kOversize, {}};
    picture.pixels.reserve(pixels_.size() / kOversize / kOversize);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            int r = 0;
            int g = 0;
            int b = 0;
            for (int i = 0; i < kOversize * kOversize; ++i) {
                const int row = y * kOversize + i / kOversize;
                const int column = x * kOversize + i % kOversize;
                const Colour& c =
                    pixels_[static_cast<std::size_t>(row) * static_cast<std::size_t>(width_) +
                            static_cast<std::size_t>(column)];
                r += c.r;
                g += c.g;
                b += c.b;
            }
            constexpr int kSamples = kOversize * kOversize;
            picture.pixels.push_back({static_cast<std::uint8_t>(r / kSamples),
                                      static_cast<std::uint8_t>(g / kSamples),
                                      static_cast<std::uint8_t>(b / kSamples)});
        }
    }
    return picture;
}

}  // namespace sample
