#include "shell/FileCommands.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <system_error>
#include <tuple>
#include <utility>
#include <vector>

#include "common/MemoryEnds.h"
#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "editor/HistoryStep.h"
#include "editor/ModelChange.h"
#include "model/Plane.h"
#include "persistence/AirfoilFiles.h"
#include "persistence/ProjectFile.h"
#include "shell/CutCommand.h"
#include "shell/DroppedFiles.h"
#include "shell/EditedPart.h"
#include "shell/ExportKinds.h"

namespace velna {

namespace {

constexpr const char* openFilter =
    "Velna Project (*.vln)|*.vln|Airfoil (*.xy)|*.xy|Texture Image (*.bmp;*.jpg)|*.bmp;*.jpg|"
    "Airfoil in any order (*.dat)|*.dat;*.txt;*.cor|";
constexpr const char* saveFilter =
    "Velna Project (*.vln)|*.vln|VRML2.0 Format (*.wrl)|*.wrl|DXF Format (*.dxf)|*.dxf"
    "|STL for printing (*.stl)|*.stl|3MF for printing (*.3mf)|*.3mf|OBJ Model (*.obj)|*.obj"
    "|glTF Model (*.glb)|*.glb|VRML2.0 for strict readers (*.wrl)|*.wrl";

/// The kinds of file in the order of each filter, counted from 1.
constexpr std::array openKinds{OpenedKind::Project, OpenedKind::Airfoil, OpenedKind::Picture,
                               OpenedKind::AnyAirfoil};
namespace Saved {
enum { project = 1, model, drawing, stl, threeMf, obj, glb, strictModel, firstCut };
}

void updateList(Project& project) {
    project.ObjectList.update(project.Fuselages, project.nbFuselages);
}

void setDefault(Project& project) {
    project.ObjectList.clear();
    Plane::setDefaultPlane(project);
}

}  // namespace

/// A fresh list, all fuselages shown, on the model as it stands.
void FileCommands::resetModel() {
    setDefault(main.project);
    solids = {};
    main.views.startOver();
    // What a field has changed by is told within one aircraft.
    leaveField(main);
    main.fillCatalogues();
    // The panel's filler sets the bar's range alone: it would stand at a box of the former project.
    main.setScroll(Control::IndexServosScroll, main.project.nbEquipments,
                   main.project.currentEquipment);
}

void FileCommands::tellNotOpened(const std::string& what, const std::string& reason) {
    reportFailure(*ports.dialogs, what + " could not be opened. The aircraft stays as it is.",
                  reason);
}

/// While a long file is read, windows are painted and the user may cancel: the aircraft in hand
/// stands until the other is there. So it does where there is no memory for the other.
Outcome FileCommands::readInPlace(const std::string& file, bool& whole) {
    Project other;
    Outcome read;
    const Outcome room = failedIfMemoryEnds([&] {
        other = main.project;
        setDefault(other);
        read = Plane::readProject(other, file, &whole, ports.progress);
        updateList(other);
        return Outcome();
    });
    if (ports.progress) ports.progress->finish();
    if (room.hasFailed()) {
        tellNotOpened(titleOf(file), room.reason());
        return Outcome::cancelled();
    }
    if (read.isCancelled()) return read;
    resetModel();
    main.project = std::move(other);
    return read;
}

/// False when the user would rather keep the current project. A file that is no project is found
/// out before the aircraft in hand is touched, or asked about.
bool FileCommands::openProject(const std::string& file) {
    const Outcome project = failedIfMemoryEnds([&] { return Plane::checkProject(file); });
    if (project.hasFailed()) {
        tellNotOpened(titleOf(file), project.reason());
        return true;
    }
    if (!main.savedProject &&
        !ports.dialogs->askYesNo("The current project has not been saved and will be lost\n"
                                 "Do you want to proceed ?",
                                 BoxIcon::Exclamation, false))
        return false;
    const HistoryStep step(main, "Open");
    const FormerProject former{main.savedProject, main.projectName};
    std::string name = file;
    bool whole = false;
    const Outcome read = readInPlace(file, whole);
    if (read.isCancelled()) return true;
    if (!whole) name.clear();
    // From here to where the history has both, nothing needs memory: an aircraft and its name.
    main.history.replace("Open", main.project, main.savedProject, former);
    main.projectName.swap(name);
    main.Prefs.selectUnit(main.project.units);
    if (!read.hasFailed()) recent.add(file);
    if (read.hasFailed())
        ports.dialogs->message(applicationTitle, read.reason(), BoxIcon::Information);
    recovery.settle();
    return true;
}

void FileCommands::openWingAirfoil(const std::string& file) {
    const Project& project = main.project;
    const auto section = [&project] {
        const SymWingSections& wing = project.Wings(project.currentWing);
        std::vector<Point3D> points;
        for (int i = 1; i <= wing.airfoilSize(); ++i) points.push_back(wing.airfoilPoint(i));
        return std::tuple{wing.nb, wing.thickness1, wing.thickness2, points};
    };
    const HistoryStep step(main, "Airfoil");
    changeModel(main, section, [&] { openAirfoil(main.project, file); });
}

void FileCommands::openTexture(const std::string& file) {
    const HistoryStep step(main, file.empty() ? "Remove texture" : "Texture");
    const std::string title = storedTitle(titleOf(file));
    const EditedPart part{main.project, solids, main.tab()};
    if (part.setTexture(file, title)) main.savedProject = false;
}

void FileCommands::saveProjectAs(const std::string& file) {
    std::string name = file;
    const Outcome saved = Plane::saveProject(main.project, file, pictures, ports.progress);
    // A picture may have been stored under another name.
    main.history.amend(main.project);
    if (saved.isDone()) {
        main.savedProject = true;
        main.history.noteSaved();
        main.projectName.swap(name);
        recent.add(file);
        recovery.settle();
    } else if (saved.hasFailed()) {
        // What has come of the other name is not known: the next save asks.
        if (file != main.projectName) main.projectName.clear();
        reportFailure(*ports.dialogs, titleOf(file) + " could not be saved completely.",
                      saved.reason());
    }
}

/// The model. That the export shows hidden fuselages is no work of the user's to be saved, and it
/// leaves the last fuselage current: the panel must not edit it under the numbers of another. What
/// was hidden has no outline of this view yet: the view is drawn again.
Outcome FileCommands::exportModel(const std::string& file, VrmlSpelling spelling) {
    const bool saved = main.savedProject;
    // A hidden fuselage has no solid. All are built anew, so that the file holds the aircraft as it
    // is now, and whole.
    main.showAll();
    solids.createAll(main.project);
    const Outcome outcome =
        Plane::exportVRML(main.project, solids, file, pictures, ports.progress, spelling);
    main.history.amend(main.project);
    main.updateFuselageInterface();
    main.redrawAtSameScale();
    main.savedProject = saved;
    return outcome;
}

/// The solids to print or to look at; of a file for each part those that would be replaced are
/// asked about.
Outcome FileCommands::exportSolids(const std::string& file, SolidFormat format) {
    const auto wished = ports.dialogs->askSolidOptions(solidOptions);
    if (!wished) return Outcome::cancelled();
    solidOptions = *wished;
    std::vector<std::string> replaced;
    if (wished->each) {
        for (const std::string& part : Plane::solidFiles(main.project, format, *wished, file)) {
            std::error_code ignored;
            if (std::filesystem::exists(std::filesystem::symlink_status(part, ignored)))
                replaced.push_back(titleOf(part));
        }
    }
    if (!replaced.empty() &&
        !ports.dialogs->askYesNo(
            "These files will be replaced:\n" + firstLines(replaced) + "\nDo you want to proceed ?",
            BoxIcon::Exclamation, false))
        return Outcome::cancelled();
    return Plane::exportSolids(main.project, format, *wished, file, pictures, ports.progress);
}

/// The drawing of the view on screen, which is drawn again.
Outcome FileCommands::exportView(const std::string& file) {
    const Outcome outcome = exportViewDrawing(main.project, main.view.mode, file, ports.progress);
    main.redrawAtSameScale();
    return outcome;
}

/// The panels, the top view, and the picture with the view transform of the new unit.
void FileCommands::showModel() {
    main.refreshPanels();
    main.initVTopView();
    rendering.reapplyViewTransform();
}

void FileCommands::newProject() {
    if (!ports.dialogs->askYesNo("Do you really want to reset your project ?", BoxIcon::Exclamation,
                                 false))
        return;
    const HistoryStep step(main, "New");
    const FormerProject former{main.savedProject, main.projectName};
    main.project.ObjectList.clear();
    main.clearBitmapAction();
    main.project.units = millimetres;
    resetModel();
    updateList(main.project);
    main.refreshPanels();
    // The default aircraft is in millimetres.
    if (main.Prefs.InchesOption) preferences.convertDefault();
    main.history.replace("New", main.project, main.savedProject, former);
    main.projectName.clear();
    recovery.settle();
    showModel();
    rendering.renderScene(true);
}

void FileCommands::restore(UnsavedWork work) {
    updateList(work.project);
    resetModel();
    main.project = std::move(work.project);
    main.projectName = std::move(work.name);
    main.savedProject = false;
    main.Prefs.selectUnit(main.project.units);
    main.beginHistory();
    showModel();
    rendering.renderScene(true);
}

void FileCommands::open() {
    main.clearBitmapAction();
    const FileAnswer answer = ports.dialogs->openFile(openFilter);
    const OpenedKind kind = openKinds.at(static_cast<std::size_t>(answer.filterIndex - 1));
    if (!answer.file.empty()) {
        if (!openAs(kind, answer.file)) return;
    } else if (kind == OpenedKind::Picture) {
        openTexture({});
    }
    showOpened();
}

void FileCommands::openFile(const std::string& file) {
    OpenedKind kind{};
    try {
        kind = kindOfFile(file);
    } catch (const ReadFailure& failure) {
        const std::string title = titleOf(file);
        return tellNotOpened(title.empty() ? file : title, failure.what());
    }
    if (!openAs(kind, file)) return;
    main.clearBitmapAction();
    showOpened();
}

void FileCommands::openDropped(std::string_view uriList) {
    const std::vector<DroppedItem> items = droppedItems(uriList);
    if (items.empty()) return;
    if (items.size() > 1) {
        tellNotOpened(std::to_string(items.size()) + " files", "Please drop one file at a time.");
    } else if (!items.front().isLocal) {
        tellNotOpened(items.front().name, "It is no file of this computer.");
    } else {
        openFile(items.front().name);
    }
}

/// False where the user would rather keep the project.
bool FileCommands::openAs(OpenedKind kind, const std::string& file) {
    if (kind == OpenedKind::Project) return openProject(file);
    if (kind == OpenedKind::Airfoil) openWingAirfoil(file);
    if (kind == OpenedKind::AnyAirfoil) airfoils.openOutline(file);
    if (kind == OpenedKind::Picture) openTexture(file);
    return true;
}

void FileCommands::showOpened() {
    showModel();
    rendering.renderScene(true);
    rendering.renderScene(true);
}

void FileCommands::saveAgain() {
    main.projectName.empty() ? save() : saveProjectAs(main.projectName);
}

/// `kind` is one of the save dialog's, and no project.
Outcome FileCommands::exportAs(int kind, const std::string& file) {
    switch (kind) {
        case Saved::model:
            return exportModel(file, VrmlSpelling::Usual);
        case Saved::strictModel:
            return exportModel(file, VrmlSpelling::Strict);
        case Saved::stl:
            return exportSolids(file, SolidFormat::Stl);
        case Saved::threeMf:
            return exportSolids(file, SolidFormat::ThreeMf);
        case Saved::obj:
            return exportSolids(file, SolidFormat::Obj);
        case Saved::glb:
            return exportSolids(file, SolidFormat::Glb);
        default:
            return exportView(file);
    }
}

void FileCommands::save() {
    const FileAnswer answer = ports.dialogs->saveFile(saveFilter + CutCommand::filter());
    if (answer.file.empty()) return;
    if (answer.filterIndex == Saved::project) {
        saveProjectAs(answer.file);
        return;
    }
    if (answer.filterIndex >= Saved::firstCut) {
        CutCommand{main.project, preferences.settings, ports}.save(
            answer.filterIndex - Saved::firstCut, answer.file);
        return;
    }
    const Outcome outcome = exportAs(answer.filterIndex, answer.file);
    if (!outcome.hasFailed()) return;
    // A model stands without the pictures that could not be read.
    reportFailure(*ports.dialogs,
                  answer.filterIndex == Saved::drawing
                      ? "The export failed."
                      : titleOf(answer.file) + " could not be exported completely.",
                  outcome.reason());
}

}  // namespace velna
