// Loaded before the program by startup.py, with QT_XCB_GL_INTEGRATION=none: no OpenGL driver is
// loaded and the picture stays dark, so that what is measured is the window alone.

extern "C" {

bool _ZN14QOpenGLContext6createEv(void* /*context*/) {
    return true;
}

bool _ZN14QOpenGLContext11makeCurrentEP8QSurface(void* /*context*/, void* /*surface*/) {
    return false;
}
}
