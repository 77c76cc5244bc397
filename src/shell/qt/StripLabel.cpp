#include "shell/qt/StripLabel.h"

#include <QAccessible>
#include <algorithm>

#include "editor/Main.h"

namespace velna {
namespace {

// Wide enough for the places of most aircraft, so that the text behind it stays where it is.
constexpr const char* usualPlace = "x -1000.00  y -1000.00 mm";
constexpr int gap = 24;

}  // namespace

StripLabel::StripLabel(const MainForm& main, QWidget& drawing, QWidget* parent)
    : QWidget(parent), main_(main), drawing_(drawing), place_(this), value_(this) {
    setObjectName("Strip");
    place_.setObjectName("StripPlace");
    value_.setObjectName("StripValue");
    for (QLabel* label : {&place_, &value_}) {
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    }
    timer_.setSingleShot(true);
    timer_.setInterval(0);
    QObject::connect(&timer_, &QTimer::timeout, this, [this] { refresh(); });
}

void StripLabel::later() {
    if (!timer_.isActive()) timer_.start();
}

QString StripLabel::text(const MainForm& main) {
    const StripText text = stripText(main);
    const char* between = text.place.empty() || text.value.empty() ? "" : "; ";
    return QString::fromStdString(text.value + between + text.place);
}

void StripLabel::refresh() {
    const StripText text = stripText(main_);
    const QString place = QString::fromStdString(text.place);
    const QString value = QString::fromStdString(text.value);
    const bool newValue = value != value_.text();
    if (place != place_.text()) place_.setText(place);
    if (!newValue) return;
    value_.setText(value);
    // The place alone is not spoken: it changes with each move of the hand.
    if (!QAccessible::isActive()) return;
    for (const QAccessible::Event kind :
         {QAccessible::ValueChanged, QAccessible::DescriptionChanged}) {
        QAccessibleEvent event(&drawing_, kind);
        QAccessible::updateAccessibility(&event);
    }
}

void StripLabel::resizeEvent(QResizeEvent*) {
    const int wanted = fontMetrics().horizontalAdvance(usualPlace) + gap;
    const int left = std::min(wanted, width());
    place_.setGeometry(0, 0, left, height());
    value_.setGeometry(left, 0, width() - left, height());
}

}  // namespace velna
