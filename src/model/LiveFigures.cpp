#include "model/LiveFigures.h"

namespace velna {

bool LiveFigures::update(const Project& project, const Flight& flight) {
    const bool sameAircraft = looked_ && seen_ == project;
    if (sameAircraft && flight_ == flight) return false;
    if (!sameAircraft) {
        figures_ =
            looked_ ? figuresSince(figures_, seen_, project, flight) : figuresOf(project, flight);
        seen_ = project;
    } else {
        figures_.flight = flightFigures(figures_.wing, flight);
    }
    flight_ = flight;
    looked_ = true;
    return true;
}

}  // namespace velna
