#pragma once

#include <vector>

#include "model/MeshSections.h"
#include "model/SymWingSections.h"
#include "model/VertWingSection.h"
#include "output/PrinterSurface.h"

namespace velna {

// What each part of the aircraft puts on a sheet, at any scale.

/// The root section.
void printSide(PrinterSurface& printer, const SymWingSections& wing, const Transform& at);
/// With the centre line, from the paper's upper edge as far below the wing as above it.
void printFront(PrinterSurface& printer, const SymWingSections& wing, const Transform& at);
void printVTop(PrinterSurface& printer, const SymWingSections& wing, const Transform& at);

void printSide(PrinterSurface& printer, const VertWingSection& fin, const Transform& at);
void printFront(PrinterSurface& printer, const VertWingSection& fin, const Transform& at);
/// The fin's root; the twin is asked for by the height of the root.
void printVTop(PrinterSurface& printer, const VertWingSection& fin, const Transform& at);

void printSide(PrinterSurface& printer, const MeshSections& body, const Transform& at);
/// The edge on the +width / 2 side, and its image about the centre line.
void printHTop(PrinterSurface& printer, const MeshSections& body, const Transform& at);
/// Both side contours, open at nose and tail.
void printVTop(PrinterSurface& printer, const MeshSections& body, const Transform& at);

/// The sections of one fuselage at one scale, computed once for all of them.
class SectionPlans {
public:
    SectionPlans(const MeshSections& body, const Transform& at);

    /// The section in ordered place `i`, in the dim colour, and its mirror image about the centre
    /// line where the fuselage has a twin. Nothing where the body has no shape.
    void print(PrinterSurface& printer, int i);

private:
    const MeshSections& body_;
    double xoff_;
    Array2<Point2D> front_;
    std::vector<Point2D> section_;
};

}  // namespace velna
