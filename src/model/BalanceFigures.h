#pragma once

#include "model/PlanFigures.h"

namespace velna {

/// The tail's arms to compute with, and the volume of each.
struct TailArms {
    Real horizontal = noFigure;
    Real vertical = noFigure;
};

TailFigures tailFigures(const PlanFigures& wing, const PlanFigures& stabilizer, Real finArea,
                        const TailArms& arms);

/// Neutral point and balance range of a wing with a stabiliser `arm` behind it.
BalanceFigures balanceFigures(const PlanFigures& wing, const PlanFigures& stabilizer, Real arm,
                              Real near);

}  // namespace velna
