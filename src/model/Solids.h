#pragma once

#include "common/List.h"
#include "model/BodySolid.h"
#include "model/ElectroBox.h"
#include "model/FinSolid.h"
#include "model/Project.h"
#include "model/WingSection.h"

namespace velna {

/// What is computed from a project to be looked at: a solid a part, by the part's number. Of parts
/// that are only promised the first one's stands for all.
struct Solids {
    NumberedList<PanelSolid> wings;
    PanelSolid stabilizer;
    FinSolid rudder;
    NumberedList<BodySolid> fuselages;
    NumberedList<BoxSolid> equipments;

    /// Rebuilds every solid; of the fuselages the shown ones.
    void createAll(const Project& project);
    /// The same for those alone whose part is another than the one they were built from.
    void update(const Project& project);
};

}  // namespace velna
