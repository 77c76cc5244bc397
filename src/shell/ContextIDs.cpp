#include "shell/ContextIDs.h"

#include <string>

#include "common/NumberText.h"
#include "shell/Ports.h"

namespace velna {

HelpWindowRecord helpWindow;

void initHelp() {
    std::string folder = Shell.desktop->programFolder();
    if (!folder.ends_with('/')) folder += '/';
    Shell.desktop->setHelpFile(folder + "Velna.HLP");
    helpWindow = HelpWindowRecord{};
}

void setHelpWindow(Point2D position, Point2D size) {
    helpWindow = {roundToInt(position.x), roundToInt(position.y), roundToInt(size.x),
                  roundToInt(size.y)};
    Shell.desktop->placeHelpWindow(helpWindow.x, helpWindow.y, helpWindow.width, helpWindow.height);
}

void showHelpContents() {
    Shell.desktop->showHelpContents();
}

void quitHelp() {
    Shell.desktop->closeHelp();
}

}  // namespace velna
