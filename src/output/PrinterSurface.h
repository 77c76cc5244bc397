#pragma once

#include <string>

#include "common/Outcome.h"
#include "common/Palette.h"
#include "common/Point.h"

namespace velna {

class Progress;

/// The paper, in the project's unit, origin at the upper left of the printable area, y down.
class PrinterSurface {
public:
    virtual ~PrinterSurface() = default;

    /// 6 millimetres, 5 inches: the unit of everything below.
    virtual void setScaleMode(int mode) = 0;
    virtual double ScaleWidth() const = 0;
    virtual double ScaleHeight() const = 0;
    /// A line 0.25 mm wide; lines beyond the paper are clipped.
    virtual void Line(double x1, double y1, double x2, double y2, Rgb colour) = 0;
    /// A text with its lower left corner at (x, y), for sheets that are taped together.
    virtual void Text(double x, double y, const std::string& text) = 0;
    /// Begins a job of its own; `name` ("side", "sections", "vtop", "front", "htop") also names its
    /// file where a file is the target. A job that cannot begin says so at its `EndDoc`. `watcher`,
    /// which may be null, is asked while the end of a page takes long, and may cancel the job then.
    virtual void StartDoc(const std::string& name, Progress* watcher) = 0;
    /// Ends the page; the next one begins with its first line.
    virtual void NewPage() = 0;
    /// Ends the job. Cancelled by the watcher, or failed, nothing of it is printed.
    virtual Outcome EndDoc() = 0;
    /// Drops the job in place of `EndDoc`: what is not yet printed never is, an unfinished file
    /// goes.
    virtual void KillDoc() = 0;
    /// Why the job under way cannot be printed; empty where it can.
    virtual std::string error() const = 0;
};

/// One line between two points.
inline void line(PrinterSurface& printer, Point2D from, Point2D to, Rgb colour) {
    printer.Line(from.x, from.y, to.x, to.y, colour);
}

}  // namespace velna
