#pragma once

#include <cstdint>
#include <string>

#include "common/List.h"
#include "common/Palette.h"
#include "common/Point.h"
#include "model/ElectroBox.h"
#include "model/ObjectList.h"
#include "model/SymWingSections.h"
#include "model/Units.h"
#include "model/VertWingSection.h"

namespace velna {

class MeshSections;

/// One aircraft with all that a project file tells of it: a value, copied and compared as a whole.
/// Lists are 1-based; the counter, never the list's size, is what every loop uses. Who works on
/// fuselages includes MeshSections.h; the rest is not built again when it changes.
struct Project {
    Project();
    Project(const Project& other);
    Project(Project&& other) noexcept;
    Project& operator=(const Project& other);
    Project& operator=(Project&& other) noexcept;
    ~Project();

    OwnedList<SymWingSections> Wings;
    std::int16_t nbWings = 0;
    std::int16_t currentWing = 1;
    SymWingSections Stabilizer;
    VertWingSection Rudder;
    OwnedList<MeshSections> Fuselages;
    std::int16_t nbFuselages = 0;
    std::int16_t currentFuselage = 1;
    OwnedList<ElectroBox> Equipments;
    std::int16_t nbEquipments = 0;
    std::int16_t currentEquipment = 1;

    ObjectListRecord ObjectList;   ///< which fuselages are shown
    int units = millimetres;       ///< of all lengths
    std::string projectDirectory;  ///< folder of the last read project, with its "/"

    Point3D defaultColor{200, 200, 200};  ///< of a new object
    Rgb dimColor = palette[9];
    Rgb highlightColor = palette[14];

    bool operator==(const Project& other) const;
};

}  // namespace velna
