#include "shell/qt/ManagerForm.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPushButton>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>
#include <utility>

#include "editor/Main.h"
#include "model/Project.h"
#include "shell/qt/Drawings.h"

namespace velna {

ManagerForm::ManagerForm(MainForm& main, QWidget* parent)
    : QDialog(parent), main_(main), list_(new QTreeWidget) {
    setObjectName("ObjectList");
    setWindowTitle("Fuselage Manager");
    setProperty("helpPage", "manager");
    list_->setObjectName("ListView");
    list_->setAccessibleName("Fuselages");
    list_->setHeaderLabels({"Id", "Status", "Sections"});
    list_->setRootIsDecorated(false);
    list_->setSelectionMode(QAbstractItemView::ExtendedSelection);
    list_->setUniformRowHeights(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(list_);
    layout->addLayout(buildButtons());

    Project& project = main_.project;
    project.ObjectList.update(project.Fuselages, project.nbFuselages);
    showRows();
    fitColumns();
    if (QTreeWidgetItem* current = list_->topLevelItem(project.currentFuselage - 1))
        list_->setCurrentItem(current);
    connect(list_, &QTreeWidget::itemDoubleClicked, this, [this] { reject(); });
    connect(list_, &QTreeWidget::itemChanged, this, [this](QTreeWidgetItem* item, int column) {
        if (column == 0) {
            main_.rowChecked(list_->indexOfTopLevelItem(item) + 1,
                             item->checkState(0) == Qt::Checked);
        }
    });
}

QLayout* ManagerForm::buildButtons() {
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* name, const char* caption, std::function<void()> act) {
        auto* button = new QPushButton(caption);
        button->setObjectName(name);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, std::move(act));
        row->addWidget(button);
        return button;
    };
    show_ = add("ShowCommand", "Show", [this] { main_.showCommand(selectedRows()); });
    hide_ = add("HideCommand", "Hide", [this] { main_.hideCommand(selectedRows()); });
    row->addStretch();
    add("CloseCommand", "Close", [this] { reject(); })->setDefault(true);
    drawIcons();
    return row;
}

void ManagerForm::drawIcons() {
    const QColor ink = palette().color(QPalette::ButtonText);
    show_->setIcon(Drawings::icon("icons/Show", ink));
    hide_->setIcon(Drawings::icon("icons/Hide", ink));
}

void ManagerForm::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange && show_) drawIcons();
    QDialog::changeEvent(event);
}

void ManagerForm::showRows() {
    const QSignalBlocker silent(list_);
    const auto& rows = main_.project.ObjectList.rows;
    const int count = static_cast<int>(rows.size());
    while (list_->topLevelItemCount() > count)
        delete list_->takeTopLevelItem(list_->topLevelItemCount() - 1);
    while (list_->topLevelItemCount() < count) list_->addTopLevelItem(new QTreeWidgetItem);
    for (int i = 0; i < count; ++i) {
        const FuselageRow& row = rows[static_cast<std::size_t>(i)];
        QTreeWidgetItem& item = *list_->topLevelItem(i);
        item.setText(0, QString::fromStdString(row.text));
        item.setText(1, QString::fromStdString(row.status));
        item.setText(2, QString::fromStdString(row.sections));
        item.setCheckState(0, row.checked ? Qt::Checked : Qt::Unchecked);
    }
}

// Every column shows its letters, however large the desktop has them; the first takes what is left.
void ManagerForm::fitColumns() {
    constexpr int leastWidth = 380, leastHeight = 220, leastRows = 8;
    QHeaderView& header = *list_->header();
    header.setStretchLastSection(false);
    header.setSectionResizeMode(QHeaderView::ResizeToContents);
    header.setSectionResizeMode(0, QHeaderView::Stretch);
    list_->ensurePolished();
    const QAbstractItemView& view = *list_;
    int width = 2 * list_->frameWidth() + list_->verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < header.count(); ++column)
        width += std::max(header.sectionSizeHint(column), view.sizeHintForColumn(column));
    list_->setMinimumSize(std::max(leastWidth, width),
                          std::max(leastHeight, leastRows * fontMetrics().height() * 3 / 2));
}

std::vector<int> ManagerForm::selectedRows() const {
    std::vector<int> rows;
    for (int i = 0; i < list_->topLevelItemCount(); ++i)
        if (list_->topLevelItem(i)->isSelected()) rows.push_back(i + 1);
    return rows;
}

void ManagerForm::reject() {
    // With several rows selected the focused one counts; with none, nothing changes. The focus can
    // stand on a row that Ctrl has taken out of the selection.
    const QList<QTreeWidgetItem*> selected = list_->selectedItems();
    QTreeWidgetItem* counts = selected.contains(list_->currentItem()) ? list_->currentItem()
                              : selected.isEmpty()                    ? nullptr
                                                                      : selected.front();
    QDialog::reject();
    main_.closeManager(counts ? list_->indexOfTopLevelItem(counts) + 1 : 0);
}

}  // namespace velna
