#include <cmath>
#include <limits>

#include "common/Finite.h"
#include "common/NumberText.h"
#include "editor/Main.h"
#include "model/Fuselage.h"

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

void MainForm::drawSection() {
    const MeshSections& body = Fuselage::current(project);
    const double szoom = views.fuselage().szoom;
    if (body.sel_sec <= 0) return;
    Surface& surface = *DrawSectionArea;
    surface.clear();
    if (body.sectionSelected()) {
        const int k = body.storageIndex(body.sel_sec);
        const double w = body.width(k);
        const double h = body.height(k);
        const double b = body.bias_curve(k);
        const double n = body.nb_cross;
        const double centre = surface.width() / 2;
        const double widest =
            h * b * szoom;  // row of the widest line: the top touches the top edge
        const double pi = 4 * std::atan(1.0);
        const auto angle = [&](double j) { return 2 * pi * (j - 1) / n; };
        double curv = body.curvature(k);
        const auto column = [&](double t) {
            return ((w * szoom) / 2) * MeshSections::outlineCos(t, curv) + centre;
        };
        const auto row = [&](double t, double share) {
            return widest + (-h * share * szoom) * (MeshSections::outlineSin(t, curv) - 1.0);
        };

        Pen pen(surface);
        pen.moveTo(column(0), row(0, b));
        for (int j = 2; j <= n / 2; ++j) pen.lineTo(column(angle(j)), row(angle(j), b));
        pen.lineTo((-w * szoom) / 2 + centre, widest);

        curv = body.curvature2(k);
        // The counter keeps its half for an odd `nb_cross`, so that the points stay evenly spread.
        for (double j = n / 2 + 2; j <= n; ++j)
            pen.lineTo(column(angle(j)), row(angle(j), 1.0 - b));
        pen.lineTo((w * szoom) / 2 + centre, widest);
    }
    surface.refresh();
}

void MainForm::zoomSectionSet() {
    zoomSectionSet(roundToInt16(DrawSectionArea->width()), roundToInt16(DrawSectionArea->height()));
}

void MainForm::zoomSectionSet(int w, int h) {
    const MeshSections& body = Fuselage::current(project);
    if (!body.sectionSelected()) return;
    const double sectionWidth = body.widthGet();
    const double sectionHeight = body.heightGet();
    double& szoom = views.fuselage().szoom;
    double& slider = controls[Control::BiasSlider].height;
    if (sectionWidth > sectionHeight && sectionWidth != 0) {
        assignFinite(szoom, (w * 0.9) / sectionWidth);
        assignFinite(slider, (w * sectionHeight) / sectionWidth);
    } else if (sectionHeight != 0) {
        assignFinite(szoom, (h * 0.9) / sectionHeight);
        slider = h;
    } else {
        return;
    }
    window->changed(Control::BiasSlider);
}

}  // namespace velna
