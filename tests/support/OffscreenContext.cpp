#include "support/OffscreenContext.h"

#include <EGL/eglext.h>
#include <GL/gl.h>

namespace velna::test {

bool OffscreenContext::openDisplay() {
    if (display_ != EGL_NO_DISPLAY) return true;
    display_ = eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
    if (display_ == EGL_NO_DISPLAY || !eglInitialize(display_, nullptr, nullptr))
        display_ = eglGetDisplay(EGL_DEFAULT_DISPLAY);
    if (display_ == EGL_NO_DISPLAY || !eglInitialize(display_, nullptr, nullptr)) return false;
    const EGLint wanted[] = {EGL_SURFACE_TYPE,
                             EGL_PBUFFER_BIT,
                             EGL_RENDERABLE_TYPE,
                             EGL_OPENGL_BIT,
                             EGL_RED_SIZE,
                             8,
                             EGL_DEPTH_SIZE,
                             16,
                             EGL_NONE};
    EGLint count = 0;
    if (!eglChooseConfig(display_, wanted, &config_, 1, &count) || count == 0) return false;
    const EGLint size[] = {EGL_WIDTH, width_, EGL_HEIGHT, height_, EGL_NONE};
    surface_ = eglCreatePbufferSurface(display_, config_, size);
    return surface_ != EGL_NO_SURFACE;
}

bool OffscreenContext::create() {
    if (!openDisplay()) return false;
    eglBindAPI(EGL_OPENGL_API);
    if (context_ != EGL_NO_CONTEXT) eglDestroyContext(display_, context_);
    context_ = eglCreateContext(display_, config_, EGL_NO_CONTEXT, nullptr);
    return context_ != EGL_NO_CONTEXT && eglMakeCurrent(display_, surface_, surface_, context_);
}

// A surface off screen has one buffer, so the picture stays to be read.
void OffscreenContext::swapBuffers() {
    glFinish();
}

}  // namespace velna::test
