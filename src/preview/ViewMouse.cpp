#include "preview/Flying.h"
#include "preview/Rendering.h"
#include "preview/View.h"

namespace velna::Rendering {
namespace {

/// A point of the pointer, or its distance from a stored value.
struct Grab {
    double x = 0;
    double y = 0;
};

// Each drag has its own, so that a second button held at the same time does not make the first
// jump.
Grab rotateGrab;
double zoomGrab = 0;
Grab panGrab;

constexpr int shiftAlone = 1;

/// Nearer the model would stand behind the viewer, farther it would leave the frustum.
bool withinLimits(double distance) {
    return distance * 5 > -1000 && distance * 5 < 9000;
}

void show(double panX, double panY, double distance, double spin, double tilt) {
    setViewTransform(panX, panY, distance, spin, tilt);
    renderScene(false);
}

}  // namespace

void mouseDown(int button, int shift, double x, double y) {
    if (Flying::running()) {
        Flying::mouseDown(button);
        return;
    }
    if (button == rightButton) {
        panning = true;
        panGrab = {x - renderPanX, y + renderPanY};
    } else if (button == leftButton && shift == shiftAlone) {
        zooming = true;
        zoomGrab = y - renderDistance;
    } else if (button == leftButton) {
        rotating = true;
        rotateGrab = {x - renderSpin, y - renderTilt};
    }
}

// A move only shows: what it shows is stored at the release.
void mouseMove(double x, double y) {
    if (Flying::running()) {
        Flying::mouseMove(x, y);
        return;
    }
    if (rotating) show(renderPanX, renderPanY, renderDistance, x - rotateGrab.x, y - rotateGrab.y);
    if (zooming) show(renderPanX, renderPanY, y - zoomGrab, renderSpin, renderTilt);
    if (panning) show(x - panGrab.x, panGrab.y - y, renderDistance, renderSpin, renderTilt);
}

// Any button's release ends all drags. A distance outside the limits is not taken over, although
// the drag has shown it: the next drag starts from the old one.
void mouseUp(int /*button*/, double x, double y) {
    if (Flying::running()) return;
    if (rotating) {
        renderSpin = x - rotateGrab.x;
        renderTilt = y - rotateGrab.y;
    }
    if (zooming && withinLimits(y - zoomGrab)) renderDistance = y - zoomGrab;
    if (panning) {
        renderPanX = x - panGrab.x;
        renderPanY = panGrab.y - y;
    }
    endDrags();
}

void endDrags() {
    rotating = false;
    zooming = false;
    panning = false;
}

// A wheel has no grab point to start from: it goes on from what the screen shows, for a picture
// that jumped at its first step would be lost to the user. Beyond the limits there is nothing to go
// on from.
void zoomBy(double change) {
    const double from = withinLimits(shownView.distance) ? shownView.distance : renderDistance;
    const double distance = from + change;
    if (Flying::running() || change == 0 || !withinLimits(distance)) return;
    renderDistance = distance;
    show(shownView.panX, shownView.panY, renderDistance, shownView.spin, shownView.tilt);
}

}  // namespace velna::Rendering
