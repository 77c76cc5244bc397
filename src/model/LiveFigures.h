#pragma once

#include "model/Figures.h"
#include "model/Project.h"

namespace velna {

/// The figures of an aircraft that is being worked on.
class LiveFigures {
public:
    /// Looks whether `project` or `flight` has changed since the last look, and only then computes.
    /// Returns whether it did.
    bool update(const Project& project, const Flight& flight);

    const Figures& figures() const { return figures_; }

private:
    bool looked_ = false;
    Project seen_;
    Flight flight_;
    Figures figures_;
};

}  // namespace velna
