// Draws a figure into pixels, without help of any graphics card: the same pixels on every system.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "preview/figure.h"
#include "preview/lanes.h"
#include "preview/vector.h"

namespace marlowick {

struct View {
    float yaw = 0;    // degrees that the front is turned to the right
    float pitch = 0;  // degrees by which it is looked down upon, -30 to 30
    float zoom = 1;   // 1 frames the whole figure, larger comes nearer, up to 8
};

inline constexpr float kSteepestPitch = 30;
inline constexpr float kNearestZoom = 8;

// Keeps its buffers from one picture to the next.
class Raster {
  public:
    // The figure as it is seen, in a picture of so many pixels: rows from the top, without gaps,
    // each pixel ARGB with its colours multiplied by its alpha, as the background's are (0 is
    // transparent). Pitch and zoom beyond their bounds count as the bounds. Good until the next
    // call; empty for a picture without an area. Of faces that are too many and too large to be
    // drawn in time the rest is left out; so is a face that reaches further than 15,000 pixels from
    // the upper left corner. The figure comes from makeFigure.
    const std::vector<std::uint32_t>& draw(const Figure& figure, const View& view, int width,
                                           int height, std::uint32_t background = 0);

  private:
    struct Camera;
    // A vertex on the picture, in sixteenths of a sample from the upper left corner. What is
    // divided by the distance can be interpolated between vertices.
    struct Corner {
        // The place in the texture, across and down, in 1/256 of its pixels and never below 0; the
        // light, 0 to 256; and 1: all times the nearness.
        Floats items = {};
        std::int32_t x = 0;
        std::int32_t y = 0;
        float near = 0;  // 1 / distance; 0 for a vertex that can't be drawn
    };
    // What is interpolated over a triangle: a corner's items, as they change from sample to sample.
    struct Planes {
        Floats start;  // at one sample
        Floats right;  // what a step of a sample adds
        Floats down;
    };
    // A triangle of which a sample shows something; its planes' places are of the level's pixels.
    struct Shown {
        Planes planes;
        float x;  // of the start, in samples
        float y;
        const TextureLevel* level;
    };
    // The four samples of a pixel: the upper two, then the lower two.
    struct Cell {
        Floats nearness = {};  // of what it shows, 0 where that is nothing
        Ints shown = {};       // which triangle; 0 where nothing is
    };
    // A face seen from behind; its corners come clockwise.
    struct Back {
        const Corner* a;
        const Corner* b;
        const Corner* c;
        const TextureLevels* texture;
    };
    // In samples; right and bottom aren't included.
    struct Area {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };

    void prepare(const Figure& figure, int width, int height);
    Camera cameraFor(const FigureBounds& bounds, const View& view) const;
    void project(const FigurePart& part, const Camera& camera);
    // Keeps for later what is seen from behind.
    void drawFronts(const FigurePart& part, const Corner* corners);
    void drawBacks();
    std::size_t tileAt(int x, int y) const;
    void findFarthest();
    // Whether all samples that a face may have show something that is nearer than all of it.
    bool isHidden(const Back& back);
    // The samples whose middles can lie inside.
    Area areaOf(const Corner& a, const Corner& b, const Corner& c) const;
    // The corners come clockwise.
    void drawTriangle(const Corner& a, const Corner& b, const Corner& c,
                      const TextureLevels& texture);
    // The same from the uppermost corner on. Whether a sample was nearer than what it showed.
    bool drawSamples(const Corner& top, const Corner& next, const Corner& last, const Area& area,
                     const Planes& planes, std::int32_t number);
    // A triangle that starts in the area's first sample, with a level of its texture.
    void keep(const Planes& planes, const Area& area, const TextureLevels& texture,
              std::size_t number);
    void resolve(std::uint32_t background);
    // What a triangle shows at a place, in samples.
    Words colourOf(std::uint32_t number, float x, float y) const;
    // A pixel whose samples don't show the same; the first of them is at that place.
    std::uint32_t mixed(const Ints& shown, float x, float y) const;
    // The pixel of a sample.
    Cell* cellAt(int x, int y);

    int width_ = 0;  // of the buffers, in samples, two a pixel each way
    int height_ = 0;
    Area touched_;                 // what isn't cleared
    std::int64_t work_ = 0;        // samples and tiles that may yet be looked at
    std::vector<Corner> corners_;  // of all parts, one behind the other
    std::vector<Back> backs_;
    std::vector<Shown> triangles_;  // the first one is number 2 or, to be sampled, 3; and so on
    std::vector<Cell> cells_;       // of each pixel
    // Of each tile of the picture that lies in it whole, the least nearness; else 0.
    int tiles_ = 0;  // a row
    std::vector<float> farthest_;
    std::vector<std::uint32_t> pixels_;
};

}  // namespace marlowick
