#include "shell/FileCommands.h"

#include <string>
#include <tuple>
#include <vector>

#include "common/ReplacedFile.h"
#include "editor/Main.h"
#include "editor/ModelChange.h"
#include "model/MainWing.h"
#include "model/ObjectList.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "output/Progress.h"
#include "persistence/AirfoilFiles.h"
#include "preview/PictureCopies.h"
#include "preview/Rendering.h"
#include "shell/Failure.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"
#include "shell/TabElement.h"

namespace velna::FileCommands {

namespace {

constexpr const char* openFilter =
    "Velna Project (*.vln)|*.vln|Airfoil (*.xy)|*.xy|Texture Image (*.bmp;*.jpg)|*.bmp;*.jpg|";
constexpr const char* saveFilter =
    "Velna Project (*.vln)|*.vln|VRML2.0 Format (*.wrl)|*.wrl|DXF Format (*.dxf)|*.dxf";

/// The kinds of file in the order of each filter, counted from 1.
namespace Opened {
enum { project = 1, airfoil, texture };
}
namespace Saved {
enum { project = 1, model, drawing };
}

/// A fresh list, all fuselages shown, on the model as it stands.
void resetModel() {
    ObjectList.clear();
    Plane::setDefaultPlane();
    Main.views.startOver();
    Main.fillCatalogues();
    // The panel's filler sets the bar's range alone: it would stand at a box of the former project.
    Main.setScroll(Control::IndexServosScroll, nbEquipments, currentEquipment);
}

/// False when the user would rather keep the current project. A file that is no project is found
/// out before the aircraft in hand is touched, or asked about.
bool openProject(const std::string& file) {
    const std::string reason = Plane::whyNoProject(file);
    if (!reason.empty()) {
        reportFailure(titleOf(file) + " could not be opened. The aircraft stays as it is.", reason);
        return true;
    }
    if (!Main.savedProject &&
        !Shell.dialogs->askYesNo("The current project has not been saved and will be lost\n"
                                 "Do you want to proceed ?",
                                 BoxIcon::Exclamation, false))
        return false;
    resetModel();
    const std::string message = Plane::readProject(file);
    if (!message.empty()) Shell.dialogs->message(applicationTitle, message, BoxIcon::Information);
    ObjectList.update();
    return true;
}

void openWingAirfoil(const std::string& file) {
    const auto section = [] {
        const SymWingSections& wing = Wings(currentWing);
        std::vector<Point3D> points;
        for (int i = 1; i <= wing.airfoilSize(); ++i) points.push_back(wing.airfoilPoint(i));
        return std::tuple{wing.nb, wing.thickness1, wing.thickness2, points};
    };
    changeModel(section, [&] { openAirfoil(file); });
}

void openTexture(const std::string& file) {
    const std::string title = storedTitle(titleOf(file));
    if (TabElement::setTexture(file, title)) Main.savedProject = false;
}

void saveProjectAs(const std::string& file) {
    const std::string reason = Plane::saveProject(file);
    if (reason.empty()) {
        Main.savedProject = true;
    } else {
        reportFailure(titleOf(file) + " could not be saved completely.", reason);
    }
}

/// The model. That the export shows hidden fuselages is no work of the user's to be saved, and it
/// leaves the last fuselage current: the panel must not edit it under the numbers of another. What
/// was hidden has no outline of this view yet: the view is drawn again.
std::string exportModel(const std::string& file) {
    const bool saved = Main.savedProject;
    // A hidden fuselage has no solid. Showing all of them rebuilds every solid with the picture, so
    // that the file holds the aircraft as it is now, and whole.
    Main.showAll();
    const std::string reason = Plane::exportVRML(file);
    Main.updateFuselageInterface();
    Main.redrawAtSameScale();
    Main.savedProject = saved;
    return reason;
}

std::string writeDrawing(const std::string& file) {
    switch (Main.mode) {
        case ViewMode::VTop:
            return Plane::exportDXFVTop(file);
        case ViewMode::Front:
            return Plane::exportDXFFront(file);
        case ViewMode::Side:
            return Plane::exportDXFSide(file);
        default:
            return Plane::exportDXFHTop(file);
    }
}

/// The drawing of the view on screen, which is drawn again.
std::string exportView(const std::string& file) {
    const std::string reason = writeDrawing(file);
    Main.redrawAtSameScale();
    return reason;
}

/// The panels, the top view, and the picture with the view transform of the new unit.
void showModel() {
    Main.refreshPanels();
    Main.initVTopView();
    Rendering::reapplyViewTransform();
}

}  // namespace

void newProject() {
    if (!Shell.dialogs->askYesNo("Do you really want to reset your project ?", BoxIcon::Exclamation,
                                 false))
        return;
    ObjectList.clear();
    Main.clearBitmapAction();
    Prefs.units = millimetres;
    resetModel();
    ObjectList.update();
    Main.refreshPanels();
    // The default aircraft is in millimetres.
    if (Prefs.InchesOption) Preferences::convertDefault();
    showModel();
    Rendering::renderScene(true);
}

void open() {
    Main.clearBitmapAction();
    const FileAnswer answer = Shell.dialogs->openFile(openFilter);
    if (!answer.file.empty()) {
        if (answer.filterIndex == Opened::project && !openProject(answer.file)) return;
        if (answer.filterIndex == Opened::airfoil) openWingAirfoil(answer.file);
        if (answer.filterIndex == Opened::texture) openTexture(answer.file);
    } else if (answer.filterIndex == Opened::texture) {
        openTexture({});
    }
    showModel();
    Rendering::renderScene(true);
    Rendering::renderScene(true);
}

void save() {
    const FileAnswer answer = Shell.dialogs->saveFile(saveFilter);
    if (answer.file.empty()) return;
    if (answer.filterIndex == Saved::project) {
        saveProjectAs(answer.file);
        return;
    }
    const bool model = answer.filterIndex == Saved::model;
    const std::string reason = model ? exportModel(answer.file) : exportView(answer.file);
    if (reason.empty() || reason == cancelledReason) return;
    // A model stands without the pictures that could not be read.
    reportFailure(
        model ? titleOf(answer.file) + " could not be exported completely." : "The export failed.",
        reason);
}

}  // namespace velna::FileCommands
