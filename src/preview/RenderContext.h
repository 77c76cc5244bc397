#pragma once

#include <string>

namespace velna {

/// The window's OpenGL area `Render`, as the picture needs it. One context at a time; it is current
/// on the main thread from its creation to the end.
class RenderContext {
public:
    virtual ~RenderContext() = default;

    /// Finds a format: double-buffered, at least 16 depth bits, OpenGL 1.1 compatible, without
    /// alpha (materials have an alpha of 0.7, and the desktop must not shine through them). False
    /// when the toolkit can make no GL context at all, which is fatal.
    virtual bool chooseFormat() = 0;

    /// Makes a new context (a former one is deleted) and makes it current. False, with the reason
    /// on standard error, when it cannot: the picture then stays dark and no GL call is made.
    virtual bool create() = 0;

    /// Releases the context.
    virtual void destroy() = 0;

    virtual void swapBuffers() = 0;

    /// The pointer tells that the program is at work, until it is told that it is not any more.
    virtual void setBusy(bool on) = 0;

    /// Size of `Render` in its own units, and the device pixels of one such unit.
    virtual double width() const = 0;
    virtual double height() const = 0;
    virtual double devicePixelRatio() const = 0;

    /// The message box of a failure that ends the program, then the end of the program. `text` is
    /// the whole message; the title is "Fatal Error In " followed by the program's name.
    virtual void fatal(const std::string& text) = 0;

    // the flight
    /// Fills the screen with `Render` (the toolbar stays above it), or puts it back to the place
    /// that the window's layout gives it.
    virtual void setFullScreen(bool on) = 0;
    /// Size of the screen, in the units of a pointer position over `Render`.
    virtual double screenWidth() const = 0;
    virtual double screenHeight() const = 0;
    /// The status line `FlyingInfo` over the picture.
    virtual void setFlyingInfo(bool visible, const std::string& text) = 0;
    /// Lets pending window events run once.
    virtual void pumpEvents() = 0;
};

}  // namespace velna
