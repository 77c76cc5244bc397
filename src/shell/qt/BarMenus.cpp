#include "shell/qt/BarMenus.h"

#include <QMenu>
#include <QToolButton>
#include <filesystem>

#include "common/ReplacedFile.h"

namespace velna::BarMenus {
namespace {

// An arrow's button: which key it stands beside, and what fills its menu each time it opens.
struct Arrow {
    Toolbar::Key key;
    const char* name;
    const char* tip;
    void (*fill)(QMenu& menu, ToolbarCommands& commands);
};

// Ampersands of a name are no mnemonics.
QString shownName(const std::string& name) {
    return QString::fromStdString(name).replace('&', "&&");
}

// The title first: it is what tells one from the other.
QString recentCaption(int number, const std::string& file, const QMenu& menu) {
    constexpr int widest = 360;  // pixels
    const QString folder = menu.fontMetrics().elidedText(QString::fromStdString(folderOf(file)),
                                                         Qt::ElideMiddle, widest);
    return QString("%1%2  %3   %4")
        .arg(number < 10 ? "&" : "1&")
        .arg(number % 10)
        .arg(shownName(titleOf(file)), shownName(folder.toStdString()));
}

void addCommand(QMenu& menu, ToolbarCommands& commands, const char* name, const QString& caption,
                Toolbar::Key key) {
    QAction* entry = menu.addAction(caption);
    entry->setObjectName(name);
    QObject::connect(entry, &QAction::triggered, [&commands, key] { commands.click(key); });
}

void fillRecent(QMenu& menu, ToolbarCommands& commands) {
    int number = 0;
    for (const std::string& file : commands.files.recent.list()) {
        QAction* entry = menu.addAction(recentCaption(++number, file, menu));
        entry->setObjectName(QString("Recent%1").arg(number));
        std::error_code ignored;
        entry->setEnabled(std::filesystem::exists(file, ignored));
        QObject::connect(entry, &QAction::triggered,
                         [&commands, file] { commands.openFile(file); });
    }
    if (number == 0) menu.addAction("No recent projects")->setEnabled(false);
    menu.addSeparator();
    QAction* clear = menu.addAction("&Clear this list");
    clear->setObjectName("ClearRecent");
    clear->setEnabled(number > 0);
    QObject::connect(clear, &QAction::triggered, [&commands] { commands.files.recent.clear(); });
    menu.addSeparator();
    addCommand(menu, commands, "NacaSection", "&NACA section ...", Toolbar::Key::NacaSection);
    addCommand(menu, commands, "AirfoilOnAll", "This panel's &airfoil on all panels",
               Toolbar::Key::AirfoilOnAll);
}

void fillSave(QMenu& menu, ToolbarCommands& commands) {
    const std::string& name = commands.main.projectName;
    const QString caption =
        name.empty() ? "Save &again ..." : "Save " + shownName(titleOf(name)) + " &again";
    addCommand(menu, commands, "SaveAgain", caption + "\tShift+F12", Toolbar::Key::SaveAgain);
}

constexpr Arrow arrows[] = {
    {Toolbar::Key::Open, "RecentFiles", "Recent projects and airfoils", fillRecent},
    {Toolbar::Key::Save, "MoreSaves", "Save again", fillSave},
};

}  // namespace

QToolButton* arrowBeside(Toolbar::Key key, ToolbarCommands& commands, QWidget* parent) {
    const Arrow* arrow = nullptr;
    for (const Arrow& row : arrows)
        if (row.key == key) arrow = &row;
    if (!arrow) return nullptr;
    auto* button = new QToolButton(parent);
    button->setArrowType(Qt::DownArrow);
    button->setObjectName(arrow->name);
    button->setAccessibleName(arrow->tip);
    button->setToolTip(arrow->tip);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::TabFocus);
    auto* menu = new QMenu(button);
    menu->setObjectName(QString(arrow->name) + "Menu");
    QObject::connect(button, &QToolButton::clicked, menu, [arrow, button, menu, &commands] {
        menu->clear();
        arrow->fill(*menu, commands);
        menu->popup(button->mapToGlobal(QPoint(0, button->height())));
    });
    return button;
}

}  // namespace velna::BarMenus
