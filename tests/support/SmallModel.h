#pragma once

#include "model/Fuselage.h"
#include "model/MeshSections.h"
#include "model/Project.h"

namespace velna::fuzz {

/// Whether the model is small enough to be worked through in every run.
inline bool isSmall(const Project& aircraft) {
    constexpr int mostParts = 20;
    constexpr long long mostPoints = 2000;
    if (aircraft.nbWings > mostParts || aircraft.nbFuselages > mostParts ||
        aircraft.nbEquipments > mostParts)
        return false;
    long long size = 0;
    for (int i = 1; i <= aircraft.nbWings; ++i) size += aircraft.Wings(i).nb;
    for (int i = 1; i <= aircraft.nbFuselages; ++i) {
        const MeshSections& body = aircraft.Fuselages(i);
        size += body.nb_sections * (1LL + body.nb_cross);
    }
    return size < mostPoints;
}

}  // namespace velna::fuzz
