#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "editor/Surface.h"
#include "shell/qt/LineRaster.h"

namespace velna {

/// One call that draws, as a bare loop repeats it.
struct Call {
    bool clears = false;
    double x1 = 0, y1 = 0, x2 = 0, y2 = 0;
    Rgb colour;
};

/// The drawing surface on a picture in memory, by the program's own lines.
class RasterSurface : public Surface {
public:
    RasterSurface(int width, int height)
        : width_(width), height_(height), pixels_(static_cast<std::size_t>(width) * height) {}

    double width() const override { return width_; }
    double height() const override { return height_; }
    void clear() override {
        if (tape) tape->push_back({true, 0, 0, 0, 0, {}});
        std::fill(pixels_.begin(), pixels_.end(), 0xffffffffU);
    }
    void line(double x1, double y1, double x2, double y2, Rgb colour) override {
        if (tape) tape->push_back({false, x1, y1, x2, y2, colour});
        const std::uint32_t pixel = 0xff000000U | std::uint32_t{colour.red} << 16 |
                                    std::uint32_t{colour.green} << 8 | colour.blue;
        rasterLine({pixels_.data(), width_, height_, width_}, {x1, y1}, {x2, y2}, {pixel},
                   changed_);
    }
    void setDrawMode(DrawMode) override {}
    std::optional<Point2D> pictureSize(const std::string&) override { return std::nullopt; }
    void paintPicture(const std::string&, Point2D, Point2D) override {}
    void refresh() override { changed_ = {}; }
    void setFocus() override {}

    /// Draws a recorded list.
    void play(const std::vector<Call>& calls) {
        for (const Call& call : calls) {
            if (call.clears)
                clear();
            else
                line(call.x1, call.y1, call.x2, call.y2, call.colour);
        }
    }

    std::vector<Call>* tape = nullptr;

private:
    int width_;
    int height_;
    std::vector<std::uint32_t> pixels_;
    PixelRegion changed_;
};

}  // namespace velna
