#include "preview/Rendering.h"

#include <array>
#include <cmath>
#include <optional>

#include <GL/gl.h>

#include "common/NumberText.h"
#include "preview/Flying.h"
#include "preview/View.h"

namespace velna::Rendering {

RenderContext* context = nullptr;
bool contextCreated = false;
bool renderListBuilt = false;
double renderSpin = 900;
double renderTilt = 450;
double renderPanX = 0;
double renderPanY = 0;
double renderDistance = 0;
bool rotating = false;
bool zooming = false;
bool panning = false;

namespace {

constexpr double usualHalfWidth = 100;

/// Where a flight was when its context went: it is the sum of all its frames, and stands nowhere
/// else.
std::optional<std::array<double, 16>> flightMatrix;

/// Half-width of the frustum in use.
double frustumHalfWidth = usualHalfWidth;

void setState() {
    glEnable(GL_NORMALIZE);
    glEnable(GL_DITHER);
    glDepthFunc(GL_LEQUAL);
    glEnable(GL_DEPTH_TEST);
    glClearDepth(1);
    glClearColor(0, 0, 0, 0);
    glEnable(GL_LIGHTING);
    glEnable(GL_LIGHT0);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
}

void setLightAndMaterial() {
    const GLfloat fromAboveLeft[] = {0, -1000, 1000, 0};
    const GLfloat black[] = {0, 0, 0, 1};
    const GLfloat none[] = {0, 0, 0, 0};
    const GLfloat ambient[] = {0.45F, 0.45F, 0.45F, 0};
    glLightfv(GL_LIGHT0, GL_POSITION, fromAboveLeft);
    glMaterialfv(GL_FRONT_AND_BACK, GL_AMBIENT_AND_DIFFUSE, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_SPECULAR, black);
    glMaterialfv(GL_FRONT_AND_BACK, GL_EMISSION, none);
    glLightModelfv(GL_LIGHT_MODEL_AMBIENT, ambient);
}

/// Frustum and viewport for the present size of `Render`; leaves the modelview matrix current.
void setProjection() {
    const double width = context->width();
    const double height = context->height();
    const double scale = context->devicePixelRatio();
    const double h = frustumHalfWidth;
    const double t = width > 0 ? height * h / width : 0;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // A flat frustum is an error of GL's; a window without width or height shows nothing anyway.
    if (std::isfinite(t) && t != 0) glFrustum(-h, h, -t, t, 100, 10000);
    glViewport(0, 0, roundToInt(width * scale), roundToInt(height * scale));
    glMatrixMode(GL_MODELVIEW);
}

/// A new current context with all that stays the same; false leaves the picture dark.
bool makeContext() {
    renderListBuilt = false;
    contextCreated = false;
    if (!context) return false;
    if (!context->chooseFormat()) {
        context->fatal("Fatal Error: Could not retrieve pixel format!");
        return false;
    }
    contextCreated = context->create();
    if (!contextCreated) return false;
    setState();
    setLightAndMaterial();
    setProjection();
    return true;
}

void keepFlight() {
    if (contextCreated && Flying::running())
        glGetDoublev(GL_MODELVIEW_MATRIX, flightMatrix.emplace().data());
}

}  // namespace

void reset() {
    contextCreated = false;
    renderListBuilt = false;
    renderSpin = 900;
    renderTilt = 450;
    renderPanX = 0;
    renderPanY = 0;
    renderDistance = 0;
    rotating = false;
    zooming = false;
    panning = false;
    frustumHalfWidth = usualHalfWidth;
    shownView = {};
}

void createRenderContext() {
    createRenderContextWide(usualHalfWidth);
}

void createRenderContextWide(double halfWidth) {
    frustumHalfWidth = halfWidth;
    flightMatrix.reset();
    makeContext();
    renderSpin = 900;
    renderTilt = 450;
    setViewTransform(0, 0, 0, 0, 0);
    renderScene(false);
}

void recreateRenderContext() {
    keepFlight();
    if (!makeContext()) return;
    reapplyViewTransform();
    if (flightMatrix) glLoadMatrixd(flightMatrix->data());
    flightMatrix.reset();
    renderScene(false);
}

void destroyRenderContext() {
    keepFlight();
    if (contextCreated) context->destroy();
    contextCreated = false;
    renderListBuilt = false;
}

void resized() {
    if (!contextCreated) return;
    setProjection();
    renderScene(false);
}

}  // namespace velna::Rendering
