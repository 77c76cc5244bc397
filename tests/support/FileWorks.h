#pragma once

#include <span>

#include "model/Project.h"
#include "support/Choice.h"

namespace velna::fuzz {

/// Makes something of an aircraft, in the form that the choice has of the work's number. Ends the
/// run where that cannot be made or holds what is no finite number.
using Work = void (*)(const Project& aircraft, const Choice& choice, std::size_t number);

/// Models, drawings, plans on paper, cut parts and solids, each into files that are looked at, and
/// the figures. Objects have no pictures in them: their names may hold any word.
std::span<const Work> fileWorks();

}  // namespace velna::fuzz
