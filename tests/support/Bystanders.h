#pragma once

#include <deque>

#include "editor/Strip.h"
#include "editor/Surface.h"
#include "editor/Window.h"
#include "preview/Rendering.h"
#include "support/Holds.h"

namespace velna::fuzz {

/// A surface that draws nothing and remembers where the last lines began: there something can be
/// taken hold of.
class PlacesSurface : public Surface {
public:
    PlacesSurface(double width, double height) : width_(width), height_(height) {}

    void resize(double width, double height) {
        width_ = width;
        height_ = height;
    }

    double width() const override { return width_; }
    double height() const override { return height_; }
    void clear() override { places.clear(); }
    void line(double x1, double y1, double, double, Rgb) override {
        places.push_back({x1, y1});
        if (places.size() > mostPlaces) places.pop_front();
    }
    void setDrawMode(DrawMode) override {}
    /// Every picture can be read.
    std::optional<Point2D> pictureSize(const std::string&) override { return Point2D{640, 480}; }
    void paintPicture(const std::string&, Point2D, Point2D) override {}
    void refresh() override {}
    void setFocus() override {}

    std::deque<Point2D> places;

private:
    static constexpr std::size_t mostPlaces = 2000;

    double width_;
    double height_;
};

/// A window that gives the answers written down for it, and otherwise No, Cancel and nothing.
class AnsweringWindow : public Window {
public:
    explicit AnsweringWindow(Rendering& picture) : rendering(picture) {}

    void changed(Control) override {}
    void catalogueFilled(Control) override {}
    void fuselageListChanged() override {}
    void setCursor(CursorShape, CursorIcon) override {}
    void openPopup(float, float) override {}
    void renderScene(bool rebuild) override { rendering.renderScene(rebuild); }
    void holdPicture(bool on) override { rendering.hold(on); }
    void setViewTransform(double panX, double panY, double distance, double spin,
                          double tilt) override {
        rendering.setViewTransform(panX, panY, distance, spin, tilt);
    }
    void undo() override {}
    void redo() override {}
    void showStartView() override {}
    void promptFrustum() override {}
    bool askYesNo(const std::string&, BoxIcon, bool) override { return yes; }
    std::string askPictureFile() override { return yes ? "plan.png" : ""; }
    std::optional<std::string> askText(const std::string&, const std::string&,
                                       const std::string&) override {
        return yes ? std::optional(text) : std::nullopt;
    }

    bool yes = false;
    std::string text;

private:
    Rendering& rendering;
};

/// Ends the run where the strip beside the drawing says what is no finite number.
inline void expectStrip(const MainForm& form) {
    const StripText strip = stripText(form);
    for (const std::string& text : {strip.place, strip.value})
        if (!unfiniteWord(text).empty()) broken("the strip says " + text);
}

}  // namespace velna::fuzz
