#include "model/Figures.h"

#include <algorithm>

#include "model/BalanceFigures.h"
#include "model/HullFigures.h"
#include "model/MeshSections.h"
#include "model/PlanFigures.h"
#include "model/Project.h"
#include "model/Strips.h"

namespace velna {

namespace {

int panelCount(const Project& project) {
    return std::min<int>(project.nbWings, project.Wings.size());
}

/// The lengths of a project in millimetres, their x from a place near the aircraft.
struct Frame {
    Real millimetre;
    Real near;  ///< in mm

    explicit Frame(const Project& project)
        : millimetre(project.units == inches ? 25.4L : 1.0L),
          near(nearestRoot(project) * millimetre) {}

    Strips strips(const SymWingSections& panel) const {
        return {{panel.shift * millimetre, panel.span * millimetre, x(panel.pos1),
                 panel.pos2 * millimetre, panel.elevation2 * millimetre, panel.length1 * millimetre,
                 panel.length2 * millimetre},
                Strips::Halves::Alike};
    }
    Strips strips(const VertWingSection& fin) const {
        return {{fin.shift * millimetre, fin.span * millimetre, x(fin.pos1), fin.pos2 * millimetre,
                 fin.offset2 * millimetre, fin.length1 * millimetre, fin.length2 * millimetre},
                Strips::Halves::Apart};
    }

private:
    // Of all roots the one nearest to the origin: none loses a digit by it.
    static Real nearestRoot(const Project& project) {
        Real nearest = project.Stabilizer.pos1;
        const auto note = [&nearest](Real x) {
            if (std::abs(x) < std::abs(nearest)) nearest = x;
        };
        note(project.Rudder.pos1);
        for (int i = 1; i <= panelCount(project); ++i) note(project.Wings(i).pos1);
        return nearest;
    }
    Real x(double value) const { return value * millimetre - near; }
};

PlanFigures wingFigures(const Project& project, const Frame& frame) {
    PlanSums sums;
    for (int i = 1; i <= panelCount(project); ++i) sums.add(frame.strips(project.Wings(i)));
    return sums.figures(2, frame.near);
}

template <class Part>
PlanFigures partFigures(const Part& part, Real copies, const Frame& frame) {
    PlanSums sums;
    sums.add(frame.strips(part));
    return sums.figures(copies, frame.near);
}

int hullCount(const Project& project) {
    return std::min<int>(project.nbFuselages, project.Fuselages.size());
}

/// The figures of all fuselages; `known(i)` gives those of fuselage `i`, or null where they have to
/// be computed.
template <class Known>
std::vector<HullFigures> allHulls(const Project& project, const Frame& frame, Known known) {
    std::vector<HullFigures> hulls;
    bool promisedBefore = false;
    for (int i = 1; i <= hullCount(project); ++i) {
        // Promised fuselages are all alike, and there may be tens of thousands.
        const bool promised = project.Fuselages.promised(i);
        if (promised && promisedBefore) {
            hulls.push_back(hulls.back());
            hulls.back().number = i;
        } else if (const HullFigures* before = known(i)) {
            hulls.push_back(*before);
        } else {
            hulls.push_back(hullFigures(project.Fuselages(i), i, frame.millimetre));
        }
        promisedBefore = promised;
    }
    return hulls;
}

template <class Known>
Figures compute(const Project& project, const Flight& flight, Known known) {
    const Frame frame(project);
    const PlanFigures wing = wingFigures(project, frame);
    const PlanFigures stabilizer = partFigures(project.Stabilizer, 2, frame);
    const PlanFigures fin = partFigures(project.Rudder, 1, frame);
    const int fins = project.Rudder.mirrored() ? 2 : 1;
    const Real height = std::abs(project.Rudder.span * frame.millimetre);
    const TailArms arms{figure(stabilizer.quarterX - wing.quarterX),
                        figure(fin.quarterX - wing.quarterX)};
    Figures figures;
    figures.units = project.units;
    figures.wing = givenSurface(wing, panelCount(project), frame.near);
    figures.stabilizer = givenSurface(stabilizer, 1, frame.near);
    figures.fin = givenFin(fin, fins, height, frame.near);
    figures.tail = tailFigures(wing, stabilizer, figure(fins * fin.area, squareDecimetre), arms);
    figures.fuselages = allHulls(project, frame, known);
    figures.balance = balanceFigures(wing, stabilizer, arms.horizontal, frame.near);
    figures.flight = flightFigures(figures.wing, flight);
    return figures;
}

}  // namespace

FlightFigures flightFigures(const SurfaceFigures& wing, const Flight& flight) {
    // Kinematic viscosity of air at 15 degrees C and sea level, m2/s: ISO 2533.
    constexpr Real viscosity = 1.4607e-5L;
    const Real speed = taken(flight.speed) / 3.6L;
    const auto reynolds = [speed](const Figure& chord) {
        return given(speed * (taken(chord) / 1000) / viscosity);
    };
    return {flight.mass,
            flight.speed,
            given(taken(flight.mass) / taken(wing.areaProjected)),
            reynolds(wing.rootChord),
            reynolds(wing.tipChord),
            reynolds(wing.meanChord)};
}

Figures figuresOf(const Project& project, const Flight& flight) {
    return compute(project, flight, [](int) -> const HullFigures* { return nullptr; });
}

Figures figuresSince(const Figures& known, const Project& before, const Project& project,
                     const Flight& flight) {
    const int unchanged = before.units == project.units ? hullCount(before) : 0;
    return compute(project, flight, [&](int i) {
        const bool same = i <= unchanged && before.Fuselages(i) == project.Fuselages(i);
        return same ? &known.fuselages[static_cast<std::size_t>(i) - 1] : nullptr;
    });
}

}  // namespace velna
