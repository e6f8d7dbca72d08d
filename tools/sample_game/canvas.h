// A small drawing surface. Shapes are drawn on three times the size and averaged
// down, so that edges are smooth. Coordinates are units of a square of 100 by 100
// (wider for a strip), from the upper left corner.
#pragma once

#include <cstdint>
#include <vector>

namespace sample {

struct Colour {
    std::uint8_t r = 0, g = 0, b = 0;
};

Colour rgb(unsigned hex);
// Between two colours; amount 0 to 100 is the share of the second, in percent.
Colour mix(Colour first, Colour second, int amount);
inline Colour darker(Colour colour, int amount = 20) {
    return mix(colour, Colour{}, amount);
}
inline Colour lighter(Colour colour, int amount = 25) {
    return mix(colour, Colour{255, 255, 255}, amount);
}

struct Point {
    double x = 0;
    double y = 0;
};

// A finished picture, rows from the top.
struct Picture {
    int width = 0;
    int height = 0;
    std::vector<Colour> pixels;
};

class Canvas {
  public:
    // Size in pixels of the finished picture; the height spans 100 units.
    Canvas(int width, int height);

    void fill(Colour top, Colour bottom);
    void ellipse(Point centre, double radiusX, double radiusY, Colour colour);
    void polygon(const std::vector<Point>& points, Colour colour);
    void rect(double left, double top, double right, double bottom, Colour colour);
    // A line with round ends.
    void stroke(const std::vector<Point>& points, double width, Colour colour);
    // Half of an ellipse, from one angle side: the upper part above y.
    void dome(Point centre, double radiusX, double radiusY, double cutY, Colour colour);
    // Moves what is drawn next; scale in percent, width and height in shares of it.
    void place(Point origin, double scale, double width = 1, double height = 1);

    Picture finished() const;

  private:
    struct Box {
        int left, top, right, bottom;
    };
    Box clipped(double left, double top, double right, double bottom) const;
    Point mapped(Point point) const;

    int width_;
    int height_;
    double unit_;  // big pixels a unit
    Point origin_;
    double scaleX_ = 1;
    double scaleY_ = 1;
    std::vector<Colour> pixels_;
};

}  // namespace sample
