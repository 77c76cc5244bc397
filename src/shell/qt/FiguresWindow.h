#pragma once

#include <QLineEdit>
#include <QWidget>
#include <vector>

#include "shell/FigureSheet.h"

class QCheckBox;
class QLayout;
class QTreeWidget;
class QTreeWidgetItem;

namespace velna {

struct Application;
class MainWindow;

/// A field for a mass or a speed, tinted while its text is none.
class FigureField : public QLineEdit {
public:
    FigureField(const char* name, const char* caption, QWidget* parent);

    void showTaken(bool taken);

protected:
    void initStyleOption(QStyleOptionFrame* option) const override;

private:
    bool taken_ = true;
};

/// The window of figures: a small window that stays over the main window and leaves the focus where
/// it is. It follows every change of the aircraft, once a turn of the program's loop; hidden, and
/// without marks to be drawn, it computes nothing.
class FiguresWindow : public QWidget {
public:
    FiguresWindow(Application& program, MainWindow& owner);

    /// From now on changes are followed.
    void start();
    void toggle();
    /// During a flight the window is away, and what the flight does to the aircraft is not
    /// followed.
    void standAside(bool aside);
    /// Remembers where the window stands, for the next start.
    void keepPlace();

protected:
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void build();
    QLayout* buildFields();
    QLayout* buildFoot();
    void follow();
    void showLines();
    void fill(QTreeWidgetItem& row, const FigureSheet::Line& line) const;
    void copySelected() const;
    void putInPlace();

    Application& program_;
    MainWindow& owner_;
    FigureSheet& sheet_;
    QTreeWidget* list_ = nullptr;
    FigureField* mass_ = nullptr;
    FigureField* speed_ = nullptr;
    QCheckBox* marks_ = nullptr;
    std::vector<FigureSheet::Line> shown_;
    bool aside_ = false;
    bool comesBack_ = false;
};

}  // namespace velna
