#include "preview/Rendering.h"

#include <cmath>
#include <utility>

#include <GL/gl.h>

#include "common/MemoryEnds.h"
#include "common/NumberText.h"
#include "common/Raised.h"
#include "model/Fuselage.h"
#include "preview/Textures.h"

namespace velna {
namespace {

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

/// So many points take a driver that draws by the processor a second and more.
constexpr long long pointsOfALongPicture = 500'000;

/// For as long as it stands the pointer tells that a picture is being drawn, where that is needed.
class BusyWhileDrawn {
public:
    BusyWhileDrawn(RenderContext& context, bool needed) : context_(context), needed_(needed) {
        if (needed_) context_.setBusy(true);
    }
    ~BusyWhileDrawn() {
        if (needed_) asFarAsMemoryGoes([this] { context_.setBusy(false); });
    }
    BusyWhileDrawn(const BusyWhileDrawn&) = delete;
    BusyWhileDrawn& operator=(const BusyWhileDrawn&) = delete;

private:
    RenderContext& context_;
    bool needed_;
};

}  // namespace

/// Frustum and viewport for the present size of `Render`; leaves the modelview matrix current.
void Rendering::setProjection() const {
    const double width = context->width();
    const double height = context->height();
    const double scale = context->devicePixelRatio();
    const double h = frustumHalfWidth_;
    const double t = width > 0 ? height * h / width : 0;
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    // A flat frustum is an error of GL's; a window without width or height shows nothing anyway.
    if (std::isfinite(t) && t != 0) glFrustum(-h, h, -t, t, 100, 10000);
    glViewport(0, 0, roundToInt(width * scale), roundToInt(height * scale));
    glMatrixMode(GL_MODELVIEW);
}

/// A new current context with all that stays the same; false leaves the picture dark.
bool Rendering::makeContext() {
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

void Rendering::keepMatrix() {
    if (contextCreated && matrixIsSum)
        glGetDoublev(GL_MODELVIEW_MATRIX, keptMatrix_.emplace().data());
}

void Rendering::createRenderContext() {
    createRenderContextWide(usualHalfWidth);
}

void Rendering::createRenderContextWide(double halfWidth) {
    frustumHalfWidth_ = halfWidth;
    keptMatrix_.reset();
    makeContext();
    renderSpin = 900;
    renderTilt = 450;
    setViewTransform(0, 0, 0, 0, 0);
    renderScene(false);
}

void Rendering::recreateRenderContext() {
    keepMatrix();
    if (!makeContext()) return;
    reapplyViewTransform();
    if (keptMatrix_) glLoadMatrixd(keptMatrix_->data());
    keptMatrix_.reset();
    renderScene(false);
}

void Rendering::destroyRenderContext() {
    keepMatrix();
    if (contextCreated) context->destroy();
    contextCreated = false;
    renderListBuilt = false;
}

void Rendering::resized() {
    if (!contextCreated) return;
    setProjection();
    renderScene(false);
}

/// Everything that the list will need, so that nothing inside it opens a box or lets events
/// through.
void Rendering::prepareScene() {
    const Raised whileThisRuns(preparing_);
    solids_.update(project_);
    Textures::convertPictures(project_, solids_, imaging);
}

void Rendering::hold(bool on) {
    holds_ += on ? 1 : -1;
    if (holds_ > 0 || !heldRender_) return;
    renderScene(*std::exchange(heldRender_, std::nullopt));
}

void Rendering::renderScene(bool rebuild) {
    if (holds_ > 0) {
        heldRender_ = rebuild || heldRender_.value_or(false);
        return;
    }
    if (preparing_) {
        if (!renderListBuilt) return;
        rebuild = false;
    }
    if (!contextCreated) {
        // The solids are wanted by more than the picture.
        if (rebuild) solids_.update(project_);
        return;
    }
    const BusyWhileDrawn busy(*context, Fuselage::meshPoints(project_) > pointsOfALongPicture);
    const bool replay = !rebuild && renderListBuilt;
    if (!replay) prepareScene();
    if (!contextCreated) return;
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    if (!replay) {
        // Of what is built in part only nothing is relied upon.
        if (!std::exchange(renderListBuilt, false)) scene_.forget();
        scene_.build(project_, solids_);
        renderListBuilt = true;
    }
    Scene::call();
    context->swapBuffers();
}

void Rendering::endDrags() {
    rotating = false;
    zooming = false;
    panning = false;
}

}  // namespace velna
