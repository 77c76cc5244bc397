#include "shell/SvgSurface.h"

#include <cmath>
#include <cstdio>

#include "common/ClipLine.h"
#include "common/NumberText.h"

namespace velna {

namespace {

/// Decimals of a coordinate in pixels: far finer than a printer is.
constexpr int decimals = 3;
/// How far beyond the surface a line is kept, in pixels: its ends must not be seen.
constexpr double margin = 8;

void appendPoint(std::string& path, char command, Point2D point) {
    path += command;
    path += fixedText(point.x, decimals);
    path += ' ';
    path += fixedText(point.y, decimals);
}

std::string hexadecimal(Rgb colour) {
    char text[8];
    std::snprintf(text, sizeof text, "#%02x%02x%02x", unsigned{colour.red}, unsigned{colour.green},
                  unsigned{colour.blue});
    return text;
}

}  // namespace

void SvgSurface::clear() {
    paths_.clear();
    path_.clear();
}

void SvgSurface::line(double x1, double y1, double x2, double y2, Rgb colour) {
    for (const double coordinate : {x1, y1, x2, y2})
        if (!std::isfinite(coordinate)) return;
    Point2D from{x1, y1};
    Point2D to{x2, y2};
    const AxisRange across{-margin, width() + margin};
    const AxisRange upright{-margin, height() + margin};
    if (!clipLine(from, to, across, upright)) return;
    if (path_.empty() || !(from == at_) || colour_ != colour) {
        endPath();
        appendPoint(path_, 'M', from);
        colour_ = colour;
    }
    appendPoint(path_, 'L', to);
    at_ = to;
}

void SvgSurface::endPath() {
    if (path_.empty()) return;
    paths_ += "<path stroke=\"" + hexadecimal(colour_) + "\" d=\"" + path_ + "\"/>\n";
    path_.clear();
}

std::string SvgSurface::text() {
    endPath();
    const std::string across = numberText(width());
    const std::string upright = numberText(height());
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
           across + "\" height=\"" + upright + "\" viewBox=\"0 0 " + across + " " + upright +
           "\">\n"
           "<rect width=\"100%\" height=\"100%\" fill=\"#ffffff\"/>\n"
           "<g fill=\"none\" stroke-width=\"1\" stroke-linecap=\"square\" "
           "transform=\"translate(0.5 0.5)\">\n" +
           paths_ + "</g>\n</svg>\n";
}

}  // namespace velna
