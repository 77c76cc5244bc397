#include "output/DxfDrawing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "common/NumberText.h"

namespace velna {

namespace {

constexpr std::size_t noLayer = 0;
constexpr std::size_t axes = 3;

/// The six lines of a point, codes and numbers, with the codes of a line's end. They are made once
/// for two lines of the drawing: where one ends the next one starts.
class PointLines {
public:
    static constexpr std::size_t longest = axes * (longestNumber + 10);

    void take(const Point3D& point) {
        char* at = text_.data();
        std::size_t axis = 0;
        for (const double value : {point.x, point.y, point.z}) {
            at = putText(at, axisCodes[axis]);
            codes_[axis++] = at - text_.data() - digitFromEnd;
            at = coordinate(at, value);
        }
        size_ = static_cast<std::size_t>(at - text_.data());
    }
    char* putEnd(char* at) const { return putText(at, {text_.data(), size_}); }
    char* putStart(char* at) const {
        char* const end = putEnd(at);
        for (const auto code : codes_) at[code] = '0';
        return end;
    }

private:
    static constexpr std::array<std::string_view, axes> axisCodes{" 11 \r\n", " 21 \r\n",
                                                                  " 31 \r\n"};
    /// The digit that tells a line's end from its start, from behind.
    static constexpr std::ptrdiff_t digitFromEnd = 4;

    /// A number that no reader could take (the product of two huge lengths) becomes 0.
    static char* coordinate(char* at, double value) {
        if (!std::isfinite(value)) value = 0;
        if (value >= 0) *at++ = ' ';
        return putText(putNumber(at, value), " \r\n");
    }

    std::array<char, longest> text_{};
    std::size_t size_ = 0;
    std::array<std::ptrdiff_t, axes> codes_{};
};

}  // namespace

DxfDrawing::DxfDrawing(const std::string& fileName, long long expectedLines, Progress* watcher)
    : file_(fileName), work_(watcher, expectedLines), rows_(file_, expectedLines), layers_(1) {}

/// Group codes and numbers have a place for the sign in front and a blank behind; texts stand bare.
void DxfDrawing::text(std::string_view code, std::string_view value) {
    file_.line(code);
    file_.line(value);
}

void DxfDrawing::dxfBegin() {
    text(" 0 ", "SECTION");
    text(" 2 ", "ENTITIES");
}

Outcome DxfDrawing::dxfEnd() {
    writeSteps();
    text(" 0 ", "ENDSEC");
    text(" 0 ", "EOF");
    if (work_.cancelled()) return Outcome::cancelled();
    return file_.commit() ? Outcome() : Outcome::failed(file_.error());
}

/// The number of a layer, for the lines until the next `writeSteps`.
std::size_t DxfDrawing::layerNumber(std::string_view layer) {
    if (layers_.size() == 1 || layer != layer_) {
        layer_ = layer;
        layers_.push_back(" 0 \r\nLINE\r\n 8 \r\n" + layer_ + "\r\n");
        longestLine_ = std::max(longestLine_, layers_.back().size() + 2 * PointLines::longest);
        mostSteps_ = static_cast<std::size_t>(rows_.atOnce(longestLine_));
    }
    return layers_.size() - 1;
}

/// The lines of some of the steps.
char* DxfDrawing::format(char* at, std::size_t first, std::size_t last) const {
    std::array<PointLines, 2> points;
    PointLines* from = &points[0];
    PointLines* to = &points[1];
    if (first > 0) from->take(steps_[first - 1].to);
    for (std::size_t n = first; n < last; ++n) {
        const Step& step = steps_[n];
        to->take(step.to);
        if (step.layer != noLayer) {
            at = putText(at, layers_[step.layer]);
            at = from->putStart(at);
            at = to->putEnd(at);
        }
        std::swap(from, to);
    }
    return at;
}

void DxfDrawing::writeSteps() {
    if (wanted() && !steps_.empty()) {
        rows_.write(0, static_cast<long long>(steps_.size()), longestLine_,
                    [this](char* at, long long first, long long last) {
                        return format(at, static_cast<std::size_t>(first),
                                      static_cast<std::size_t>(last));
                    });
    }
    steps_.clear();
    layers_.resize(1);
    longestLine_ = 0;
    penDown_ = false;
}

void DxfDrawing::dxfLine(const Point3D& from, const Point3D& to, std::string_view layer) {
    if (!work_.did(1)) return;
    if (steps_.size() + 2 > mostSteps_) writeSteps();
    const std::size_t number = layerNumber(layer);
    steps_.push_back({from, noLayer});
    steps_.push_back({to, number});
    penDown_ = false;
}

void DxfDrawing::dxfLineTo(const Point3D& to, bool draw, std::string_view layer) {
    if (draw && work_.did(1)) {
        if (steps_.size() + 2 > mostSteps_) writeSteps();
        const std::size_t number = layerNumber(layer);
        if (!penDown_) steps_.push_back({pen_, noLayer});
        steps_.push_back({to, number});
    }
    penDown_ = draw;
    pen_ = to;
}

void DxfDrawing::polyline(std::span<const Point2D> points, DxfSigns signs, std::string_view layer) {
    bool draw = false;
    for (const Point2D& p : points) {
        dxfLineTo({signs.x * p.x, signs.y * p.y, 0}, draw, draw ? layer : "NoName");
        draw = true;
    }
}

void DxfDrawing::closedPolyline(std::span<const Point2D> points, DxfSigns signs,
                                std::string_view layer) {
    if (points.empty()) return;
    polyline(points, signs, layer);
    dxfLineTo({signs.x * points[0].x, signs.y * points[0].y, 0}, true, layer);
}

}  // namespace velna
