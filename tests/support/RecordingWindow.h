#pragma once

#include <array>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "editor/Window.h"

namespace velna::test {

/// A main window that keeps what it was told and gives the answers written down for it. A question
/// without an answer fails the test: nobody would have clicked there.
class RecordingWindow : public Window {
public:
    void changed(Control control) override { changes.push_back(control); }
    void catalogueFilled(Control combo) override { cataloguesFilled.push_back(combo); }
    void fuselageListChanged() override { ++listChanges; }
    void setCursor(CursorShape shape, CursorIcon icon) override {
        cursor = shape;
        cursorIcon = icon;
    }
    void openPopup(float x, float y) override;
    /// Counts, and with `rebuild` builds the solids, as the real picture does.
    void renderScene(bool rebuild) override;
    void holdPicture(bool on) override {
        holds += on ? 1 : -1;
        if (holds == 0) ++picturesShown;
    }
    void setViewTransform(double panX, double panY, double distance, double spin,
                          double tilt) override {
        viewTransforms.push_back({panX, panY, distance, spin, tilt});
    }
    void undo() override { prompts.push_back("undo"); }
    void redo() override { prompts.push_back("redo"); }
    void showStartView() override { ++startViews; }
    void promptFrustum() override { prompts.push_back("frustum prompt"); }
    bool askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) override;
    std::string askPictureFile() override;
    std::optional<std::string> askText(const std::string& question, const std::string& title,
                                       const std::string& preset) override;

    // the answers to come
    std::deque<bool> yesNoAnswers;
    std::deque<std::string> pictureFiles;  ///< empty: cancelled
    std::deque<std::optional<std::string>> textAnswers;
    /// Takes a question without an answer, where that is not to fail the test.
    std::function<void(const std::string& question)> onUnanswered;

    // what has happened
    std::vector<Control> changes;
    std::vector<Control> cataloguesFilled;
    std::vector<std::array<double, 5>> viewTransforms;
    std::vector<std::string> prompts;  ///< dialogs opened, in order
    std::string lastQuestion;
    std::string lastPreset;
    BoxIcon lastIcon = BoxIcon::Stop;
    bool lastDefaultYes = false;
    int listChanges = 0;
    int startViews = 0;
    int renders = 0;
    int rebuilds = 0;
    int holds = 0;
    int picturesShown = 0;  ///< at the ends of holds
    int unheldRenders = 0;
    bool popupOpen = false;
    CursorShape cursor = CursorShape::Default;
    CursorIcon cursorIcon = CursorIcon::None;

private:
    void miss(const std::string& question);
};

}  // namespace velna::test
