#pragma once

#include "editor/Window.h"

namespace velna {

class MainWindow;
class QtDialogs;
class RenderPointer;
class Rendering;
struct ToolbarCommands;

/// What the editor asks of the main window.
class QtWindow : public Window {
public:
    QtWindow(MainWindow& window, QtDialogs& dialogs, Rendering& rendering, RenderPointer& picture,
             ToolbarCommands& toolbar)
        : window_(window),
          dialogs_(dialogs),
          rendering_(rendering),
          picture_(picture),
          toolbar_(toolbar) {}

    void changed(Control control) override;
    void catalogueFilled(Control combo) override;
    void fuselageListChanged() override;
    void setCursor(CursorShape shape, CursorIcon icon) override;
    void openPopup(float x, float y) override;
    void renderScene(bool rebuild) override;
    void holdPicture(bool on) override;
    void setViewTransform(double panX, double panY, double distance, double spin,
                          double tilt) override;
    void undo() override;
    void redo() override;
    void showStartView() override;
    void promptFrustum() override;
    bool askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) override;
    std::string askPictureFile() override;
    std::optional<std::string> askText(const std::string& prompt, const std::string& title,
                                       const std::string& preset) override;

private:
    MainWindow& window_;
    QtDialogs& dialogs_;
    Rendering& rendering_;
    RenderPointer& picture_;
    ToolbarCommands& toolbar_;
};

}  // namespace velna
