#include "shell/Startup.h"

#include <cstdio>
#include <filesystem>
#include <utility>

#include "common/Version.h"
#include "model/Plane.h"
#include "shell/ProgramFolder.h"

namespace velna {

std::string Startup::logFile() const {
    return ports.desktop->programFolder() + "log.txt";
}

/// No background picture in the first view; the entries that work on one wait for it.
void Startup::initPicture() {
    main.pictureHere() = BackgroundPicture{};
    for (Control entry : {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap})
        main.setEnabled(entry, false);
}

void Startup::initPointer() {
    main.pointer.releaseKeys();
    main.project.currentWing = 1;
    main.view.mode = ViewMode::VTop;
}

/// The picture's context; the distance of 800 is overwritten before the first tick can see it.
void Startup::initPictureContext() {
    rendering.createRenderContext();
    rendering.renderDistance = 800;
    ports.desktop->enableTimer1(true);
    firstViewDue = true;
    rendering.renderDistance = 100;
    rendering.renderScene(true);
}

bool Startup::smallFontsMode() const {
    const auto characterHeight = ports.desktop->characterHeight();
    const bool small = !characterHeight || *characterHeight <= 16;
    std::error_code ignored;
    return small && std::filesystem::exists(preferences.fileToRead(), ignored);
}

void Startup::monitorLoad(const std::string& text) const {
    if (isInstalled(ports.desktop->programFolder())) return;
    if (std::FILE* log = std::fopen(logFile().c_str(), "ab")) {
        std::fprintf(log, "%s\r\n", text.c_str());
        std::fclose(log);
    }
}

/// The default aircraft is over, which the first view converts to the unit of the preferences.
void Startup::finishFirstView() {
    while (firstViewDue) timer1Tick();
}

bool Startup::bringBackWork() {
    auto work = recovery.offer();
    if (!work) return false;
    finishFirstView();
    files.restore(std::move(*work));
    return true;
}

void Startup::run(const std::string& file) {
    std::error_code ignored;
    if (!isInstalled(ports.desktop->programFolder())) std::filesystem::remove(logFile(), ignored);
    smallFontsVariable = smallFontsMode();
    ports.desktop->showSplash(std::string("Version ") + versionText, smallFontsVariable);
    initMain();
    ports.desktop->showMainWindow();
    main.selectTab(PanelTab::wing);
    preferences.readAll();
    preferences.readSettings();
    // A message box must not lie under the splash.
    ports.desktop->hideSplash();
    recovery.begin();
    bool fromFile = bringBackWork();
    if (!file.empty()) {
        fromFile = true;
        finishFirstView();
        files.openFile(file);
    }
    if (preferences.firstUseState != "DoIt") return;
    preferences.demonstrationDue = fromFile;
    if (!fromFile) helper.run();
}

void Startup::initMain() {
    ports.desktop->enableTimer2(true);
    initHelp(*ports.desktop);
    ports.desktop->setCaption(std::string("Velna V") + versionText);
    ports.desktop->layOutWindow(smallFontsVariable);
    helpWindow = setHelpWindow(*ports.desktop, ports.desktop->drawAreaToWindow({0, 0}),
                               {main.DrawArea->width(), main.DrawArea->height()});
    Plane::setDefaultPlane(main.project);
    main.zoomSectionSet();
    initPointer();
    main.project.ObjectList.clear();
    main.project.ObjectList.update(main.project.Fuselages, main.project.nbFuselages);
    main.savedProject = true;
    initPicture();
    main.fillCatalogues();
    main.refreshPanels();
    main.initVTopView();
    initPictureContext();
    main.beginHistory();
}

void Startup::timer1Tick() {
    rendering.renderDistance -= 100;
    if (rendering.renderDistance < 150) {
        ports.desktop->enableTimer1(false);
        firstViewDue = false;
        if (main.Prefs.InchesOption) {
            preferences.convertDefault();
            main.beginHistory();
        }
    }
    rendering.setViewTransform(0, 0, rendering.renderDistance, 900, 200);
    rendering.renderScene(true);
}

}  // namespace velna
