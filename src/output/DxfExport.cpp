#include <string>

#include "model/Fuselage.h"
#include "model/Plane.h"
#include "output/AircraftDxf.h"

namespace velna::Plane {

namespace {

using SaveFuselage = void (*)(DxfDrawing&, const MeshSections&, int);

/// Lines of all fuselages, about: `linesPerSection` a section, or its outline where that is 0.
long long expectedLines(int linesPerSection) {
    long long total = 0;
    for (int i = 1; i <= nbFuselages; ++i) {
        const MeshSections& fuselage = Fuselages(i);
        const long long each = linesPerSection == 0 ? fuselage.nb_cross : linesPerSection;
        total += fuselage.nb_sections * each * (fuselage.shift != 0 ? 2 : 1);
    }
    return total;
}

/// A fuselage without outline points has no shape yet. Hidden ones are drawn: a drawing is of the
/// aircraft, not of the screen.
void drawFuselages(DxfDrawing& drawing, SaveFuselage save) {
    for (int i = 1; i <= nbFuselages && drawing.wanted(); ++i)
        if (Fuselages(i).nb_cross != 0) save(drawing, Fuselages(i), i);
}

}  // namespace

std::string exportDXFVTop(const std::string& file) {
    DxfDrawing drawing(file, expectedLines(2));
    drawing.dxfBegin();
    for (int i = 1; i <= nbWings; ++i) saveDXF_vtop(drawing, Wings(i));
    saveDXF_vtop(drawing, Stabilizer);
    saveDXF_vtop(drawing, Rudder);
    drawFuselages(drawing, saveDXF_vtop);
    return drawing.dxfEnd();
}

std::string exportDXFFront(const std::string& file) {
    DxfDrawing drawing(file, expectedLines(0));
    drawing.dxfBegin();
    for (int i = 1; i <= nbWings; ++i) saveDXF_front(drawing, Wings(i));
    saveDXF_front(drawing, Stabilizer);
    saveDXF_front(drawing, Rudder);
    drawFuselages(drawing, saveDXF_front);
    return drawing.dxfEnd();
}

/// Like the side view, the drawing has the first wing only: further panels would cover its root.
std::string exportDXFSide(const std::string& file) {
    DxfDrawing drawing(file, expectedLines(3));
    drawing.dxfBegin();
    saveDXF_side(drawing, Wings(1));
    saveDXF_side(drawing, Stabilizer);
    saveDXF_side(drawing, Rudder);
    drawFuselages(drawing, saveDXF_side);
    for (int i = 1; i <= nbEquipments; ++i) saveDXF_side(drawing, Equipments(i), i);
    return drawing.dxfEnd();
}

std::string exportDXFHTop(const std::string& file) {
    const MeshSections& fuselage = Fuselage::current();
    const long long outlines = static_cast<long long>(fuselage.nb_sections) * fuselage.nb_cross;
    DxfDrawing drawing(file, 3LL * fuselage.nb_sections + outlines);
    drawing.dxfBegin();
    saveDXF_htop(drawing, fuselage);
    for (int i = 1; i <= nbEquipments; ++i) saveDXF_htop(drawing, Equipments(i), i);
    return drawing.dxfEnd();
}

}  // namespace velna::Plane
