#pragma once

#include <QWidget>
#include <memory>

#include "shell/qt/Mirrors.h"

class QLabel;
class QPushButton;

namespace velna {

struct Application;
class Bar;
class DrawArea;
class FiguresWindow;
class PanelWidgets;
class PopupMenu;
class RenderWindow;
class StripLabel;
struct WindowLayout;

/// The main window: toolbar, panel, picture and drawing area, laid out by the window's formulas. It
/// is always maximised. It holds no logic: what happens is told to `Main`, the toolbar and the
/// start-up.
class MainWindow : public QWidget {
public:
    explicit MainWindow(Application& program);
    ~MainWindow() override;

    /// Makes all controls and lays them out for the screen that the window will fill.
    void build(bool smallFonts);

    Mirrors& mirrors() { return mirrors_; }
    DrawArea& drawArea() { return *drawArea_; }
    PanelWidgets& panel() { return *panel_; }
    PopupMenu& popup() { return *popup_; }
    StripLabel& strip() { return *strip_; }
    FiguresWindow& figures() { return *figures_; }
    RenderWindow& renderWindow() { return *renderWindow_; }

    /// Size that the layout gives to `Render`.
    QSize renderSize() const;
    /// Where the picture stands, in screen pixels.
    QRect picturePlace() const;
    /// The flight: the picture fills the screen, with the toolbar above it.
    void setFlight(bool on);
    void setFlyingInfo(bool visible, const QString& text);
    /// `ShiftButton` at a place in the window.
    void placeSign(int left, int top);
    /// From now on the window's events reach the program.
    void start();
    /// Events have nothing to reach any more.
    void stop() { started_ = false; }

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildSurfaces();
    void buildSigns();
    void buildStrip();
    void closeAfterDialogs();
    /// Applies the formulas to the present client area.
    void layOut(QSize client);
    QRect flightPlace() const;
    /// What is beside the controls: hints and logo.
    void layOutSigns(const WindowLayout& l);
    /// What was drawn for another size is drawn anew.
    void redraw();
    void followScreen();
    /// The form's own key-up, which comes from every control but the drawing area.
    void formKeyUp(const QKeyEvent& event);

    Application& program_;
    Mirrors mirrors_;
    Bar* bar_ = nullptr;
    PanelWidgets* panel_ = nullptr;
    DrawArea* drawArea_ = nullptr;
    RenderWindow* renderWindow_ = nullptr;
    QWidget* render_ = nullptr;  // holds the native window
    PopupMenu* popup_ = nullptr;
    QLabel* hints_ = nullptr;
    QLabel* logo_ = nullptr;
    StripLabel* strip_ = nullptr;
    FiguresWindow* figures_ = nullptr;
    QLabel* flyingInfo_ = nullptr;
    QPushButton* shiftButton_ = nullptr;
    bool smallFonts_ = false;
    bool started_ = false;
    bool flight_ = false;
};

}  // namespace velna
