// Included once in a test program, behind the definitions of `theProject` and `theSolids`.

#include "support/InHand.h"

namespace velna {

Project& project = theProject;
Solids& solids = theSolids;
OwnedList<SymWingSections>& Wings = theProject.Wings;
std::int16_t& nbWings = theProject.nbWings;
std::int16_t& currentWing = theProject.currentWing;
SymWingSections& Stabilizer = theProject.Stabilizer;
VertWingSection& Rudder = theProject.Rudder;
OwnedList<MeshSections>& Fuselages = theProject.Fuselages;
std::int16_t& nbFuselages = theProject.nbFuselages;
std::int16_t& currentFuselage = theProject.currentFuselage;
OwnedList<ElectroBox>& Equipments = theProject.Equipments;
std::int16_t& nbEquipments = theProject.nbEquipments;
std::int16_t& currentEquipment = theProject.currentEquipment;
ObjectListRecord& ObjectList = theProject.ObjectList;

void resetModel() {
    project = {};
    solids = {};
    Plane::setDefaultPlane(project);
    ObjectList.update(Fuselages, nbFuselages);
}

}  // namespace velna
