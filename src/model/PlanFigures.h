#pragma once

#include "model/FigureReal.h"
#include "model/Strips.h"

namespace velna {

class VertWingSection;

/// A surface's figures to compute with: mm and mm2, x from `near`, which lies near the aircraft.
struct PlanFigures {
    Real area = noFigure;
    Real developed = noFigure;
    Real span = noFigure;
    Real aspect = noFigure;
    Real rootChord = noFigure;
    Real tipChord = noFigure;
    Real taper = noFigure;
    Real rootX = noFigure;
    Real chord = noFigure;  ///< the mean aerodynamic chord
    Real chordX = noFigure;
    Real chordY = noFigure;
    Real quarterX = noFigure;
    Real dihedral = noFigure;  ///< degrees
};

/// Takes the strips of a surface together.
class PlanSums {
public:
    void add(const Strips& strips);
    /// The figures of `copies` such surfaces: 2 for the two halves of a wing.
    PlanFigures figures(Real copies, Real near) const;

private:
    void noteEnds(const Strip& strip);

    Real area_ = 0;
    Real developed_ = 0;
    Real squares_ = 0;
    Real x_ = 0;
    Real y_ = 0;
    Real tilt_ = 0;
    bool anyArea_ = false;
    Strip root_{};  ///< innermost and outermost of the strips that have an area
    Strip tip_{};
};

/// What `plan` gives of a surface of `panels` panels.
SurfaceFigures givenSurface(const PlanFigures& plan, int panels, Real near);
/// What `plan` gives of `count` fins, `plan` being one of them and `height` high.
FinFigures givenFin(const PlanFigures& plan, int count, Real height, Real near);

}  // namespace velna
