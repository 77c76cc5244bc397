#pragma once

#include <functional>
#include <string>
#include <vector>

#include "shell/Desktop.h"

namespace velna::test {

/// A desktop of plain records: a window of 1000 x 800 with the drawing area at (100, 400), a screen
/// of the same size, folders of the test's choosing. Its timer ticks when events are pumped.
class FakeDesktop : public Desktop {
public:
    std::string program, configuration, state;
    std::optional<int> textHeight = 20;
    std::vector<std::string> calls;  ///< the calls that show something, in order
    bool timer1 = false;
    bool timer2 = false;
    Point2D cursor;
    std::vector<Point2D> cursorPath;
    std::function<void()> onPump;  ///< what happens while events are pumped
    int pumped = 0;

    std::string programFolder() const override { return program; }
    std::string configurationFolder() const override { return configuration; }
    std::string stateFolder() const override { return state; }
    std::optional<int> characterHeight() const override { return textHeight; }
    void layOutWindow(bool smallFonts) override { note(smallFonts ? "layout small" : "layout"); }
    void setCaption(const std::string& caption) override { note("caption " + caption); }
    void showSplash(const std::string& version, bool) override { note("splash " + version); }
    void hideSplash() override { note("hide splash"); }
    void showMainWindow() override { note("show main"); }
    void closeMainWindow() override { note("close main"); }
    void endProcess() override { note("end"); }
    void enableTimer1(bool on) override { timer1 = on; }
    void enableTimer2(bool on) override { timer2 = on; }
    bool timer2Enabled() const override { return timer2; }
    void pumpEvents() override {
        ++pumped;
        if (onPump) onPump();
    }
    Point2D screenCentre() const override { return {500, 400}; }
    Point2D drawAreaToWindow(Point2D pixel) const override {
        return {pixel.x + 100, pixel.y + 400};
    }
    void setCursorPosition(int x, int y) override {
        cursor = {static_cast<double>(x), static_cast<double>(y)};
        cursorPath.push_back(cursor);
    }
    void placeSign(int left, int top) override {
        note("sign " + std::to_string(left) + " " + std::to_string(top));
    }
    void openPopupAtCursor() override { note("popup"); }
    void toggleFigures() override { note("figures"); }
    void setHelpFile(const std::string& file) override { note("help file " + file); }
    void placeHelpWindow(int x, int y, int width, int height) override {
        note("help at " + std::to_string(x) + " " + std::to_string(y) + " " +
             std::to_string(width) + " " + std::to_string(height));
    }
    void showHelpContents() override { note("help"); }
    void closeHelp() override { note("close help"); }

private:
    void note(const std::string& call) { calls.push_back(call); }
};

}  // namespace velna::test
