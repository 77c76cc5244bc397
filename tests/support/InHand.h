#pragma once

#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/MainWing.h"
#include "model/MeshSections.h"
#include "model/Plane.h"
#include "model/Solids.h"

namespace velna {

// The one project that the tests of a program work on, its solids, and its parts by their own
// names.
extern Project& project;
extern Solids& solids;
extern OwnedList<SymWingSections>& Wings;
extern std::int16_t& nbWings;
extern std::int16_t& currentWing;
extern SymWingSections& Stabilizer;
extern VertWingSection& Rudder;
extern OwnedList<MeshSections>& Fuselages;
extern std::int16_t& nbFuselages;
extern std::int16_t& currentFuselage;
extern OwnedList<ElectroBox>& Equipments;
extern std::int16_t& nbEquipments;
extern std::int16_t& currentEquipment;
extern ObjectListRecord& ObjectList;

/// Puts the project back to that of a program just started.
void resetModel();

}  // namespace velna
