#include "shell/ViewDrawing.h"

#include "editor/Main.h"

namespace velna {

namespace {

/// Nobody looks: what is told goes nowhere, and what is asked is refused.
class NoWindow : public Window {
public:
    void changed(Control /*control*/) override {}
    void catalogueFilled(Control /*combo*/) override {}
    void fuselageListChanged() override {}
    void setCursor(CursorShape /*shape*/, CursorIcon /*icon*/) override {}
    void openPopup(float /*x*/, float /*y*/) override {}
    void renderScene(bool /*rebuild*/) override {}
    void holdPicture(bool /*on*/) override {}
    void setViewTransform(double /*panX*/, double /*panY*/, double /*distance*/, double /*spin*/,
                          double /*tilt*/) override {}
    void undo() override {}
    void redo() override {}
    void showStartView() override {}
    void promptFrustum() override {}
    bool askYesNo(const std::string& /*text*/, BoxIcon /*icon*/, bool /*defaultYes*/) override {
        return false;
    }
    std::string askPictureFile() override { return {}; }
    std::optional<std::string> askText(const std::string& /*prompt*/, const std::string& /*title*/,
                                       const std::string& /*preset*/) override {
        return std::nullopt;
    }
};

}  // namespace

void drawView(Project& project, int mode, Surface& surface) {
    NoWindow window;
    MainForm form(project);
    form.window = &window;
    form.DrawArea = &surface;
    form.DrawSectionArea = &surface;
    // A project opens from above: where the wanted view cannot be fitted, it stands as that did.
    form.initVTopView();
    switch (mode) {
        case ViewMode::Front:
            return form.initFrontView();
        case ViewMode::Side:
            return form.initSideView();
        case ViewMode::HTop:
            return form.initHTopView();
        default:
            return;
    }
}

}  // namespace velna
