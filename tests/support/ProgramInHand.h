#pragma once

#include "shell/Application.h"
#include "support/EditorInHand.h"

namespace velna {

/// The one program that the tests work on; its parts by their own names are in InHand.h.
extern Application& program;

/// Another program, just made: nothing of the former one is left.
void renewProgram();

}  // namespace velna
