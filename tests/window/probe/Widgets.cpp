#include <QAbstractButton>
#include <QAbstractSlider>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QHeaderView>
#include <QJsonObject>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QProgressBar>
#include <QTabBar>
#include <QTextEdit>
#include <QTreeWidget>

#include "Probe.h"

namespace {

QJsonArray place(const QWidget& widget, const QRect& rect) {
    const QPoint corner = widget.mapToGlobal(rect.topLeft());
    return {corner.x(), corner.y(), rect.width(), rect.height()};
}

void tellButton(const QAbstractButton& button, QJsonObject& told) {
    told["text"] = button.text();
    told["checked"] = button.isChecked();
    told["tip"] = button.toolTip();
}

QJsonArray entries(const QMenu& menu) {
    QJsonArray list;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator()) continue;
        list.append(
            QJsonObject{{"name", action->objectName()},
                        {"text", action->text()},
                        {"enabled", action->isEnabled()},
                        {"checked", action->isChecked()},
                        {"place", place(menu, menu.actionGeometry(const_cast<QAction*>(action)))}});
    }
    return list;
}

QJsonArray tabs(const QTabBar& bar) {
    QJsonArray list;
    for (int tab = 0; tab < bar.count(); ++tab) {
        list.append(
            QJsonObject{{"text", bar.tabText(tab)}, {"place", place(bar, bar.tabRect(tab))}});
    }
    return list;
}

QJsonArray rows(const QAbstractItemView& view) {
    QJsonArray list;
    const QAbstractItemModel* model = view.model();
    for (int row = 0; model && row < model->rowCount(); ++row) {
        QJsonArray cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            cells.append(model->index(row, column).data().toString());
        }
        const QModelIndex first = model->index(row, 0);
        list.append(QJsonObject{{"cells", cells},
                                {"checked", first.data(Qt::CheckStateRole).toInt() == Qt::Checked},
                                {"selected", view.selectionModel()->isSelected(first)},
                                {"place", place(*view.viewport(), view.visualRect(first))}});
    }
    return list;
}

// What a kind of widget shows, under names that are the same for all kinds.
void tellState(const QWidget& widget, QJsonObject& told) {
    if (const auto* edit = qobject_cast<const QLineEdit*>(&widget)) {
        told["text"] = edit->text();
    } else if (const auto* text = qobject_cast<const QTextEdit*>(&widget)) {
        told["text"] = text->toPlainText();
    } else if (const auto* label = qobject_cast<const QLabel*>(&widget)) {
        told["text"] = label->text();
    } else if (const auto* button = qobject_cast<const QAbstractButton*>(&widget)) {
        tellButton(*button, told);
    } else if (const auto* slider = qobject_cast<const QAbstractSlider*>(&widget)) {
        told["value"] = slider->value();
        told["maximum"] = slider->maximum();
        told["minimum"] = slider->minimum();
    } else if (const auto* combo = qobject_cast<const QComboBox*>(&widget)) {
        told["text"] = combo->currentText();
        told["value"] = combo->currentIndex();
    } else if (const auto* bar = qobject_cast<const QTabBar*>(&widget)) {
        told["value"] = bar->currentIndex();
        told["tabs"] = tabs(*bar);
    } else if (const auto* menu = qobject_cast<const QMenu*>(&widget)) {
        told["entries"] = entries(*menu);
    } else if (const auto* view = qobject_cast<const QAbstractItemView*>(&widget)) {
        told["rows"] = rows(*view);
    } else if (const auto* progress = qobject_cast<const QProgressBar*>(&widget)) {
        told["value"] = progress->value();
    }
}

}  // namespace

QJsonArray visibleWidgets() {
    QJsonArray list;
    for (const QWidget* widget : QApplication::allWidgets()) {
        if (!widget->isVisible()) continue;
        const QString object = widget->objectName();
        QJsonObject told{{"name", object.isEmpty() ? widget->accessibleName() : object},
                         {"kind", widget->metaObject()->className()},
                         {"place", place(*widget, widget->rect())},
                         {"enabled", widget->isEnabled()},
                         {"tip", widget->toolTip()},
                         {"cursor", widget->cursor().shape()},
                         {"focus", widget->hasFocus()},
                         {"window", widget->window()->windowTitle()},
                         {"isWindow", widget->isWindow()},
                         {"active", widget->isActiveWindow()},
                         {"modal", widget->window()->isModal()}};
        tellState(*widget, told);
        list.append(told);
    }
    return list;
}
