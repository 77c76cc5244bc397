#include "shell/Quit.h"

#include "model/MeshSections.h"

namespace velna {

bool Quit::askToQuit() const {
    return ports.dialogs->askYesNo("Do you really want to quit Velna ?", BoxIcon::Exclamation,
                                   false);
}

/// These run inside an event of the window: it can only close once they have returned.
bool Quit::underWay() const {
    return flying.running() || helper.running || commandsUnderWay > 0;
}

bool Quit::queryUnload() {
    if (underWay()) {
        flying.flying = false;
        helper.stop();
        closeAsked = true;
        return false;
    }
    return quitAgreed || askToQuit();
}

bool Quit::querySessionEnd() {
    quitAgreed = askToQuit();
    return quitAgreed;
}

void Quit::closeIfAsked() {
    if (!closeAsked || underWay()) return;
    closeAsked = false;
    ports.desktop->closeMainWindow();
}

void Quit::unload() {
    ports.desktop->enableTimer1(false);
    ports.desktop->enableTimer2(false);
    recovery.end();
    project.Wings.clear();
    project.Fuselages.clear();
    ports.desktop->closeHelp();
    rendering.destroyRenderContext();
    if (preferences.known) preferences.writeAll();
}

}  // namespace velna
