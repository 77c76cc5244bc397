// The single controls of the panel: each sends its event to `Main` and shows `Main`'s state.
#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "common/NumberText.h"
#include "editor/Main.h"
#include "editor/PanelTable.h"
#include "model/AirfoilOutline.h"
#include "model/Equipment.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/EventArguments.h"
#include "shell/qt/ListBar.h"
#include "shell/qt/Mirrors.h"
#include "shell/qt/OutlinePicture.h"
#include "shell/qt/PanelWidgets.h"
#include "shell/qt/SurfaceWidget.h"

namespace velna {
namespace {

int kindOf(Control combo) {
    if (combo == Control::ServosCombo) return BoxKind::servo;
    return combo == Control::ReceiverCombo ? BoxKind::receiver : BoxKind::accumulator;
}

const char* catalogueName(Control combo) {
    if (combo == Control::ServosCombo) return "Servo model";
    return combo == Control::ReceiverCombo ? "Receiver model" : "Accumulator model";
}

void fillCombo(QComboBox& box, Control combo, const MainForm& main) {
    const QSignalBlocker silent(&box);
    box.clear();
    for (const CatalogueEntry& entry : Equipment::catalogue(kindOf(combo), main.project.units))
        box.addItem(QString::fromStdString(entry.name));
    box.setCurrentIndex(std::clamp(main.controls[combo].value, 0, box.count() - 1));
}

QString sectionText(const SymWingSections& wing) {
    const auto percent = [](double ratio) { return fixedText(100 * ratio, 1); };
    const std::string root = percent(wing.thickness1);
    const std::string tip = percent(wing.thickness2);
    return QString::fromStdString("Airfoil: " + std::to_string(wing.pointCount()) + " points, " +
                                  root + (root == tip ? "" : " to " + tip) + " % thick");
}

}  // namespace

QHBoxLayout* PanelWidgets::listRow(const char* caption, Control label, Control bar,
                                   const Control* plus, const Control* minus) {
    auto* row = new QHBoxLayout;
    row->setSpacing(4);
    row->addWidget(new QLabel(caption));
    auto* number = new QLabel;
    number->setObjectName(controlName(label));
    number->setMinimumWidth(fontMetrics().horizontalAdvance("00"));
    number->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    mirrors_.add(label, [number](const ControlState& state) {
        number->setText(QString::fromStdString(state.text));
    });
    row->addWidget(number);

    auto* scroll = new ListBar;
    scroll->setObjectName(controlName(bar));
    scroll->setAccessibleName(caption);
    scroll->setMinimum(1);
    scroll->setPageStep(1);
    scroll->setMinimumWidth(50);
    mirrors_.add(bar, [scroll](const ControlState& state) {
        const QSignalBlocker silent(scroll);
        scroll->setMaximum(state.maximum);
        scroll->setValue(state.value);
    });
    connect(scroll, &QScrollBar::valueChanged, this,
            [this, bar](int value) { main_.scrollChanged(bar, value); });
    row->addWidget(scroll, 1);
    const auto add = [&](const Control* control, const char* icon, const char* tip,
                         const char* act) {
        if (!control) return;
        QWidget* sign = button(*control, icon, tip);
        // Said without the row before it, the tip would leave open what.
        sign->setAccessibleName(QString(act).arg(QString(caption).toLower()));
        row->addWidget(sign);
    };
    add(plus, "icons/Plus", "Adds one", "Add %1");
    add(minus, "icons/Minus", "Removes the last one", "Remove last %1");
    return row;
}

QWidget* PanelWidgets::button(Control control, const char* icon, const char* tip) {
    auto* result = new QToolButton;
    result->setObjectName(controlName(control));
    result->setAccessibleName(tip);
    result->setProperty(drawingProperty, icon);
    result->setIconSize(compact_ ? QSize(16, 16) : QSize(20, 20));
    result->setToolTip(tip);
    result->setFocusPolicy(Qt::TabFocus);
    // A new fuselage asks for the modifiers at the press. The others act when the button is let go.
    const auto act = [this, control] {
        main_.buttonPressed(control,
                            EventArguments::shift(QGuiApplication::queryKeyboardModifiers()));
    };
    if (control == Control::IndexFusPlusButton) {
        connect(result, &QToolButton::pressed, this, act);
    } else {
        connect(result, &QToolButton::clicked, this, act);
    }
    mirrors_.add(control, [result](const ControlState& state) { showPresence(*result, state); });
    return result;
}

QWidget* PanelWidgets::checkBox(Control control, const char* caption) {
    auto* box = new QCheckBox(caption);
    box->setObjectName(controlName(control));
    box->setToolTip(panelCheck(control)->quantity);
    connect(box, &QCheckBox::clicked, this,
            [this, control](bool on) { main_.checkClicked(control, on); });
    mirrors_.add(control, [box](const ControlState& state) {
        showPresence(*box, state);
        box->setChecked(state.checked);
    });
    return box;
}

QAbstractButton* PanelWidgets::option(Control control, const char* caption) {
    auto* result = new QRadioButton(caption);
    result->setObjectName(controlName(control));
    connect(result, &QRadioButton::clicked, this,
            [this, control] { main_.optionClicked(control); });
    mirrors_.add(control, [result](const ControlState& state) {
        if (state.checked) result->setChecked(true);
    });
    return result;
}

void PanelWidgets::addCatalogue(QVBoxLayout& page, Control control) {
    auto* box = new QComboBox;
    // To a screen reader a list's own name is the row that stands in it: a label says what it is,
    // and need not be seen, for the options above say it too.
    auto* label = new QLabel(catalogueName(control));
    label->setBuddy(box);
    label->hide();
    page.addWidget(label);
    page.addWidget(box);
    box->setObjectName(controlName(control));
    box->setToolTip("Commercial models: sets the size of the box");
    box->setMinimumContentsLength(10);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    connect(box, &QComboBox::activated, this,
            [this, control](int index) { main_.comboClicked(control, index); });
    mirrors_.add(control, [this, box, control](const ControlState& state) {
        showPresence(*box, state);
        fillCombo(*box, control, main_);
    });
}

QWidget* PanelWidgets::slider(Control control) {
    const PanelSlider& row = *panelSlider(control);
    auto* result = new QSlider(Qt::Vertical);
    result->setObjectName(controlName(control));
    result->setAccessibleName(row.quantity);
    result->setToolTip(row.quantity);
    result->setRange(row.lowest, row.highest);
    result->setSingleStep(1);
    result->setPageStep(row.largeStep);
    // The smallest value at the top, as the section's widest line counts from its top.
    result->setInvertedAppearance(true);
    result->setInvertedControls(true);
    connect(result, &QSlider::valueChanged, this,
            [this, control](int value) { main_.sliderChanged(control, value); });
    // One drag is one step.
    connect(result, &QSlider::sliderPressed, this, [this, control] { main_.holdSlider(control); });
    connect(result, &QSlider::sliderReleased, this, [this] { main_.endGesture(); });
    const int tallest = sectionArea_->height();
    const bool stretched = control == Control::BiasSlider;
    mirrors_.add(control, [result, tallest, stretched](const ControlState& state) {
        const QSignalBlocker silent(result);
        result->setValue(state.value);
        // Stands beside the section as tall as it is, as far as there is room.
        if (stretched && std::isfinite(state.height))
            result->setFixedHeight(static_cast<int>(std::clamp(state.height, 30.0, 1.0 * tallest)));
    });
    if (!stretched) result->setFixedHeight(tallest);
    return result;
}

QLayout* PanelWidgets::sectionFlags() {
    QWidget* unique = checkBox(Control::UniqueCurvatureCheck, "All sections");
    QWidget* linked = checkBox(Control::LinkedCurvaturesCheck, "Linked");
    QWidget* transparent = checkBox(Control::TransparentCheck, "Transparent");
    auto* smooth = new QHBoxLayout;
    smooth->setSpacing(2);
    smooth->addWidget(
        button(Control::SmoothTopCommand, "icons/SmoothTop", "Smooths the upper edge"));
    smooth->addWidget(
        button(Control::SmoothDownCommand, "icons/SmoothDown", "Smooths the lower edge"));
    smooth->addWidget(
        button(Control::SmoothWidthCommand, "icons/SmoothWidth", "Smooths the width"));
    smooth->addStretch();

    auto* flags = new QGridLayout;
    flags->setSpacing(compact_ ? 0 : 4);
    flags->addWidget(unique, 0, 0);
    flags->addWidget(linked, compact_ ? 0 : 1, compact_ ? 1 : 0);
    flags->addWidget(transparent, compact_ ? 1 : 2, 0);
    flags->addLayout(smooth, compact_ ? 1 : 3, compact_ ? 1 : 0);
    flags->setRowStretch(4, 1);
    return flags;
}

QWidget* PanelWidgets::sectionPicture() {
    auto* picture = new OutlinePicture;
    picture->setObjectName("WingOutline");
    picture->setAccessibleName("Airfoil of this panel");
    const auto show = [this, picture](const ControlState&) {
        const Project& project = main_.project;
        // The window is built before there is an aircraft.
        if (project.currentWing > project.Wings.size()) return;
        const SymWingSections& wing = project.Wings(project.currentWing);
        picture->setOutline(AirfoilOutline::ofRoot(wing), sectionText(wing));
    };
    // The label is filled with the whole tab, the field by itself where it is typed into.
    for (const Control control : {Control::IdWingLabel, Control::ThicknessBText})
        mirrors_.add(control, show);
    return picture;
}

QWidget* PanelWidgets::sectionEditor() {
    auto* editor = new QWidget;
    const int side = compact_ ? 100 : 116;
    sectionArea_ = new SurfaceWidget(editor);
    sectionArea_->setObjectName("DrawSectionArea");
    sectionArea_->setAccessibleName("Section");
    sectionArea_->setFixedSize(side, side);

    auto* shape = new QHBoxLayout;
    shape->setSpacing(compact_ ? 0 : 4);
    shape->addWidget(sectionArea_);
    shape->addWidget(slider(Control::BiasSlider), 0, Qt::AlignTop);
    shape->addWidget(slider(Control::CurvatureSlider), 0, Qt::AlignTop);
    shape->addWidget(slider(Control::Curvature2Slider), 0, Qt::AlignTop);

    // Beside the sliders where there is room, else below them.
    auto* layout =
        compact_ ? static_cast<QBoxLayout*>(new QVBoxLayout(editor)) : new QHBoxLayout(editor);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(compact_ ? 2 : 6);
    layout->addLayout(shape);
    layout->addLayout(sectionFlags(), 1);
    return editor;
}

}  // namespace velna
