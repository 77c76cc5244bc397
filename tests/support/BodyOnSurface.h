#pragma once

#include "model/Fuselage.h"
#include "support/EditorBench.h"
#include "support/EditorInHand.h"
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
        part.drawSide(Main.view.zoom, Main.view.xoff, Main.view.yoff, noSection, FuselageLook::bar);
        part.drawHTop(Main.view.zoom, Main.view.xoff, Main.view.yoff, noSection, FuselageLook::bar);
        part.computeVTopPoints(Main.view.zoom, Main.view.xoff, Main.view.yoff);
        bench.forget();
    }

    MeshSections& body = Fuselages(1);
    BodyPart part{1};
};

}  // namespace velna::test
