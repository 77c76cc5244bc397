#include "shell/EditedPart.h"

#include "editor/Main.h"
#include "model/Fuselage.h"

namespace velna {

namespace {

/// Calls `visit` with the part and its solid; false where the tab has none.
template <class Visit>
bool onPart(const EditedPart& part, Visit visit) {
    Project& project = part.project;
    switch (part.tab) {
        case PanelTab::fuselage:
            visit(Fuselage::current(project), part.solids.fuselages(project.currentFuselage));
            return true;
        case PanelTab::wing:
            visit(project.Wings(project.currentWing), part.solids.wings(project.currentWing));
            return true;
        case PanelTab::stabilizer:
            visit(project.Stabilizer, part.solids.stabilizer);
            return true;
        case PanelTab::rudder:
            visit(project.Rudder, part.solids.rudder);
            return true;
        default:
            return false;
    }
}

void nameTexture(SymWingSections& wing, const std::string& file) {
    wing.set_texture_filename(file);
}

template <class Part>
void nameTexture(Part& part, const std::string& file) {
    part.texture_filename = file;
}

/// A panel of two halves carries its picture on both.
void forgetTexture(PanelSolid& panel) {
    panel.Left.picture.texture_loaded = false;
    panel.Right.picture.texture_loaded = false;
}

template <class Solid>
void forgetTexture(Solid& solid) {
    solid.picture.texture_loaded = false;
}

}  // namespace

std::optional<Point3D> EditedPart::color() const {
    std::optional<Point3D> found;
    onPart(*this, [&](auto& part, auto&) { found = part.color(); });
    return found;
}

void EditedPart::setColor(const Point3D& color) const {
    onPart(*this, [&](auto& part, auto&) { part.set_color(color); });
}

bool EditedPart::setTexture(const std::string& file, const std::string& title) const {
    bool changes = false;
    onPart(*this, [&](auto& part, auto& solid) {
        changes = !file.empty() || !part.qualified_texture_filename.empty();
        nameTexture(part, file);
        part.qualified_texture_filename = title;
        forgetTexture(solid);
    });
    return changes;
}

}  // namespace velna
