#include "model/BalanceFigures.h"

#include <numbers>

namespace velna {

namespace {

/// The square root that lift slope and downwash have in common.
Real aspectRoot(Real aspect) {
    return std::sqrt(aspect * aspect + 4);
}

/// Lift slope of a wing per radian, thin sections of slope 2 pi: H. B. Helmbold, "Der unverwundene
/// Ellipsenflügel als tragende Fläche", 1942.
Real liftSlope(Real aspect) {
    return figure(2 * std::numbers::pi_v<Real> * aspect / (2 + aspectRoot(aspect)));
}

/// Downwash gradient far behind an elliptic wing: R. C. Nelson, "Flight Stability and Automatic
/// Control", chapter 2.
Real downwashGradient(Real aspect) {
    return figure(4 / (2 + aspectRoot(aspect)));
}

/// 1 less the downwash gradient; the difference itself would lose its digits on a short wing.
Real withoutDownwash(Real aspect) {
    const Real sum = 2 + aspectRoot(aspect);
    return aspect / sum * (aspect / sum);
}

}  // namespace

TailFigures tailFigures(const PlanFigures& wing, const PlanFigures& stabilizer, Real finArea,
                        const TailArms& arms) {
    return {given(arms.horizontal),
            given(stabilizer.area * arms.horizontal / (wing.area * wing.chord)),
            given(arms.vertical), given(finArea * arms.vertical / (wing.area * wing.span))};
}

BalanceFigures balanceFigures(const PlanFigures& wing, const PlanFigures& stabilizer, Real arm,
                              Real near) {
    if (wing.area == 0) return {};
    BalanceFigures balance;
    const Real slope = liftSlope(wing.aspect);
    balance.liftSlopeWing = given(slope);
    // How far the neutral point lies behind the wing's quarter point: the slope of the whole
    // aircraft in the denominator, B. Etkin and L. D. Reid, "Dynamics of Flight: Stability and
    // Control", chapter 2.
    Real behind = 0;
    if (stabilizer.area != 0) {
        const Real tailSlope = liftSlope(stabilizer.aspect);
        balance.liftSlopeStabilizer = given(tailSlope);
        const Real share =
            tailSlope * withoutDownwash(wing.aspect) * stabilizer.area / (slope * wing.area);
        behind = arm <= 0 ? noFigure : share / (1 + share) * arm;
        if (!(arm <= 0)) balance.downwashGradient = given(downwashGradient(wing.aspect));
    }
    const Real neutral = figure(near + wing.quarterX + behind);
    const Real percent = figure(25 + 100 * behind / wing.chord);
    const auto x = [&](Real margin) { return given(neutral - margin * wing.chord); };
    const auto inPercent = [&](Real margin) {
        return isFigure(neutral) ? given(percent - 100 * margin) : Figure();
    };
    // Margins of 5 to 15 %: MIT Unified Engineering, Lab 8 notes, "Basic Aircraft Design Rules".
    constexpr Real forward = 0.15L;
    constexpr Real rear = 0.05L;
    balance.neutralPointX = given(neutral);
    balance.neutralPointPercent = inPercent(0);
    balance.margin15X = x(forward);
    balance.margin15Percent = inPercent(forward);
    balance.margin5X = x(rear);
    balance.margin5Percent = inPercent(rear);
    return balance;
}

}  // namespace velna
