#pragma once

#include <cstddef>

#include "model/Project.h"
#include "support/Choice.h"

namespace velna::fuzz {

/// Takes `aircraft` through what the program makes of one, as far as `choice` has it: solids,
/// picture, the four views under a pointer that moves over them, section editor, drawings of the
/// views, and the works on files. Ends the run where one of them cannot be made or holds what is no
/// finite number. Gives how many works were done.
std::size_t workThrough(const Project& aircraft, const Choice& choice);

/// How many works there are.
std::size_t workCount();

}  // namespace velna::fuzz
