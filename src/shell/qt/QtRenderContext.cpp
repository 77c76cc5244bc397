#include "shell/qt/QtRenderContext.h"

#include <QCoreApplication>
#include <QMessageBox>
#include <QOpenGLContext>
#include <QScreen>
#include <QThread>
#include <cstdlib>

#include "common/Complaint.h"
#include "shell/Quit.h"
#include "shell/qt/DisplaySystem.h"
#include "shell/qt/MainWindow.h"
#include "shell/qt/RenderWindow.h"

namespace velna {
namespace {

constexpr int smoothEdges = 4;  // samples a pixel, where the driver has them

QSurfaceFormat pictureFormat(int samples) {
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setProfile(QSurfaceFormat::CompatibilityProfile);
    format.setSwapBehavior(QSurfaceFormat::DoubleBuffer);
    format.setDepthBufferSize(16);
    format.setAlphaBufferSize(0);  // the compositor must never see through the picture
    format.setSamples(samples);
    format.setSwapInterval(1);
    return format;
}

std::unique_ptr<QOpenGLContext> contextFor(const QSurfaceFormat& format) {
    auto context = std::make_unique<QOpenGLContext>();
    context->setFormat(format);
    return context->create() ? std::move(context) : nullptr;
}

}  // namespace

QtRenderContext::QtRenderContext(MainWindow& window, Quit& quit) : window_(window), quit_(quit) {}

QtRenderContext::~QtRenderContext() = default;

bool QtRenderContext::chooseFormat() {
    // The window keeps the format that it was created with.
    if (window_.renderWindow().handle()) return true;
    for (const int samples : {smoothEdges, 0}) {
        format_ = pictureFormat(samples);
        // Kept for `create`: a second one would take a driver another 40 ms of the start.
        context_ = contextFor(format_);
        if (!context_) continue;
        unused_ = true;
        window_.renderWindow().setFormat(format_);
        window_.renderWindow().create();
        return true;
    }
    return false;
}

bool QtRenderContext::create() {
    if (!unused_) {
        destroy();
        context_ = contextFor(format_);
    }
    unused_ = false;
    // A window that Wayland has not shown yet has no surface to draw on: it asks again when it has.
    if (context_ && DisplaySystem::isWayland() && !window_.renderWindow().isExposed()) {
        window_.renderWindow().awaitSurface();
        unused_ = true;
        return false;
    }
    if (!context_) {
        complain("the picture stays dark", "no OpenGL context");
    } else if (!context_->makeCurrent(&window_.renderWindow())) {
        complain("the picture stays dark", "its OpenGL context cannot be used");
    } else {
        return true;
    }
    context_.reset();
    return false;
}

void QtRenderContext::destroy() {
    if (context_) context_->doneCurrent();
    context_.reset();
}

void QtRenderContext::setBusy(bool on) {
    busy_.reset();
    if (on) busy_.emplace();
}

void QtRenderContext::swapBuffers() {
    if (context_ && window_.renderWindow().isExposed())
        context_->swapBuffers(&window_.renderWindow());
}

double QtRenderContext::width() const {
    return window_.renderSize().width();
}

double QtRenderContext::height() const {
    return window_.renderSize().height();
}

double QtRenderContext::devicePixelRatio() const {
    return window_.devicePixelRatioF();
}

void QtRenderContext::fatal(const std::string& text) {
    complain(text);
    quit_.ports.desktop->hideSplash();
    QMessageBox::critical(window_.isVisible() ? &window_ : nullptr,
                          QString("Fatal Error In %1").arg(applicationTitle),
                          QString::fromStdString(text));
    quit_.unload();
    std::_Exit(EXIT_FAILURE);
}

void QtRenderContext::setFullScreen(bool on) {
    window_.setFlight(on);
}

double QtRenderContext::screenWidth() const {
    return window_.screen()->size().width();
}

double QtRenderContext::screenHeight() const {
    return window_.screen()->size().height();
}

void QtRenderContext::setFlyingInfo(bool visible, const std::string& text) {
    window_.setFlyingInfo(visible, QString::fromStdString(text));
}

void QtRenderContext::pumpEvents() {
    // Nothing paces the frames of a window that is not seen.
    constexpr unsigned long unseenFrame = 16;
    if (!window_.renderWindow().isExposed()) QThread::msleep(unseenFrame);
    QCoreApplication::processEvents();
}

}  // namespace velna
