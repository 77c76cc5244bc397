#pragma once

#include <string>

#include "model/Figures.h"

namespace velna {

/// The figures as one JSON object with a line end after it: keys always in the same order, numbers
/// as in project files, null for a figure that is not there; mm, dm2, cm3, g and degrees whatever
/// the project's unit.
std::string figuresJson(const Figures& figures);

}  // namespace velna
