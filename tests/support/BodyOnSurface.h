#pragma once

#include "editor/Main.h"
#include "model/Fuselage.h"
#include "support/EditorBench.h"
#include "support/HandleRows.h"
#include "support/PartsOnSurface.h"

namespace velna::test {

/// The default fuselage drawn in all its views at 2 pixels a unit, column 400, row 30.
class BodyOnSurface : public EditorTest {
protected:
    BodyOnSurface() { place(); }

    /// Draws it plainly afresh and forgets the drawing.
    void place() {
        preparePress();
        part.drawSide(Main.zoom, Main.xoff, Main.yoff, noSection, FuselageLook::bar);
        part.drawHTop(Main.zoom, Main.xoff, Main.yoff, noSection, FuselageLook::bar);
        part.computeVTopPoints(Main.zoom, Main.xoff, Main.yoff);
        bench.forget();
    }

    MeshSections& body = Fuselages(1);
    BodyPart part{1};
};

}  // namespace velna::test
