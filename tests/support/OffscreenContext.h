#pragma once

#include <functional>
#include <string>

#include <EGL/egl.h>

#include "preview/RenderContext.h"

namespace velna::test {

/// A picture area of a real OpenGL that is nowhere on a screen. Its frame is complete when
/// `swapBuffers` returns, and can then be read back.
class OffscreenContext : public RenderContext {
public:
    OffscreenContext(int width, int height) : width_(width), height_(height) {}

    std::function<void()> events = [] {};

    bool chooseFormat() override { return true; }
    /// False where there is no OpenGL that draws off screen.
    bool create() override;
    void destroy() override {}
    void swapBuffers() override;
    void setBusy(bool) override {}
    double width() const override { return width_; }
    double height() const override { return height_; }
    double devicePixelRatio() const override { return 1; }
    void fatal(const std::string&) override {}
    void setFullScreen(bool) override {}
    double screenWidth() const override { return width_; }
    double screenHeight() const override { return height_; }
    void setFlyingInfo(bool, const std::string&) override {}
    void pumpEvents() override { events(); }

private:
    bool openDisplay();

    int width_;
    int height_;

    EGLDisplay display_ = EGL_NO_DISPLAY;
    EGLSurface surface_ = EGL_NO_SURFACE;
    EGLContext context_ = EGL_NO_CONTEXT;
    EGLConfig config_ = nullptr;
};

}  // namespace velna::test
