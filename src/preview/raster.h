// Draws a figure into pixels, without help of any graphics card: the same pixels on every system.
#pragma once

#include <cstdint>
#include <vector>

#include "preview/figure.h"
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
    // drawn in time the rest is left out.
    const std::vector<std::uint32_t>& draw(const Figure& figure, const View& view, int width,
                                           int height, std::uint32_t background = 0);

  private:
    struct Camera;
    // A vertex on the picture, in sixteenths of a sample from the upper left corner. What is
    // divided by the distance can be interpolated between vertices.
    struct Corner {
        std::int32_t x = 0;
        std::int32_t y = 0;
        float nearness = 0;  // 1 / distance; 0 for a vertex that can't be drawn
        float u = 0;         // in 1/256 of the texture's pixels, times nearness; never below 0
        float v = 0;         // likewise
        float light = 0;     // 0 to 256
    };
    // In samples; right and bottom aren't included.
    struct Area {
        int left = 0;
        int top = 0;
        int right = 0;
        int bottom = 0;
    };

    void prepare(int width, int height);
    Camera cameraFor(const FigureBounds& bounds, const View& view) const;
    void project(const FigurePart& part, const Camera& camera);
    void drawFaces(const FigurePart& part, const Corner* corners, bool fronts);
    // The corners come clockwise.
    void drawTriangle(const Corner& a, const Corner& b, const Corner& c, const Texture& texture,
                      bool isFront);
    void resolve(std::uint32_t background);

    int width_ = 0;  // of the buffers, in samples, two a pixel each way
    int height_ = 0;
    Area touched_;                        // what isn't cleared
    std::int64_t work_ = 0;               // samples that may yet be looked at
    std::vector<Corner> corners_;         // of all parts, one behind the other
    std::vector<float> nearness_;         // of what a sample shows, 0 where that is nothing
    std::vector<std::uint32_t> colours_;  // 0xFFRRGGBB, 0 where nothing is
    std::vector<std::uint32_t> pixels_;
};

}  // namespace marlowick
