#include "shell/qt/Accessibility.h"

#include <QAccessibleWidget>
#include <QWidget>

#include "shell/qt/Bar.h"
#include "shell/qt/DrawArea.h"
#include "shell/qt/FiguresWindow.h"
#include "shell/qt/HelpWindow.h"
#include "shell/qt/MainWindow.h"
#include "shell/qt/OutlinePicture.h"
#include "shell/qt/SurfaceWidget.h"

namespace velna::Accessibility {
namespace {

/// The drawing says what the strip shows. The description goes with the value, for not every screen
/// reader asks a drawing for one.
class DrawingInterface : public QAccessibleWidget {
public:
    explicit DrawingInterface(DrawArea& drawing)
        : QAccessibleWidget(&drawing, QAccessible::Canvas), drawing_(drawing) {}

    QString text(QAccessible::Text kind) const override {
        const bool says = kind == QAccessible::Value || kind == QAccessible::Description;
        return says ? drawing_.reading() : QAccessibleWidget::text(kind);
    }

private:
    const DrawArea& drawing_;
};

QAccessible::Role roleOf(const QWidget& widget) {
    if (dynamic_cast<const MainWindow*>(&widget) || dynamic_cast<const HelpWindow*>(&widget) ||
        dynamic_cast<const FiguresWindow*>(&widget))
        return QAccessible::Window;
    if (dynamic_cast<const SurfaceWidget*>(&widget)) return QAccessible::Canvas;
    if (dynamic_cast<const OutlinePicture*>(&widget)) return QAccessible::Graphic;
    if (dynamic_cast<const Bar*>(&widget)) return QAccessible::ToolBar;
    return QAccessible::NoRole;
}

// Asked for each class of an object, from its own to the first; what is left at the plain widget
// has no other interface.
QAccessibleInterface* interfaceOf(const QString& className, QObject* object) {
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget || className != "QWidget") return nullptr;
    if (auto* drawing = dynamic_cast<DrawArea*>(widget)) return new DrawingInterface(*drawing);
    const QAccessible::Role role = roleOf(*widget);
    return role == QAccessible::NoRole ? nullptr : new QAccessibleWidget(widget, role);
}

}  // namespace

void install() {
    QAccessible::installFactory(interfaceOf);
}

}  // namespace velna::Accessibility
