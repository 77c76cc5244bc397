// Loaded before the program by startup.py: no OpenGL context can be made current, so the picture
// stays dark and what is measured is the window without what the driver keeps for drawing.

extern "C" {

int glXMakeCurrent(void* /*display*/, unsigned long /*drawable*/, void* /*context*/) {
    return 0;
}

int glXMakeContextCurrent(void* /*display*/, unsigned long /*draw*/, unsigned long /*read*/,
                          void* /*context*/) {
    return 0;
}
}
