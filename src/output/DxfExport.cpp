#include <string>

#include "common/MemoryEnds.h"
#include "model/Fuselage.h"
#include "output/EquipmentDxf.h"
#include "output/Exports.h"
#include "output/FuselageDxf.h"
#include "output/TailDxf.h"
#include "output/WingDxf.h"

namespace velna::Plane {

namespace {

using SaveFuselage = void (*)(DxfDrawing&, const MeshSections&, int);

/// Lines of all fuselages, about: `linesPerSection` a section, or its outline where that is 0.
long long expectedLines(const Project& project, int linesPerSection) {
    long long total = 0;
    for (int i = 1; i <= project.nbFuselages; ++i) {
        const MeshSections& fuselage = project.Fuselages(i);
        const long long each = linesPerSection == 0 ? fuselage.nb_cross : linesPerSection;
        total += fuselage.nb_sections * each * (fuselage.shift != 0 ? 2 : 1);
    }
    return total;
}

/// A fuselage without outline points has no shape yet. Hidden ones are drawn: a drawing is of the
/// aircraft, not of the screen.
void drawFuselages(DxfDrawing& drawing, const Project& project, SaveFuselage save) {
    for (int i = 1; i <= project.nbFuselages && drawing.wanted(); ++i)
        if (project.Fuselages(i).nb_cross != 0) save(drawing, project.Fuselages(i), i);
}

}  // namespace

Outcome exportDXFVTop(const Project& project, const std::string& file, Progress* watcher) {
    return failedIfMemoryEnds([&] {
        DxfDrawing drawing(file, expectedLines(project, 2), watcher);
        drawing.dxfBegin();
        for (int i = 1; i <= project.nbWings; ++i) saveDXF_vtop(drawing, project.Wings(i));
        saveDXF_vtop(drawing, project.Stabilizer);
        saveDXF_vtop(drawing, project.Rudder);
        drawFuselages(drawing, project, saveDXF_vtop);
        return drawing.dxfEnd();
    });
}

Outcome exportDXFFront(const Project& project, const std::string& file, Progress* watcher) {
    return failedIfMemoryEnds([&] {
        DxfDrawing drawing(file, expectedLines(project, 0), watcher);
        drawing.dxfBegin();
        for (int i = 1; i <= project.nbWings; ++i) saveDXF_front(drawing, project.Wings(i));
        saveDXF_front(drawing, project.Stabilizer);
        saveDXF_front(drawing, project.Rudder);
        drawFuselages(drawing, project, saveDXF_front);
        return drawing.dxfEnd();
    });
}

/// Like the side view, the drawing has the first wing only: further panels would cover its root.
Outcome exportDXFSide(const Project& project, const std::string& file, Progress* watcher) {
    return failedIfMemoryEnds([&] {
        DxfDrawing drawing(file, expectedLines(project, 3), watcher);
        drawing.dxfBegin();
        saveDXF_side(drawing, project.Wings(1));
        saveDXF_side(drawing, project.Stabilizer);
        saveDXF_side(drawing, project.Rudder);
        drawFuselages(drawing, project, saveDXF_side);
        for (int i = 1; i <= project.nbEquipments; ++i)
            saveDXF_side(drawing, project.Equipments(i), i);
        return drawing.dxfEnd();
    });
}

Outcome exportDXFHTop(const Project& project, const std::string& file, Progress* watcher) {
    return failedIfMemoryEnds([&] {
        const MeshSections& fuselage = Fuselage::current(project);
        const long long outlines = static_cast<long long>(fuselage.nb_sections) * fuselage.nb_cross;
        DxfDrawing drawing(file, 3LL * fuselage.nb_sections + outlines, watcher);
        drawing.dxfBegin();
        saveDXF_htop(drawing, fuselage);
        for (int i = 1; i <= project.nbEquipments; ++i)
            saveDXF_htop(drawing, project.Equipments(i), i);
        return drawing.dxfEnd();
    });
}

}  // namespace velna::Plane
