#pragma once

#include <QSurfaceFormat>
#include <memory>
#include <optional>

#include "preview/RenderContext.h"
#include "shell/qt/BusyPointer.h"

class QOpenGLContext;

namespace velna {

class MainWindow;
struct Quit;

/// The picture's OpenGL context on the native window inside the main window.
class QtRenderContext : public RenderContext {
public:
    QtRenderContext(MainWindow& window, Quit& quit);
    ~QtRenderContext() override;

    bool chooseFormat() override;
    bool create() override;
    void destroy() override;
    void swapBuffers() override;
    void setBusy(bool on) override;
    double width() const override;
    double height() const override;
    double devicePixelRatio() const override;
    void fatal(const std::string& text) override;
    void setFullScreen(bool on) override;
    double screenWidth() const override;
    double screenHeight() const override;
    void setFlyingInfo(bool visible, const std::string& text) override;
    void pumpEvents() override;

private:
    MainWindow& window_;
    Quit& quit_;
    QSurfaceFormat format_;
    std::unique_ptr<QOpenGLContext> context_;
    std::optional<BusyPointer> busy_;
    bool unused_ = false;  // the context has only shown that its format can be had
};

}  // namespace velna
