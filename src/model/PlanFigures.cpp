#include "model/PlanFigures.h"

#include <numbers>

namespace velna {

void PlanSums::add(const Strips& strips) {
    for (const Strip& strip : strips) {
        const Real area = strip.area();
        area_ += area;
        developed_ += strip.developed();
        if (!(area > 0)) continue;
        squares_ += strip.squares();
        x_ += strip.moment(strip.x1, strip.x2);
        y_ += strip.moment(strip.y1, strip.y2);
        tilt_ += area * std::atan2(strip.rise, strip.width);
        noteEnds(strip);
    }
}

void PlanSums::noteEnds(const Strip& strip) {
    if (!anyArea_ || strip.y1 < root_.y1) root_ = strip;
    if (!anyArea_ || strip.y2 > tip_.y2) tip_ = strip;
    anyArea_ = true;
}

PlanFigures PlanSums::figures(Real copies, Real near) const {
    // A place that cannot be given cannot be computed with either.
    const auto place = [near](Real x) { return isFigure(near + x) ? x : noFigure; };
    PlanFigures plan;
    plan.area = figure(copies * area_, squareDecimetre);
    plan.developed = figure(copies * developed_, squareDecimetre);
    plan.span = figure(anyArea_ ? 2 * tip_.y2 : 0);
    plan.aspect = figure(plan.span * plan.span / plan.area);
    if (anyArea_) {
        plan.rootChord = figure(root_.c1);
        plan.tipChord = figure(tip_.c2);
        plan.rootX = place(root_.x1);
    }
    plan.taper = figure(plan.tipChord / plan.rootChord);
    plan.chord = figure(copies * squares_ / plan.area);
    plan.chordX = place(copies * x_ / plan.area);
    plan.chordY = figure(copies * y_ / plan.area);
    plan.quarterX = place(plan.chordX + plan.chord / 4);
    const Real radians = copies * tilt_ / plan.area;
    plan.dihedral = figure(radians * 180 / std::numbers::pi_v<Real>);
    return plan;
}

SurfaceFigures givenSurface(const PlanFigures& plan, int panels, Real near) {
    return {panels,
            given(plan.area, squareDecimetre),
            given(plan.developed, squareDecimetre),
            given(plan.span),
            given(plan.aspect),
            given(plan.rootChord),
            given(plan.tipChord),
            given(plan.taper),
            given(near + plan.rootX),
            given(plan.chord),
            given(near + plan.chordX),
            given(plan.chordY),
            given(near + plan.quarterX),
            given(plan.dihedral)};
}

FinFigures givenFin(const PlanFigures& plan, int count, Real height, Real near) {
    return {count,
            given(count * plan.area, squareDecimetre),
            given(count * plan.developed, squareDecimetre),
            given(height),
            given(plan.chord),
            given(near + plan.chordX),
            given(near + plan.quarterX)};
}

}  // namespace velna
