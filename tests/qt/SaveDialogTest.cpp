// The save dialog: under which name it is left, worked as by a person, without a screen.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include "shell/qt/QtDialogs.h"
#include "shell/qt/SaveDialog.h"
#include "support/ProgramInHand.h"

namespace velna {
namespace {

constexpr const char* filter =
    "Velna Project (*.vln)|*.vln|VRML2.0 Format (*.wrl)|*.wrl|DXF Format (*.dxf)|*.dxf";

class Saving : public testing::Test {
protected:
    /// Answers the dialog by `user`, and gives the file's title and kind.
    template <class User>
    std::pair<std::string, int> answer(User user) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            dialog->setDirectory(folder.path());
            user(*dialog);
        });
        const FileAnswer given = dialogs.saveFile(filter);
        const std::string begin = folder.path().toStdString() + "/";
        EXPECT_TRUE(given.file.empty() || given.file.starts_with(begin)) << given.file;
        return {given.file.empty() ? "" : given.file.substr(begin.size()), given.filterIndex};
    }
    static void press(QWidget& widget, int key, const QString& text = {}) {
        for (const auto kind : {QEvent::KeyPress, QEvent::KeyRelease}) {
            QKeyEvent event(kind, key, Qt::NoModifier, text);
            QApplication::sendEvent(&widget, &event);
        }
    }
    static void type(QFileDialog& dialog, const QString& name) {
        auto* edit = dialog.findChild<QLineEdit*>("fileNameEdit");
        edit->clear();
        for (const QChar letter : name) press(*edit, Qt::Key_unknown, letter);
    }
    static void enter(QFileDialog& dialog) {
        press(*dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return, "\r");
    }
    std::string savedAs(const QString& name) {
        return answer([&](QFileDialog& dialog) {
                   type(dialog, name);
                   enter(dialog);
               })
            .first;
    }
    /// Another kind, as its entry in the list of kinds does it.
    static void choose(QFileDialog& dialog, int kind) {
        auto* kinds = dialog.findChild<QComboBox*>("fileTypeCombo");
        kinds->setFocus();
        press(*kinds, Qt::Key_Home);
        for (int i = 1; i < kind; ++i) press(*kinds, Qt::Key_Down);
    }

    QTemporaryDir folder;
    QWidget owner;
    QtDialogs dialogs{owner, program.preferences, program.print, program.startup};
};

TEST_F(Saving, ANameGetsTheExtensionUnlessItHasOneOfTheKinds) {
    EXPECT_EQ(savedAs("glider"), "glider.vln");
    EXPECT_EQ(savedAs("glider v1.2"), "glider v1.2.vln");
    EXPECT_EQ(savedAs("a.b.c"), "a.b.c.vln");
    EXPECT_EQ(savedAs("glider.vlna"), "glider.vlna.vln");
    EXPECT_EQ(savedAs("glider.vln"), "glider.vln");
    EXPECT_EQ(savedAs("GLIDER.VLN"), "GLIDER.VLN");
    EXPECT_EQ(savedAs("glider.wrl"), "glider.wrl");
}

TEST_F(Saving, TheChosenKindGivesTheExtensionAndLeavesTheName) {
    const auto given = answer([](QFileDialog& dialog) {
        type(dialog, "glider v1.2");
        choose(dialog, 3);
        EXPECT_EQ(dialog.findChild<QLineEdit*>("fileNameEdit")->text(), "glider v1.2");
        enter(dialog);
    });
    EXPECT_EQ(given, std::pair(std::string("glider v1.2.dxf"), 3));
}

TEST_F(Saving, TheQuestionAboutOverwritingSeesTheRealName) {
    QFile old(folder.filePath("glider v1.2.vln"));
    ASSERT_TRUE(old.open(QIODevice::WriteOnly));
    QString question;
    const auto given = answer([&](QFileDialog& dialog) {
        QTimer::singleShot(0, [&] {
            auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            question = box->text();
            box->button(QMessageBox::No)->click();
            dialog.reject();
        });
        type(dialog, "glider v1.2");
        enter(dialog);
    });
    EXPECT_TRUE(question.contains("glider v1.2.vln")) << question.toStdString();
    EXPECT_EQ(given.first, "");
}

TEST_F(Saving, AFolderIsEnteredNotNamed) {
    ASSERT_TRUE(QDir(folder.path()).mkdir("v1.2"));
    const auto given = answer([](QFileDialog& dialog) {
        type(dialog, "v1.2");
        enter(dialog);
        EXPECT_TRUE(dialog.directory().path().endsWith("/v1.2"));
        dialog.reject();
    });
    EXPECT_EQ(given.first, "");
}

}  // namespace
}  // namespace velna
