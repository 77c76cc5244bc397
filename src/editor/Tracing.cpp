#include "editor/Tracing.h"

#include <cmath>

#include "common/NumberText.h"
#include "editor/Handles.h"
#include "editor/Main.h"
#include "model/Project.h"

namespace velna {
namespace {

constexpr Rgb markColour = palette[12];
constexpr double markArm = 7;  // pixels

// A picture narrower than a pixel is lost, and one wider than this is not painted.
constexpr double smallestPicture = 1;
constexpr double largestPicture = 1e6;

bool onThePicture(Point2D share) {
    return share.x >= 0 && share.x <= 1 && share.y >= 0 && share.y <= 1;
}

Point2D shareAt(const MainForm& form, Point2D at) {
    const auto [position, size] = form.shownPicture();
    return {(at.x - position.x) / size.x, (at.y - position.y) / size.y};
}

Point2D placeOf(const MainForm& form, Point2D share) {
    const auto [position, size] = form.shownPicture();
    return {position.x + share.x * size.x, position.y + share.y * size.y};
}

double distance(Point2D a, Point2D b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// How far apart the points are seen, in pixels.
double pixelsApart(const MainForm& form) {
    return distance(placeOf(form, *form.tracing.first), placeOf(form, *form.tracing.second));
}

/// The factor that makes `length` of the aircraft as long as the points lie apart; nothing where
/// the picture could not be seen then.
std::optional<double> fittingFactor(const MainForm& form, double length) {
    const double factor = length * form.view.zoom / pixelsApart(form);
    const Point2D size = form.shownPicture().size;
    const auto seen = [&](double side) {
        return side * factor >= smallestPicture && side * factor <= largestPicture;
    };
    return seen(size.x) && seen(size.y) ? std::optional(factor) : std::nullopt;
}

/// Asks until there is an answer that the picture can be sized by.
std::optional<double> askFactor(const MainForm& form) {
    const bool inInches = form.project.units == inches;
    const std::string question =
        std::string("True distance between the two points (") + (inInches ? "in" : "mm") + ")";
    std::string complaint;
    std::string shown = fixedText(pixelsApart(form) / form.view.zoom, inInches ? 3 : 2);
    for (;;) {
        const auto answer =
            form.window->askText(complaint + question, "Trace by Two Points", shown);
        if (!answer || answer->empty()) return std::nullopt;
        shown = *answer;
        const auto length = wholeNumber(answer->substr(0, answer->find_last_not_of(' ') + 1));
        const bool above = length && *length > 0;
        if (above) {
            if (const auto factor = fittingFactor(form, *length)) return factor;
        }
        complaint = above ? "The picture could not be seen at that scale.\n"
                          : "This is no number above 0.\n";
    }
}

}  // namespace

void beginTracing(MainForm& form) {
    if (!form.pictureShownHere()) return;
    form.tracing = {};
    form.tracing.active = true;
    form.setCursor(CursorShape::Cross);
}

void cancelTracing(MainForm& form) {
    if (!form.tracing.active) return;
    form.tracing = {};
    form.redrawAtSameScale();
    form.updateCursor();
}

void tracePress(MainForm& form, std::int16_t button, Point2D at) {
    if (button == MouseButton::right) return cancelTracing(form);
    if (button != MouseButton::left) return;
    Tracing& tracing = form.tracing;
    const Point2D share = shareAt(form, at);
    tracing.refusal = Tracing::Refusal::None;
    if (!onThePicture(share)) {
        tracing.refusal = Tracing::Refusal::BesideThePicture;
    } else if (!tracing.first) {
        tracing.first = share;
    } else if (distance(placeOf(form, *tracing.first), at) < hitDistance) {
        tracing.refusal = Tracing::Refusal::OnTheFirstPoint;
    } else {
        tracing.second = share;
    }
    drawTracingMarks(form);
    form.DrawArea->refresh();
}

void traceRelease(MainForm& form, std::int16_t button) {
    if (button != MouseButton::left || !form.tracing.second) return;
    // Under way until it is answered: the question takes the window's place in front, which would
    // else end a gesture, and fit the view anew.
    if (const auto factor = askFactor(form)) {
        form.pictureHere().growAbout(*form.tracing.first, *factor);
        form.setChecked(Control::LockZoom, true);
    }
    cancelTracing(form);
}

void drawTracingMarks(const MainForm& form) {
    for (const auto& share : {form.tracing.first, form.tracing.second}) {
        if (!share) continue;
        const auto [x, y] = placeOf(form, *share);
        form.DrawArea->line(x - markArm, y, x + markArm, y, markColour);
        form.DrawArea->line(x, y - markArm, x, y + markArm, markColour);
    }
}

std::string tracingHint(const MainForm& form) {
    const Tracing& tracing = form.tracing;
    if (!tracing.active) return {};
    if (tracing.second) return "How far apart are the two points?";
    const std::string next = tracing.first ? "Click the second point, far from the first"
                                           : "Click a point of the picture (Escape ends)";
    switch (tracing.refusal) {
        case Tracing::Refusal::None:
            return next;
        case Tracing::Refusal::BesideThePicture:
            return "That is beside the picture. " + next;
        case Tracing::Refusal::OnTheFirstPoint:
            return "That is the first point again. " + next;
    }
    return next;
}

}  // namespace velna
