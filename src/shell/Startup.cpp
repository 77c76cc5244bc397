#include "shell/Startup.h"

#include <cstdio>
#include <filesystem>
#include <string>

#include "common/Version.h"
#include "editor/Main.h"
#include "model/Equipment.h"
#include "model/Fuselage.h"
#include "model/ObjectList.h"
#include "model/Plane.h"
#include "model/Prefs.h"
#include "preview/Flying.h"
#include "preview/Rendering.h"
#include "shell/ContextIDs.h"
#include "shell/Helper.h"
#include "shell/Ports.h"
#include "shell/Preferences.h"

namespace velna::Startup {

namespace {

bool closeAsked = false;
bool quitAgreed = false;
int commandsUnderWay = 0;

bool askToQuit() {
    return Shell.dialogs->askYesNo("Do you really want to quit Velna ?", BoxIcon::Exclamation,
                                   false);
}

/// These run inside an event of the window: it can only close once they have returned.
bool underWay() {
    return Flying::running() || Helper::running || commandsUnderWay > 0;
}

std::string logFile() {
    return Shell.desktop->programFolder() + "log.txt";
}

/// No background picture in the first view; the entries that work on one wait for it.
void initPicture() {
    Main.pictureHere() = BackgroundPicture{};
    for (Control entry : {Control::MoveBitmap, Control::SizeBitmap, Control::ClearBitmap})
        Main.setEnabled(entry, false);
}

void initPointer() {
    Main.shiftkey = Main.ctrlkey = Main.altkey = false;
    currentWing = 1;
    Main.mode = ViewMode::VTop;
}

/// The picture's context; the distance of 800 is overwritten before the first tick can see it.
void initPictureContext() {
    Rendering::createRenderContext();
    Rendering::renderDistance = 800;
    Shell.desktop->enableTimer1(true);
    Rendering::renderDistance = 100;
    Rendering::renderScene(true);
}

}  // namespace

bool smallFontsVariable = false;

bool smallFontsMode() {
    const auto characterHeight = Shell.desktop->characterHeight();
    const bool small = !characterHeight || *characterHeight <= 16;
    std::error_code ignored;
    return small && std::filesystem::exists(Preferences::fileToRead(), ignored);
}

void monitorLoad(const std::string& text) {
    if (std::FILE* log = std::fopen(logFile().c_str(), "ab")) {
        std::fprintf(log, "%s\r\n", text.c_str());
        std::fclose(log);
    }
}

void run() {
    std::error_code ignored;
    std::filesystem::remove(logFile(), ignored);
    closeAsked = quitAgreed = false;
    smallFontsVariable = smallFontsMode();
    Shell.desktop->showSplash(std::string("Version ") + versionText, smallFontsVariable);
    initMain();
    Shell.desktop->showMainWindow();
    Main.selectTab(PanelTab::wing);
    Preferences::readAll();
    // A message box must not lie under the splash.
    Shell.desktop->hideSplash();
    if (Preferences::firstUseState == "DoIt") Helper::run();
}

void initMain() {
    Shell.desktop->enableTimer2(true);
    initHelp();
    Shell.desktop->setCaption(std::string("Velna V") + versionText);
    Shell.desktop->layOutWindow(smallFontsVariable);
    setHelpWindow(Shell.desktop->drawAreaToWindow({0, 0}),
                  {Main.DrawArea->width(), Main.DrawArea->height()});
    Main.reset();
    Plane::setDefaultPlane();
    Main.zoomSectionSet();
    initPointer();
    Plane::createAllSolids();
    ObjectList.clear();
    ObjectList.update();
    Main.savedProject = true;
    initPicture();
    Main.fillCatalogues();
    Main.refreshPanels();
    Main.initVTopView();
    initPictureContext();
}

void timer1Tick() {
    Rendering::renderDistance -= 100;
    if (Rendering::renderDistance < 150) {
        Shell.desktop->enableTimer1(false);
        if (Prefs.InchesOption) Preferences::convertDefault();
    }
    Rendering::setViewTransform(0, 0, Rendering::renderDistance, 900, 200);
    Rendering::renderScene(true);
}

void timer2Tick() {
    Helper::glideStep();
}

bool queryUnload() {
    if (underWay()) {
        Flying::flying = false;
        Helper::stop();
        closeAsked = true;
        return false;
    }
    return quitAgreed || askToQuit();
}

bool querySessionEnd() {
    quitAgreed = askToQuit();
    return quitAgreed;
}

void sessionGoesOn() {
    quitAgreed = false;
}

CommandUnderWay::CommandUnderWay() {
    ++commandsUnderWay;
}

CommandUnderWay::~CommandUnderWay() {
    --commandsUnderWay;
}

void closeIfAsked() {
    if (!closeAsked || underWay()) return;
    closeAsked = false;
    Shell.desktop->closeMainWindow();
}

void unload() {
    Shell.desktop->enableTimer1(false);
    Shell.desktop->enableTimer2(false);
    Wings.clear();
    Fuselages.clear();
    quitHelp();
    Rendering::destroyRenderContext();
    if (Preferences::known) Preferences::writeAll();
}

}  // namespace velna::Startup
