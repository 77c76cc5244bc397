#pragma once

#include "persistence/RecordFields.h"

namespace velna {

class TextSink;
class SymWingSections;
class ValueReader;
struct Project;

// The records of a wing panel, and of the stabiliser, which is stored alike. A read throws
// ReadFailure where the file fails; the fields behind the failure keep their values.

/// The lines of the record as this version writes it, behind its head word.
RecordFields<SymWingSections> wingFields();

void saveWing(TextSink& file, const SymWingSections& wing);
void readWing(ValueReader& file, SymWingSections& wing);
void readWingV101(ValueReader& file, SymWingSections& wing);
void readWingV0212(ValueReader& file, SymWingSections& wing);

namespace MainWing {

/// The count and the panels.
void saveWings(TextSink& file, const Project& project);
void readWings(ValueReader& file, Project& project);
void readWingsV120(ValueReader& file, Project& project);
void readWingsV101(ValueReader& file, Project& project);
void readWingsV0212(ValueReader& file, Project& project);

/// The points of each panel's airfoil.
void saveWingAirfoils(TextSink& file, const Project& project);
void readWingAirfoils(ValueReader& file, Project& project);

}  // namespace MainWing
}  // namespace velna
