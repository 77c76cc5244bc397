#include <cmath>
#include <limits>

#include "common/Finite.h"
#include "editor/Main.h"
#include "editor/Polyline.h"
#include "model/MeshSections.h"

namespace velna {
namespace {

/// The surface's rows are single precision; what lies beyond their range stays as it is.
double singlePrecision(double y) {
    const bool fits = std::fabs(y) <= double{std::numeric_limits<float>::max()};
    return fits ? double{static_cast<float>(y)} : y;
}

/// Draws one line after the other, each from where the last one ended.
class Pen {
public:
    explicit Pen(Surface& surface) : surface_(surface) {}

    void moveTo(double x, double y) { at_ = {x, singlePrecision(y)}; }

    void lineTo(double x, double y) {
        const Point2D from = at_;
        moveTo(x, y);
        line(surface_, from, at_, black);
    }

private:
    Surface& surface_;
    Point2D at_;
};

}  // namespace

void MeshSections::drawSection() {
    if (sel_sec <= 0) return;
    Surface& surface = *Main.DrawSectionArea;
    surface.clear();
    if (sectionSelected()) {
        const int k = storageIndex(sel_sec);
        const double w = width(k);
        const double h = height(k);
        const double b = bias_curve(k);
        const double n = nb_cross;
        const double centre = surface.width() / 2;
        const double widest =
            h * b * szoom;  // row of the widest line: the top touches the top edge
        const double pi = 4 * std::atan(1.0);
        const auto angle = [&](double j) { return 2 * pi * (j - 1) / n; };
        const auto column = [&](double t) {
            return ((w * szoom) / 2) * outlineCos(t, curv) + centre;
        };

        Pen pen(surface);
        curv = curvature(k);
        const auto upperRow = [&](double t) {
            return widest + (-h * b * szoom) * (outlineSin(t, curv) - 1.0);
        };
        pen.moveTo(column(0), upperRow(0));
        for (int j = 2; j <= n / 2; ++j) pen.lineTo(column(angle(j)), upperRow(angle(j)));
        pen.lineTo((-w * szoom) / 2 + centre, widest);

        curv = curvature2(k);
        // The counter keeps its half for an odd `nb_cross`, so that the points stay evenly spread.
        for (double j = n / 2 + 2; j <= n; ++j) {
            const double t = angle(j);
            pen.lineTo(column(t), widest + (-h * (1.0 - b) * szoom) * (outlineSin(t, curv) - 1.0));
        }
        pen.lineTo((w * szoom) / 2 + centre, widest);
    }
    surface.refresh();
}

void MeshSections::zoomSectionSet(int w, int h) {
    if (!sectionSelected()) return;
    const double sectionWidth = widthGet();
    const double sectionHeight = heightGet();
    double& slider = Main.controls[Control::BiasSlider].height;
    if (sectionWidth > sectionHeight && sectionWidth != 0) {
        assignFinite(szoom, (w * 0.9) / sectionWidth);
        assignFinite(slider, (w * sectionHeight) / sectionWidth);
    } else if (sectionHeight != 0) {
        assignFinite(szoom, (h * 0.9) / sectionHeight);
        slider = h;
    } else {
        return;
    }
    Main.window->changed(Control::BiasSlider);
}

}  // namespace velna
