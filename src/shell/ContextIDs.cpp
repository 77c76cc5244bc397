#include "shell/ContextIDs.h"

#include <string>

#include "common/NumberText.h"

namespace velna {

void initHelp(Desktop& desktop) {
    std::string folder = desktop.programFolder();
    if (!folder.ends_with('/')) folder += '/';
    desktop.setHelpFile(folder + "Velna.HLP");
}

HelpWindowRecord setHelpWindow(Desktop& desktop, Point2D position, Point2D size) {
    const HelpWindowRecord place{roundToInt(position.x), roundToInt(position.y), roundToInt(size.x),
                                 roundToInt(size.y)};
    desktop.placeHelpWindow(place.x, place.y, place.width, place.height);
    return place;
}

}  // namespace velna
