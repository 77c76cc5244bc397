#include "shell/qt/LineRaster.h"

#include <cmath>
#include <utility>

#include "common/ClipLine.h"

namespace velna {
namespace {

// Ends are clipped to this distance before they become integers: far outside every screen, and
// small enough that a slope of 32 binary places times the longest line fits into 64 bits.
constexpr double farAway = 1 << 20;
constexpr AxisRange nearEnough{-farAway, farAway};
constexpr int fractionBits = 32;
constexpr std::int64_t one = std::int64_t{1} << fractionBits;
constexpr std::int64_t half = one / 2;

std::int64_t nearestPixel(double value) {
    return static_cast<std::int64_t>(std::floor(value + 0.5));
}

std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
    const std::int64_t q = a / b;
    return a % b != 0 && (a < 0) != (b < 0) ? q - 1 : q;
}

// A line by its longer axis `major`: one pixel of the other axis, `minor`, for each step.
struct Walk {
    std::int64_t major1, major2;  // first and last step
    std::int64_t minor;  // where the line stands at major1, in 1/2^32 pixels, half included
    std::int64_t slope;  // by which it moves in a step
};

// Leaves the steps whose minor pixel lies in [low, high).
void cutMinor(Walk& walk, std::int64_t low, std::int64_t high) {
    const std::int64_t first = low * one;
    const std::int64_t last = high * one - 1;
    std::int64_t from = 0;
    std::int64_t to = walk.major2 - walk.major1;
    if (walk.slope > 0) {
        from = std::max(from, -floorDivide(walk.minor - first, walk.slope));
        to = std::min(to, floorDivide(last - walk.minor, walk.slope));
    } else if (walk.slope < 0) {
        from = std::max(from, -floorDivide(last - walk.minor, -walk.slope));
        to = std::min(to, floorDivide(walk.minor - first, -walk.slope));
    } else if (walk.minor < first || walk.minor > last) {
        to = -1;
    }
    walk.minor += walk.slope * from;
    walk.major2 = walk.major1 + to;
    walk.major1 += from;
}

void cutMajor(Walk& walk, std::int64_t size) {
    if (walk.major1 < 0) {
        walk.minor -= walk.slope * walk.major1;
        walk.major1 = 0;
    }
    walk.major2 = std::min(walk.major2, size - 1);
}

template <PixelRule rule>
void write(std::uint32_t& pixel, std::uint32_t colour) {
    if constexpr (rule == PixelRule::Copy) {
        pixel = colour;
    } else {
        pixel ^= 0x00ffffffU;
    }
}

// How a walk goes through a buffer: `steep` for rows as its steps.
struct Grid {
    std::int64_t majorSize, minorSize;
    std::ptrdiff_t majorStep, minorStep;
};

Grid gridOf(const PixelBuffer& buffer, bool steep) {
    if (steep) return {buffer.height, buffer.width, buffer.stride, 1};
    return {buffer.width, buffer.height, 1, buffer.stride};
}

// The walk between two clipped ends, and whether it is steep.
std::pair<Walk, bool> walkBetween(Point2D from, Point2D to) {
    std::int64_t px1 = nearestPixel(from.x), py1 = nearestPixel(from.y);
    std::int64_t px2 = nearestPixel(to.x), py2 = nearestPixel(to.y);
    const bool steep = std::abs(py2 - py1) > px2 - px1;
    if (steep) {
        std::swap(px1, py1);
        std::swap(px2, py2);
    }
    if (px2 < px1) {
        std::swap(px1, px2);
        std::swap(py1, py2);
    }
    const std::int64_t slope = px2 == px1 ? 0 : (py2 - py1) * one / (px2 - px1);
    return {{px1, px2, py1 * one + half, slope}, steep};
}

// Writes the pixels of a walk that lies wholly inside the buffer.
template <PixelRule rule>
void walkPixels(const Walk& walk, std::uint32_t* pixels, const Grid& grid, std::uint32_t colour) {
    std::uint32_t* at = pixels + walk.major1 * grid.majorStep;
    std::int64_t minor = walk.minor;
    for (std::int64_t i = walk.major1; i <= walk.major2; ++i) {
        write<rule>(at[(minor >> fractionBits) * grid.minorStep], colour);
        at += grid.majorStep;
        minor += walk.slope;
    }
}

void include(PixelRegion& changed, const Walk& walk, bool steep) {
    const auto a = static_cast<int>(walk.major1), b = static_cast<int>(walk.major2) + 1;
    const std::int64_t end = walk.minor + walk.slope * (walk.major2 - walk.major1);
    const auto c = static_cast<int>(std::min(walk.minor, end) >> fractionBits);
    const auto d = static_cast<int>(std::max(walk.minor, end) >> fractionBits) + 1;
    if (steep) {
        changed.include(c, a, d, b);
    } else {
        changed.include(a, c, b, d);
    }
}

}  // namespace

void rasterLine(const PixelBuffer& buffer, Point2D from, Point2D to, const Ink& ink,
                PixelRegion& changed) {
    if (!std::isfinite(from.x) || !std::isfinite(from.y) || !std::isfinite(to.x) ||
        !std::isfinite(to.y))
        return;
    // One order for both directions; clipping comes after it, since it rounds by the order too.
    if (to.x < from.x || (to.x == from.x && to.y < from.y)) std::swap(from, to);
    if (!clipLine(from, to, nearEnough, nearEnough)) return;
    const auto [line, steep] = walkBetween(from, to);
    const Grid grid = gridOf(buffer, steep);

    // A thick line is the thin one beside itself: each pixel still belongs to one of them alone.
    const int across = std::max(ink.thickness, 1);
    for (int i = 0; i < across; ++i) {
        Walk walk = line;
        walk.minor += (i - (across - 1) / 2) * one;
        cutMajor(walk, grid.majorSize);
        cutMinor(walk, 0, grid.minorSize);
        if (walk.major1 > walk.major2) continue;
        if (ink.rule == PixelRule::Copy) {
            walkPixels<PixelRule::Copy>(walk, buffer.pixels, grid, ink.colour);
        } else {
            walkPixels<PixelRule::Invert>(walk, buffer.pixels, grid, ink.colour);
        }
        include(changed, walk, steep);
    }
}

}  // namespace velna
