#include "shell/qt/DrawArea.h"

#include <QCursor>
#include <QNativeGestureEvent>
#include <QPainter>
#include <QWheelEvent>
#include <cmath>
#include <utility>

#include "editor/Main.h"
#include "editor/ViewZoom.h"
#include "shell/Helper.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/EventArguments.h"
#include "shell/qt/StripLabel.h"

namespace velna {
namespace {

float column(const QMouseEvent& event) {
    return static_cast<float>(event.position().x());
}
float row(const QMouseEvent& event) {
    return static_cast<float>(event.position().y());
}

// The double arrows of a change of shape, which no desktop has.
QCursor iconCursor(CursorIcon icon, double density) {
    constexpr int size = 32;
    const char* name =
        icon == CursorIcon::EWShapeIcon ? "cursors/EWShapeIcon" : "cursors/NSShapeIcon";
    return QCursor(Drawings::picture(name, {size, size}, density, Qt::black), size / 2, size / 2);
}

Qt::CursorShape toolkitShape(CursorShape shape) {
    switch (shape) {
        case CursorShape::Cross:
            return Qt::CrossCursor;
        case CursorShape::FourWay:
            return Qt::SizeAllCursor;
        case CursorShape::NorthSouth:
            return Qt::SizeVerCursor;
        case CursorShape::WestEast:
            return Qt::SizeHorCursor;
        default:
            return Qt::ArrowCursor;
    }
}

// A notch of a usual wheel, in the toolkit's units, and what it makes of the drawing: four double
// it.
constexpr double wheelNotch = 120;
constexpr double largerPerNotch = 1.1892071150027210667;
// A sideways notch goes past this many pixels.
constexpr double pixelsPerNotch = 60;

// The marks of the figures, on the drawing's white ground.
constexpr QColor quarterInk(176, 32, 32);
constexpr QColor rangeInk(0, 112, 64);
constexpr double markWidth = 2;

// The keys that open a menu on every desktop.
bool opensMenu(const QKeyEvent& event) {
    return event.key() == Qt::Key_Menu ||
           (event.key() == Qt::Key_F10 && event.modifiers() == Qt::ShiftModifier);
}

}  // namespace

DrawArea::DrawArea(MainForm& main, const Helper& helper, QWidget* parent)
    : SurfaceWidget(parent), main_(main), helper_(helper) {
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setObjectName("DrawArea");
    setAccessibleName("Drawing");
}

void DrawArea::setShape(CursorShape shape, CursorIcon icon) {
    if (shape == CursorShape::Custom) {
        setCursor(iconCursor(icon, devicePixelRatioF()));
    } else {
        setCursor(toolkitShape(shape));
    }
}

void DrawArea::glideTo(QPoint place) {
    main_.DrawArea_MouseMove(0, 0, static_cast<float>(place.x()), static_cast<float>(place.y()));
}

QString DrawArea::reading() const {
    return StripLabel::text(main_);
}

void DrawArea::showMarks(std::vector<MarkLine> marks) {
    if (marks == marks_) return;
    marks_ = std::move(marks);
    update();
}

void DrawArea::paintEvent(QPaintEvent* event) {
    SurfaceWidget::paintEvent(event);
    if (marks_.empty()) return;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    for (const MarkLine& mark : marks_) {
        painter.setPen(QPen(mark.range ? rangeInk : quarterInk, markWidth));
        painter.drawLine(QPointF(mark.from.x, mark.from.y), QPointF(mark.to.x, mark.to.y));
    }
}

bool DrawArea::event(QEvent* event) {
    if (event->type() == QEvent::NativeGesture) {
        pinch(static_cast<const QNativeGestureEvent&>(*event));
        afterInput();
        return true;
    }
    const bool done = SurfaceWidget::event(event);
    if (event->isInputEvent() || event->type() == QEvent::Leave) afterInput();
    return done;
}

bool DrawArea::canZoom(Qt::MouseButtons held) const {
    return held == Qt::NoButton && !helper_.running;
}

void DrawArea::wheelEvent(QWheelEvent* event) {
    event->accept();
    if (!canZoom(event->buttons())) return;
    const QPoint turned = event->angleDelta();
    const QPointF at = event->position();
    if (turned.y() != 0)
        zoomAt(main_, at.x(), at.y(), std::pow(largerPerNotch, turned.y() / wheelNotch));
    if (turned.x() != 0) panSideways(main_, turned.x() / wheelNotch * pixelsPerNotch);
    surface().refresh();
}

void DrawArea::pinch(const QNativeGestureEvent& event) {
    if (event.gestureType() != Qt::ZoomNativeGesture || !canZoom(event.buttons())) return;
    zoomAt(main_, event.position().x(), event.position().y(), 1 + event.value());
    surface().refresh();
}

void DrawArea::leaveEvent(QEvent* event) {
    main_.strip.pointer.reset();
    SurfaceWidget::leaveEvent(event);
}

void DrawArea::mousePressEvent(QMouseEvent* event) {
    main_.DrawArea_MouseDown(EventArguments::button(event->button()),
                             EventArguments::shift(event->modifiers()), column(*event),
                             row(*event));
    surface().refresh();
}

void DrawArea::mouseDoubleClickEvent(QMouseEvent* event) {
    mousePressEvent(event);
}

void DrawArea::mouseMoveEvent(QMouseEvent* event) {
    const std::int16_t held = EventArguments::buttons(event->buttons());
    const std::int16_t shift = EventArguments::shift(event->modifiers());
    // A menu opened in mid-drag takes the release. The demonstration drags without a button.
    if (held == 0 && main_.anyBusy() && !helper_.running) main_.cancelGesture();
    main_.DrawArea_MouseMove(held, shift, column(*event), row(*event));
    // A held modifier does not repeat on every desktop: it arms what the pointer has come to now.
    if (held == 0 && shift != 0) main_.DrawArea_keydown(EventArguments::modifierKey(shift), shift);
    surface().refresh();
}

void DrawArea::mouseReleaseEvent(QMouseEvent* event) {
    main_.DrawArea_MouseUp(EventArguments::button(event->button()),
                           EventArguments::shift(event->modifiers()), column(*event), row(*event));
    surface().refresh();
}

// Under the pointer, as for the right button, or in the middle when that is elsewhere.
void DrawArea::openMenu() {
    if (main_.anyBusy()) return;
    // The Shift of Shift+F10 has armed the other direction, and comes up in the menu.
    main_.cancelGesture();
    const QPoint pointer = mapFromGlobal(QCursor::pos());
    const QPoint at = rect().contains(pointer) ? pointer : rect().center();
    main_.window->openPopup(static_cast<float>(at.x()), static_cast<float>(at.y()));
    surface().refresh();
}

void DrawArea::keyPressEvent(QKeyEvent* event) {
    if (opensMenu(*event)) return openMenu();
    const std::int16_t code = EventArguments::keyCode(*event);
    if (!event->isAutoRepeat() && !EventArguments::isModifier(code)) ++keysDown_;
    main_.DrawArea_keydown(code, EventArguments::shift(*event));
    surface().refresh();
    // Keys that the editor does not know go on to the window.
    if (code == 0) event->ignore();
}

void DrawArea::keyReleaseEvent(QKeyEvent* event) {
    if (event->isAutoRepeat()) return;
    if (!EventArguments::isModifier(EventArguments::keyCode(*event))) {
        // The key that chose an entry of the menu comes up here: it must not disarm what the entry
        // has armed.
        if (keysDown_ == 0) return;
        --keysDown_;
    }
    main_.DrawArea_keyup();
    surface().refresh();
}

void DrawArea::focusOutEvent(QFocusEvent* event) {
    keysDown_ = 0;
    SurfaceWidget::focusOutEvent(event);
}

}  // namespace velna
