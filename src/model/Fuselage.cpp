#include "model/Fuselage.h"

#include <memory>

#include "model/ObjectList.h"

namespace velna::Fuselage {

void initFuselages() {
    nbFuselages = 1;
    currentFuselage = 1;
    resizeFuselages();
    addFuselage();
}

void resizeFuselages() {
    Fuselages.resize(nbFuselages, [] { return std::make_unique<MeshSections>(); });
}

void addFuselage(bool copyCurrent) {
    Fuselages.put(nbFuselages,
                  copyCurrent ? std::make_unique<MeshSections>(current().copyShapeAndSelectLast())
                              : std::make_unique<MeshSections>());
}

void createVisibleFuselages() {
    Fuselages.forEachDistinct(
        nbFuselages, [](int i) { return ObjectList.shown(i); },
        [](int, MeshSections& body) { body.create(); });
}

void zeroElevationOffsets() {
    for (int i = 1; i <= nbFuselages; ++i) Fuselages(i).elevation_offset = 0;
}

void rescale(double k) {
    for (int i = 1; i <= nbFuselages; ++i) Fuselages(i).rescale(k);
}

void switchToInches() {
    for (int i = 1; i <= nbFuselages; ++i) Fuselages(i).switchToInches();
}

void switchToMillimeters() {
    for (int i = 1; i <= nbFuselages; ++i) Fuselages(i).switchToMillimeters();
}

}  // namespace velna::Fuselage
