#pragma once

#include <QTimer>
#include <memory>

#include "shell/Desktop.h"

namespace velna {

class MainForm;
class MainWindow;
class Settings;
class Splash;
struct Startup;

/// The screen, the window and the folders of the program.
class QtDesktop : public Desktop {
public:
    QtDesktop(MainWindow& window, Startup& startup);
    ~QtDesktop() override;

    std::string programFolder() const override;
    std::string configurationFolder() const override;
    std::string stateFolder() const override;
    std::optional<int> characterHeight() const override;
    void layOutWindow(bool smallFonts) override;
    void setCaption(const std::string& caption) override;
    void showSplash(const std::string& version, bool smallFonts) override;
    void hideSplash() override;
    void showMainWindow() override;
    void closeMainWindow() override;
    void endProcess() override;
    void enableTimer1(bool on) override;
    void enableTimer2(bool on) override;
    bool timer2Enabled() const override;
    void pumpEvents() override;
    Point2D screenCentre() const override;
    Point2D drawAreaToWindow(Point2D pixel) const override;
    void setCursorPosition(int x, int y) override;
    void placeSign(int left, int top) override;
    void openPopupAtCursor() override;
    void toggleFigures() override;
    void setHelpFile(const std::string& file) override;
    void placeHelpWindow(int x, int y, int width, int height) override;
    void showHelpContents() override;
    void closeHelp() override;

private:
    MainWindow& window_;
    MainForm& main_;
    Settings& settings_;
    std::unique_ptr<Splash> splash_;
    QTimer timer1_;
    QTimer timer2_;
};

}  // namespace velna
