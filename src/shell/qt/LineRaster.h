#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "common/Point.h"

namespace velna {

/// A picture in memory, 32 bits a pixel (0xffRRGGBB), row by row.
struct PixelBuffer {
    std::uint32_t* pixels = nullptr;
    int width = 0;
    int height = 0;
    std::ptrdiff_t stride = 0;  ///< pixels from one row to the next
};

/// The pixels that have changed: columns and rows from the first included to the last excluded.
struct PixelRegion {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool empty() const { return left >= right || top >= bottom; }
    void include(int x1, int y1, int x2, int y2) {
        if (empty()) {
            *this = {x1, y1, x2, y2};
            return;
        }
        left = std::min(left, x1);
        top = std::min(top, y1);
        right = std::max(right, x2);
        bottom = std::max(bottom, y2);
    }
};

/// How the pixels of a line are written.
enum class PixelRule { Copy, Invert };

/// What a line is drawn with.
struct Ink {
    std::uint32_t colour;
    int thickness = 1;  ///< pixels across
    PixelRule rule = PixelRule::Copy;
};

/// Draws a line in device pixels, y down, both ends included. Every double is allowed; an end that
/// is NaN or infinite draws nothing. The pixels depend on the two ends alone and not on their
/// order, and none is written twice, so that the same line drawn again, in either direction, in
/// white or by inverting, leaves no trace.
void rasterLine(const PixelBuffer& buffer, Point2D from, Point2D to, const Ink& ink,
                PixelRegion& changed);

}  // namespace velna
