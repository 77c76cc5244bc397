#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>

#include "common/Point.h"

namespace velna {

class MainForm;

/// Tracing by two points: the user shows two points of the background picture and says how far
/// apart they are, and the picture is made as large as the drawing. The points are kept in parts of
/// the picture's width and height, so that the view may be made larger between them.
struct Tracing {
    /// Why the last press was not taken.
    enum class Refusal { None, BesideThePicture, OnTheFirstPoint };

    bool active = false;
    std::optional<Point2D> first;
    std::optional<Point2D> second;  ///< until the distance is known
    Refusal refusal = Refusal::None;
};

/// Begins to ask for the points; nothing in a view without a picture.
void beginTracing(MainForm& form);
/// Ends it, and leaves the picture as it stands; nothing when none is under way.
void cancelTracing(MainForm& form);

/// A press while tracing, in pixels of the drawing: the left button gives a point, the right one
/// cancels. A point beside the picture, or less than a hit's distance from the first, is not taken.
void tracePress(MainForm& form, std::int16_t button, Point2D at);
/// The release after the second point asks for the distance, again until it is a number above 0
/// with which the picture can be seen, or the question is cancelled. The first point then stays
/// where it is, and the scale is locked.
void traceRelease(MainForm& form, std::int16_t button);

/// The points shown so far, on the surface of the view.
void drawTracingMarks(const MainForm& form);
/// What the user is to do next; empty when nothing is traced.
std::string tracingHint(const MainForm& form);

}  // namespace velna
