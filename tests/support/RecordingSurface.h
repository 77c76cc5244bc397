#pragma once

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "editor/Surface.h"

namespace velna::test {

/// One call on a surface, in the order of the calls.
struct SurfaceCall {
    enum class Kind { Line, Clear, Picture };

    Kind kind = Kind::Clear;
    double x1 = 0;  ///< start of a line; left and top of a picture
    double y1 = 0;
    double x2 = 0;  ///< end of a line; width and height of a picture
    double y2 = 0;
    Rgb colour;
    std::string file;

    friend bool operator==(const SurfaceCall&, const SurfaceCall&) = default;
};

/// A surface that draws nothing and keeps the ordered list of what it was asked for.
class RecordingSurface : public Surface {
public:
    RecordingSurface(double width, double height) : width_(width), height_(height) {}

    double width() const override { return width_; }
    double height() const override { return height_; }
    void clear() override { calls.push_back({}); }
    void line(double x1, double y1, double x2, double y2, Rgb colour) override {
        calls.push_back({SurfaceCall::Kind::Line, x1, y1, x2, y2, colour, {}});
    }
    void setDrawMode(DrawMode newMode) override { mode = newMode; }
    std::optional<Point2D> pictureSize(const std::string& file) override;
    /// A file that is not among `pictures` cannot be read, and leaves no trace.
    void paintPicture(const std::string& file, Point2D position, Point2D size) override;
    void refresh() override { ++refreshes; }
    void setFocus() override { ++focuses; }

    void resize(double width, double height) {
        width_ = width;
        height_ = height;
    }

    /// What was drawn since the last clear.
    std::vector<SurfaceCall> sinceClear() const;
    /// How many of the calls are of one kind; of the lines, those of one colour.
    int count(SurfaceCall::Kind kind) const;
    int lines(Rgb colour) const;

    std::vector<SurfaceCall> calls;
    std::map<std::string, Point2D> pictures;  ///< the readable picture files, by their natural size
    DrawMode mode = DrawMode::Copy;
    int refreshes = 0;
    int focuses = 0;

private:
    double width_;
    double height_;
};

}  // namespace velna::test
