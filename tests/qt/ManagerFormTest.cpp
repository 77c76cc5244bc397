// The fuselage manager's list: which row counts when it closes.

#include <QApplication>
#include <QPushButton>
#include <QTreeWidget>
#include <algorithm>

#include <gtest/gtest.h>

#include "editor/Main.h"
#include "shell/qt/ManagerForm.h"
#include "support/EditorBench.h"

namespace velna {
namespace {

class Manager : public test::EditorTest {
protected:
    void SetUp() override {
        for (int i = 0; i < 2; ++i) Main.buttonPressed(Control::IndexFusPlusButton, 0);
        currentFuselage = 1;
    }
    /// Opens the form on the first of three, moves focus and selection by `user`, and closes it.
    template <class User>
    static void closeAfter(User user) {
        ManagerForm form(Main, nullptr);
        form.show();
        user(*form.findChild<QTreeWidget*>("ListView"));
        form.close();
    }
    static void focus(QTreeWidget& list, int row, QItemSelectionModel::SelectionFlag what) {
        list.selectionModel()->setCurrentIndex(list.model()->index(row, 0),
                                               what | QItemSelectionModel::Rows);
    }
};

TEST_F(Manager, TheSelectedRowBecomesCurrent) {
    closeAfter([](QTreeWidget& list) { focus(list, 2, QItemSelectionModel::ClearAndSelect); });
    EXPECT_EQ(currentFuselage, 3);
}

TEST_F(Manager, OfSeveralTheFocusedOneCounts) {
    closeAfter([](QTreeWidget& list) { focus(list, 1, QItemSelectionModel::Select); });
    EXPECT_EQ(currentFuselage, 2);
}

TEST_F(Manager, AFocusedRowThatIsNotSelectedDoesNotCount) {
    closeAfter([](QTreeWidget& list) {
        focus(list, 1, QItemSelectionModel::Select);
        focus(list, 1, QItemSelectionModel::Deselect);
    });
    EXPECT_EQ(currentFuselage, 1);
}

TEST_F(Manager, NoneSelectedLeavesTheCurrentOne) {
    currentFuselage = 2;
    closeAfter([](QTreeWidget& list) { list.clearSelection(); });
    EXPECT_EQ(currentFuselage, 2);
}

TEST_F(Manager, ItsSignsFollowTheDesktopsInk) {
    ManagerForm form(Main, nullptr);
    form.show();
    const auto ink = [&form] {
        const auto* button = form.findChild<QPushButton*>("ShowCommand");
        const QImage sign = button->icon().pixmap(24, 24).toImage();
        // The pupil has a colour of its own; the lid is drawn in ink.
        int lightest = 0;
        int grey = 0;
        for (int y = 0; y < sign.height(); ++y) {
            for (int x = 0; x < sign.width(); ++x) {
                const QColor pixel = sign.pixelColor(x, y);
                if (pixel.alpha() < 200 || pixel.saturation() > 0) continue;
                ++grey;
                lightest = std::max(lightest, pixel.lightness());
            }
        }
        EXPECT_GT(grey, 10);
        return lightest;
    };
    EXPECT_LT(ink(), 64);
    QPalette dark = form.palette();
    dark.setColor(QPalette::ButtonText, Qt::white);
    form.setPalette(dark);
    EXPECT_GT(ink(), 250);  // a pixel of an edge is rounded
}

}  // namespace
}  // namespace velna
