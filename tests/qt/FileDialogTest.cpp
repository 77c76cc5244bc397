#include <QApplication>
#include <QFileDialog>
#include <QListView>
#include <QSet>
#include <QTimer>
#include <QWidget>
#include <fstream>

#include <gtest/gtest.h>

#include "shell/qt/QtDialogs.h"
#include "support/ProgramInHand.h"
#include "support/TemporaryFolder.h"

namespace velna {
namespace {

/// The files that `dialog` lists.
QSet<QString> listed(const QFileDialog& dialog) {
    const auto* list = dialog.findChild<QListView*>("listView");
    QSet<QString> names;
    for (int row = 0; row < list->model()->rowCount(list->rootIndex()); ++row)
        names.insert(list->model()->index(row, 0, list->rootIndex()).data().toString());
    return names;
}

TEST(FileDialog, TexturesAreListedWhateverTheLettersOfTheirNames) {
    const test::TemporaryFolder folder;
    const QSet<QString> pictures{"a.bmp", "B.BMP", "c.jpg", "D.JPG", "e.png",
                                 "F.Png", "g.gif", "H.GIF", "i.tif", "J.TIF"};
    for (const QString& name : pictures) std::ofstream(folder.path() + name.toStdString());
    for (const char* other : {"text.txt", "drawing.svg", "plane.vln", "bmp"})
        std::ofstream(folder.path() + other);

    QWidget owner;
    QtDialogs dialogs(owner, program.preferences, program.print, program.startup);
    QSet<QString> seen;
    QString caption;
    QTimer watch;
    int patience = 2000;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        auto* dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        if (!dialog) return;
        const QString place = QString::fromStdString(folder.path());
        if (dialog->directory() != QDir(place)) dialog->setDirectory(place);
        caption = dialog->selectedNameFilter();
        seen = listed(*dialog);
        // The list fills by itself; more than is wanted would never become equal.
        if (seen == pictures || --patience == 0) dialog->reject();
    });
    watch.start(5);
    dialogs.openFile("Texture Image (*.bmp;*.jpg)|*.bmp;*.jpg|");
    EXPECT_EQ(seen, pictures);
    EXPECT_TRUE(caption.startsWith("Texture Image (*.bmp;*.jpg)")) << caption.toStdString();
}

}  // namespace
}  // namespace velna
