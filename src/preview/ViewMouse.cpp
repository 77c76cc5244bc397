#include "preview/ViewMouse.h"

namespace velna {
namespace {

constexpr int shiftAlone = 1;

/// Nearer the model would stand behind the viewer, farther it would leave the frustum.
bool withinLimits(double distance) {
    return distance * 5 > -1000 && distance * 5 < 9000;
}

}  // namespace

void RenderPointer::show(const View& view) {
    rendering_.setViewTransform(view.panX, view.panY, view.distance, view.spin, view.tilt);
    rendering_.renderScene(false);
}

void RenderPointer::mouseDown(int button, int shift, double x, double y) {
    if (flying_.running()) {
        flying_.mouseDown(button);
        return;
    }
    if (button == Rendering::rightButton) {
        rendering_.panning = true;
        panGrab_ = {x - rendering_.renderPanX, y + rendering_.renderPanY};
    } else if (button == Rendering::leftButton && shift == shiftAlone) {
        rendering_.zooming = true;
        zoomGrab_ = y - rendering_.renderDistance;
    } else if (button == Rendering::leftButton) {
        rendering_.rotating = true;
        rotateGrab_ = {x - rendering_.renderSpin, y - rendering_.renderTilt};
    }
}

// A move only shows: what it shows is stored at the release.
void RenderPointer::mouseMove(double x, double y) {
    if (flying_.running()) {
        flying_.mouseMove(x, y);
        return;
    }
    const Rendering& r = rendering_;
    if (r.rotating)
        show({r.renderPanX, r.renderPanY, r.renderDistance, x - rotateGrab_.x, y - rotateGrab_.y});
    if (r.zooming) show({r.renderPanX, r.renderPanY, y - zoomGrab_, r.renderSpin, r.renderTilt});
    if (r.panning)
        show({x - panGrab_.x, panGrab_.y - y, r.renderDistance, r.renderSpin, r.renderTilt});
}

// Any button's release ends all drags. A distance outside the limits is not taken over, although
// the drag has shown it: the next drag starts from the old one.
void RenderPointer::mouseUp(int /*button*/, double x, double y) {
    if (flying_.running()) return;
    if (rendering_.rotating) {
        rendering_.renderSpin = x - rotateGrab_.x;
        rendering_.renderTilt = y - rotateGrab_.y;
    }
    if (rendering_.zooming && withinLimits(y - zoomGrab_))
        rendering_.renderDistance = y - zoomGrab_;
    if (rendering_.panning) {
        rendering_.renderPanX = x - panGrab_.x;
        rendering_.renderPanY = panGrab_.y - y;
    }
    rendering_.endDrags();
}

// A wheel has no grab point to start from: it goes on from what the screen shows, for a picture
// that jumped at its first step would be lost to the user. Beyond the limits there is nothing to go
// on from.
void RenderPointer::zoomBy(double change) {
    View view = rendering_.shownView;
    if (!withinLimits(view.distance)) view.distance = rendering_.renderDistance;
    view.distance += change;
    if (flying_.running() || change == 0 || !withinLimits(view.distance)) return;
    rendering_.renderDistance = view.distance;
    show(view);
}

void RenderPointer::showStartView() {
    Rendering& r = rendering_;
    if (flying_.running() || r.rotating || r.zooming || r.panning) return;
    r.renderPanX = r.renderPanY = r.renderDistance = 0;
    r.renderSpin = Rendering::startView.spin;
    r.renderTilt = Rendering::startView.tilt;
    show(Rendering::startView);
}

}  // namespace velna
