// Drawing a sim as it is worn.
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdint>
#include <vector>

#include "bench/ratio.h"
#include "bench/sim_figure.h"
#include "preview/raster.h"

namespace marlowick::bench {
namespace {

constexpr std::size_t kSamplesAPixel = 4;

// Each time the figure is seen from another side.
class Frame : public Case {
  public:
    explicit Frame(int side)
        : side_(side),
          pixels_(static_cast<std::size_t>(side) * static_cast<std::size_t>(side)),
          nearness_(pixels_.size() * kSamplesAPixel),
          colours_(pixels_.size() * kSamplesAPixel) {}
    void floor() override {
        std::fill(nearness_.begin(), nearness_.end(), 0.0F);
        std::fill(colours_.begin(), colours_.end(), 0U);
        std::fill(pixels_.begin(), pixels_.end(), 0U);
        std::uint32_t sum = 0;
        for (const std::uint32_t texel : figure_.parts.front().texture->pixels) {
            sum += texel;
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(nearness_.data());
        benchmark::DoNotOptimize(colours_.data());
        benchmark::DoNotOptimize(pixels_.data());
        benchmark::ClobberMemory();
    }
    void routine() override {
        view_.yaw += 7;
        benchmark::DoNotOptimize(raster_.draw(figure_, view_, side_, side_).data());
    }

  private:
    const Figure figure_ = simFigure();
    int side_;
    std::vector<std::uint32_t> pixels_;
    std::vector<float> nearness_;
    std::vector<std::uint32_t> colours_;
    Raster raster_;
    View view_;
};

}  // namespace

std::vector<Row> frameRows() {
    return {{.name = "A frame of 2,000 faces, # pixels wide and high",
             .toReach = 4.0,
             .sizes = {kFrame},
             .smallSize = 20,
             .make = sized<Frame>()}};
}

}  // namespace marlowick::bench
