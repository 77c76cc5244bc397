#pragma once

#include "editor/Main.h"
#include "model/Fuselage.h"
#include "support/EditorBench.h"
#include "support/HandleRows.h"

namespace velna::test {

/// The default fuselage drawn in all its views at 2 pixels a unit, column 400, row 30.
class BodyOnSurface : public EditorTest {
protected:
    BodyOnSurface() { place(); }

    /// Draws it plainly afresh and forgets the drawing.
    void place() {
        preparePress();
        body.drawSide(Main.zoom, Main.xoff, Main.yoff, -1, 0);
        body.drawHTop(Main.zoom, Main.xoff, Main.yoff, -1, 0);
        body.computeVTopPoints(Main.zoom, Main.xoff, Main.yoff);
        bench.forget();
    }

    MeshSections& body = Fuselages(1);
};

}  // namespace velna::test
