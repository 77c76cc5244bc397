#pragma once

#include <QTabWidget>
#include <vector>

#include "editor/Controls.h"

class QAbstractButton;
class QGridLayout;
class QHBoxLayout;
class QLayout;
class QVBoxLayout;

namespace velna {

class MainForm;
class Mirrors;
class ParameterCell;
class SurfaceWidget;

/// Where a button of the panel keeps the name of its drawing.
inline constexpr const char* drawingProperty = "drawing";

/// The tab control `Parameters` with all its fields. The compact form is for small fonts.
class PanelWidgets : public QTabWidget {
public:
    PanelWidgets(MainForm& main, bool compact, Mirrors& mirrors, QWidget* parent);

    /// The width at which no page is cut off when the panel is `height` pixels high.
    int neededWidth(int height) const;

    /// Draws everything for the density of the screen that the panel stands on now.
    void followScreen();

    SurfaceWidget& sectionArea() { return *sectionArea_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    // the pages, each on a scroll area of its own
    void buildFuselagePage();
    void buildWingPage();
    void buildStabilizerPage();
    void buildRudderPage();
    void buildElectronicsPage();
    QVBoxLayout* addPage(int tab);
    void drawIcons();
    /// Where a page scrolls, the wheel does that and works no control on its way.
    void leaveTheWheelToThePages();

    // their parts
    QGridLayout* fieldGrid(int tab, int firstRow, int lastRow);
    QHBoxLayout* listRow(const char* caption, Control label, Control bar, const Control* plus,
                         const Control* minus);
    QWidget* sectionEditor();
    QWidget* sectionPicture();
    QLayout* sectionFlags();
    QWidget* slider(Control control);
    QWidget* checkBox(Control control, const char* caption);
    QWidget* button(Control control, const char* icon, const char* tip);
    QAbstractButton* option(Control control, const char* caption);
    void addCatalogue(QVBoxLayout& page, Control control);

    MainForm& main_;
    bool compact_;
    Mirrors& mirrors_;
    SurfaceWidget* sectionArea_ = nullptr;
    std::vector<ParameterCell*> cells_;
};

}  // namespace velna
