#pragma once

#include <array>
#include <cstdint>

namespace velna {

/// A colour on the drawing surface or on paper.
struct Rgb {
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    friend bool operator==(const Rgb&, const Rgb&) = default;
};

/// The basic 16-colour table, by its classic numbers.
inline constexpr std::array<Rgb, 16> palette{{
    {0, 0, 0},        // black
    {0, 0, 128},      // blue
    {0, 128, 0},      // green
    {0, 128, 128},    // cyan
    {128, 0, 0},      // red
    {128, 0, 128},    // magenta
    {128, 128, 0},    // brown
    {192, 192, 192},  // light grey
    {128, 128, 128},  // grey
    {0, 0, 255},      // light blue
    {0, 255, 0},      // light green
    {0, 255, 255},    // light cyan
    {255, 0, 0},      // light red
    {255, 0, 255},    // light magenta
    {255, 255, 0},    // yellow
    {255, 255, 255},  // white
}};

inline constexpr Rgb black = palette[0];
inline constexpr Rgb white = palette[15];

}  // namespace velna
