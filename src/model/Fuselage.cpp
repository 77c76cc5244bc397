#include "model/Fuselage.h"

namespace velna::Fuselage {

namespace {

MeshSections newFuselage(const Project& project) {
    return MeshSections(project.units, project.defaultColor);
}

long long meshSize(const MeshSections& fuselage) {
    return static_cast<long long>(fuselage.nb_sections) * fuselage.nb_cross;
}

}  // namespace

void initFuselages(Project& project) {
    project.nbFuselages = 1;
    project.currentFuselage = 1;
    resizeFuselages(project);
    addFuselage(project);
}

void resizeFuselages(Project& project) {
    project.Fuselages.resize(project.nbFuselages, newFuselage(project));
}

void addFuselage(Project& project, bool copyCurrent) {
    project.Fuselages.put(project.nbFuselages, copyCurrent
                                                   ? current(project).copyShapeAndSelectLast()
                                                   : newFuselage(project));
}

long long meshPoints(const Project& project) {
    long long points = 0;
    for (int i = 1; i <= project.nbFuselages; ++i) points += meshSize(project.Fuselages(i));
    return points;
}

bool meshFits(const Project& project, const MeshSections* grown, long long sections,
              long long cross) {
    const long long others = meshPoints(project) - (grown ? meshSize(*grown) : 0);
    return others + sections * cross <= Plane::largestMesh;
}

void zeroElevationOffsets(Project& project) {
    for (int i = 1; i <= project.nbFuselages; ++i) project.Fuselages(i).elevation_offset = 0;
}

void rescale(Project& project, double k) {
    for (int i = 1; i <= project.nbFuselages; ++i) project.Fuselages(i).rescale(k);
}

void switchToInches(Project& project) {
    for (int i = 1; i <= project.nbFuselages; ++i) project.Fuselages(i).switchToInches();
}

void switchToMillimeters(Project& project) {
    for (int i = 1; i <= project.nbFuselages; ++i) project.Fuselages(i).switchToMillimeters();
}

}  // namespace velna::Fuselage
