#include "shell/TabElement.h"

#include "editor/Main.h"
#include "model/Fuselage.h"
#include "model/Plane.h"

namespace velna::TabElement {

namespace {

/// Calls `visit` with the open tab's element; false where the tab has none.
template <class Visit>
bool onElement(Visit visit) {
    switch (Main.tab()) {
        case PanelTab::fuselage:
            visit(Fuselage::current());
            return true;
        case PanelTab::wing:
            visit(Wings(currentWing));
            return true;
        case PanelTab::stabilizer:
            visit(Stabilizer);
            return true;
        case PanelTab::rudder:
            visit(Rudder);
            return true;
        default:
            return false;
    }
}

/// A panel of two halves carries its picture on both.
void giveTexture(SymWingSections& wing, const std::string& file, const std::string& title) {
    wing.set_texture_loaded(false);
    wing.set_texture_filename(file);
    wing.qualified_texture_filename = title;
}

template <class Object>
void giveTexture(Object& object, const std::string& file, const std::string& title) {
    object.texture_loaded = false;
    object.texture_filename = file;
    object.qualified_texture_filename = title;
}

}  // namespace

std::optional<Point3D> color() {
    std::optional<Point3D> found;
    onElement([&](auto& element) { found = element.color(); });
    return found;
}

void setColor(const Point3D& color) {
    onElement([&](auto& element) { element.set_color(color); });
}

bool setTexture(const std::string& file, const std::string& title) {
    bool changes = false;
    onElement([&](auto& element) {
        changes = !file.empty() || !element.qualified_texture_filename.empty();
        giveTexture(element, file, title);
    });
    return changes;
}

}  // namespace velna::TabElement
