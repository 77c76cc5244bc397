#pragma once

#include <optional>
#include <string>

#include "common/Point.h"
#include "editor/Main.h"
#include "preview/Rendering.h"
#include "shell/Ports.h"

namespace velna {

/// The guided demonstration of a first use: it shows the mouse, Shift and Ctrl on the real
/// aircraft, with the real cursor and through the real events. The user keeps what it has edited.
struct Helper {
    MainForm& main;
    Rendering& rendering;
    const ShellPorts& ports;

    bool running = false;    ///< the demonstration is under way
    Point2D cursorPos{};     ///< where the glide stands, in pixels of the main window
    Point2D cursorTarget{};  ///< where it goes

    void run();

    /// Ends it at its present step (Escape, a closed window): nothing stays pressed, armed or
    /// floating.
    void stop();

    /// One tick of the glide: a tenth of the way, and the picture follows. It ends closer than 3
    /// pixels on both axes, at once when none is under way.
    void glideStep();

    /// The steps of the script; each takes the transform of the view that it works in.
    void demoDragWing(double zoom, double xoff, double yoff);
    void demoShiftDrag(double zoom, double xoff, double yoff);
    void demoInsertSection(double zoom, double xoff, double yoff);

    /// Glides to `point` from the last one given, or, without `glide`, only notes it.
    void demoMoveCursor(Point2D point, bool glide);
    void demoGlide(Point2D from, Point2D to);

    bool stopped = false;  ///< the script under way ends at its next step
    std::optional<Point2D> demoLastPoint{};

private:
    void tell(const std::string& text);
    Point2D wingTip(double zoom, double xoff, double yoff) const;
    void showSign(const std::string& caption, double left, double top);
    void hideSign();
    void press(Point2D target);
    void release(Point2D target);
    void approach(Point2D place);
    void runScript();
};

}  // namespace velna
