#pragma once

#include <vector>

#include "common/Palette.h"
#include "model/FrontOutline.h"
#include "model/MeshSections.h"
#include "output/PrinterSurface.h"

namespace velna {

// What a fuselage puts on a sheet, at any scale.

void printSide(PrinterSurface& printer, const MeshSections& body, const Transform& at);
/// The edge on the +width / 2 side, and its image about the centre line.
void printHTop(PrinterSurface& printer, const MeshSections& body, const Transform& at);
/// Both side contours, open at nose and tail.
void printVTop(PrinterSurface& printer, const MeshSections& body, const Transform& at);

/// The sections of one fuselage at one scale.
class SectionPlans {
public:
    SectionPlans(const MeshSections& body, const Transform& at, Rgb colour);

    /// The section in ordered place `i`, and its mirror image about the centre line where the
    /// fuselage has a twin. Nothing where the body has no shape.
    void print(PrinterSurface& printer, int i);

private:
    const MeshSections& body_;
    double xoff_;
    Rgb colour_;
    FrontOutline front_;
    std::vector<Point2D> section_;
};

}  // namespace velna
