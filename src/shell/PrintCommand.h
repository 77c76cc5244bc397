#pragma once

namespace velna::PrintCommand {

/// Asks which plans, then for the printer, and prints each chosen plan as a job of its own.
/// Whatever happens after the choice, the top view stands afterwards; Cancel in the choice changes
/// nothing.
void run();

}  // namespace velna::PrintCommand
