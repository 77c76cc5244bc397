#include "shell/qt/PanelWidgets.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QComboBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QTabBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>

#include "editor/Main.h"
#include "editor/PanelTable.h"
#include "shell/qt/Drawings.h"
#include "shell/qt/Mirrors.h"
#include "shell/qt/ParameterBox.h"
#include "shell/qt/SurfaceWidget.h"

namespace velna {
namespace {

struct TabRow {
    const char* name;
    const char* icon;
};

// By tab number.
constexpr TabRow tabs[] = {
    {"Fuselage", "icons/TabFuselage"},       {"Wing", "icons/TabWing"},
    {"Stabilizer", "icons/TabStabilizer"},   {"Rudder", "icons/TabRudder"},
    {"Electronics", "icons/TabElectronics"},
};

constexpr int allRows = 100;

// Five tabs of one width: the style's own hints would push the last ones out of a narrow panel.
class EvenTabBar : public QTabBar {
protected:
    // The toolkit tells of a click with any button.
    void mousePressEvent(QMouseEvent* event) override {
        if (event->button() == Qt::LeftButton) QTabBar::mousePressEvent(event);
    }
    QSize tabSizeHint(int index) const override {
        const QSize hint = QTabBar::tabSizeHint(index);
        const int room =
            parentWidget() ? parentWidget()->width() / static_cast<int>(std::size(tabs)) : 0;
        return room > 0 ? QSize(room, hint.height()) : hint;
    }
    QSize minimumTabSizeHint(int index) const override { return tabSizeHint(index); }
};

// A frame that keeps its room while it is hidden, so that nothing jumps.
void keepRoom(QWidget& widget) {
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
}

}  // namespace

PanelWidgets::PanelWidgets(MainForm& main, bool compact, Mirrors& mirrors, QWidget* parent)
    : QTabWidget(parent), main_(main), compact_(compact), mirrors_(mirrors) {
    setObjectName("Parameters");
    setTabBar(new EvenTabBar);
    setDocumentMode(true);
    setIconSize(compact ? QSize(20, 20) : QSize(24, 24));
    tabBar()->setExpanding(true);
    tabBar()->setUsesScrollButtons(false);
    buildFuselagePage();
    buildWingPage();
    buildStabilizerPage();
    buildRudderPage();
    buildElectronicsPage();
    leaveTheWheelToThePages();
    drawIcons();

    mirrors_.add(Control::Parameters, [this](const ControlState& state) {
        const QSignalBlocker silent(*this);
        setCurrentIndex(state.value);
    });
    connect(tabBar(), &QTabBar::tabBarClicked, this, [this](int tab) {
        if (tab >= 0) main_.tabClicked(tab);
    });
    // The keyboard changes a tab as a click does.
    connect(this, &QTabWidget::currentChanged, this, [this](int tab) {
        if (tab != main_.tab()) main_.tabClicked(tab);
    });
}

int PanelWidgets::neededWidth(int height) const {
    int width = 0;
    for (int i = 0; i < count(); ++i) {
        const auto* scroll = static_cast<const QScrollArea*>(widget(i));
        const QSize page = scroll->widget()->minimumSizeHint();
        const bool scrolls = page.height() > height - tabBar()->sizeHint().height();
        const int bar = scrolls ? scroll->verticalScrollBar()->sizeHint().width() : 0;
        width = std::max(width, page.width() + bar);
    }
    return width;
}

void PanelWidgets::leaveTheWheelToThePages() {
    for (int i = 0; i < count(); ++i) {
        const QWidget* page = static_cast<QScrollArea*>(widget(i))->widget();
        for (auto* bar : page->findChildren<QAbstractSlider*>()) bar->installEventFilter(this);
        for (auto* list : page->findChildren<QComboBox*>()) list->installEventFilter(this);
    }
}

bool PanelWidgets::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::FocusIn) main_.endVisit();
    if (event->type() != QEvent::Wheel) return false;
    const auto* scroll = static_cast<const QScrollArea*>(currentWidget());
    const QScrollBar& bar = *scroll->verticalScrollBar();
    if (bar.minimum() == bar.maximum()) return false;
    // What is scrolled past must not change the aircraft.
    event->ignore();
    return true;
}

void PanelWidgets::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) drawIcons();
    QTabWidget::changeEvent(event);
}

void PanelWidgets::followScreen() {
    sectionArea_->surface().fitToWidget();
    for (ParameterCell* cell : cells_) cell->renewPicture();
}

void PanelWidgets::drawIcons() {
    for (int i = 0; i < count(); ++i)
        setTabIcon(i, Drawings::icon(tabs[i].icon, palette().color(QPalette::WindowText)));
    for (QToolButton* button : findChildren<QToolButton*>()) {
        const QByteArray drawing = button->property(drawingProperty).toByteArray();
        if (!drawing.isEmpty())
            button->setIcon(Drawings::icon(drawing, palette().color(QPalette::ButtonText)));
    }
}

QVBoxLayout* PanelWidgets::addPage(int tab) {
    auto* page = new QWidget;
    auto* layout = new QVBoxLayout(page);
    const int margin = compact_ ? 4 : 10;
    layout->setContentsMargins(margin, compact_ ? 2 : 8, margin, 2);
    layout->setSpacing(compact_ ? 3 : 8);

    // Where the window is lower than the page, the page scrolls.
    auto* scroll = new QScrollArea;
    scroll->setWidget(page);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus);  // it follows the focus of its controls
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    addTab(scroll, QString());
    setTabToolTip(tab, tabs[tab].name);
    tabBar()->setAccessibleTabName(tab, tabs[tab].name);

    // Where room is short, a list's own caption is the title.
    const bool hasList =
        tab == PanelTab::fuselage || tab == PanelTab::wing || tab == PanelTab::electronics;
    if (compact_ && hasList) return layout;
    auto* title = new QLabel(tabs[tab].name);
    QFont bold = font();
    bold.setBold(true);
    title->setFont(bold);
    layout->addWidget(title);
    return layout;
}

QGridLayout* PanelWidgets::fieldGrid(int tab, int firstRow, int lastRow) {
    const QSize picture = compact_ ? QSize(26, 20) : QSize(44, 30);
    auto* grid = new QGridLayout;
    grid->setHorizontalSpacing(compact_ ? 6 : 14);
    grid->setVerticalSpacing(compact_ ? 2 : 6);
    for (const PanelPlace& place : panelPlaces()) {
        if (panelField(place.control)->tab != tab || place.row < firstRow || place.row > lastRow)
            continue;
        auto* cell = new ParameterCell(main_, place, picture, mirrors_, this);
        cells_.push_back(cell);
        grid->addWidget(cell, place.row, place.column);
    }
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

void PanelWidgets::buildFuselagePage() {
    constexpr Control plus = Control::IndexFusPlusButton, minus = Control::IndexFusMinusButton;
    QVBoxLayout* page = addPage(PanelTab::fuselage);
    page->addLayout(
        listRow("Fuselage", Control::IdFusLabel, Control::IndexFusScroll, &plus, &minus));

    auto* section = new QGroupBox("Section properties");
    auto* inside = new QVBoxLayout(section);
    inside->setContentsMargins(compact_ ? 2 : 8, 2, compact_ ? 2 : 8, 4);
    inside->setSpacing(compact_ ? 2 : 6);
    inside->addLayout(listRow("Section", Control::FuselageSectionLabel, Control::FuselageScroll,
                              nullptr, nullptr));
    inside->addLayout(fieldGrid(PanelTab::fuselage, 0, 2));
    QWidget* editor = sectionEditor();
    editor->setProperty("helpPage", "section-editor");
    inside->addWidget(editor);
    page->addWidget(section);

    auto* offsets = new QGroupBox("Place in the aircraft");
    offsets->setObjectName(controlName(Control::FuselageVTopFrame));
    offsets->setLayout(fieldGrid(PanelTab::fuselage, 3, 3));
    offsets->layout()->setContentsMargins(compact_ ? 2 : 8, 2, compact_ ? 2 : 8, 4);
    keepRoom(*offsets);
    mirrors_.add(Control::FuselageVTopFrame,
                 [offsets](const ControlState& state) { showPresence(*offsets, state); });
    page->addWidget(offsets);
    page->addStretch();
}

void PanelWidgets::buildWingPage() {
    constexpr Control plus = Control::IndexWingPlusButton, minus = Control::IndexWingMinusButton;
    QVBoxLayout* page = addPage(PanelTab::wing);
    page->addLayout(
        listRow("Panel", Control::IdWingLabel, Control::IndexWingsScroll, &plus, &minus));
    page->addLayout(fieldGrid(PanelTab::wing, 0, allRows));
    page->addWidget(sectionPicture());
    page->addStretch();
}

void PanelWidgets::buildStabilizerPage() {
    QVBoxLayout* page = addPage(PanelTab::stabilizer);
    page->addLayout(fieldGrid(PanelTab::stabilizer, 0, allRows));
    page->addStretch();
}

void PanelWidgets::buildRudderPage() {
    QVBoxLayout* page = addPage(PanelTab::rudder);
    page->addLayout(fieldGrid(PanelTab::rudder, 0, allRows));
    page->addStretch();
}

void PanelWidgets::buildElectronicsPage() {
    constexpr Control plus = Control::IndexServosPlusButton,
                      minus = Control::IndexServosMinusButton;
    QVBoxLayout* page = addPage(PanelTab::electronics);
    page->addLayout(
        listRow("Box", Control::IdEquipLabel, Control::IndexServosScroll, &plus, &minus));

    auto* frame = new QGroupBox("Electronics");
    auto* inside = new QVBoxLayout(frame);
    inside->setContentsMargins(compact_ ? 2 : 8, 2, compact_ ? 2 : 8, 4);
    const auto optionRow = [&](std::initializer_list<std::pair<Control, const char*>> options) {
        auto* row = compact_ ? static_cast<QBoxLayout*>(new QVBoxLayout) : new QHBoxLayout;
        row->setSpacing(compact_ ? 0 : 8);
        auto* group = new QButtonGroup(frame);
        for (const auto& [control, caption] : options) {
            QAbstractButton* button = option(control, caption);
            group->addButton(button);
            row->addWidget(button);
        }
        row->addStretch();
        inside->addLayout(row);
    };
    optionRow({{Control::ServoOption, "Servo"},
               {Control::ReceiverOption, "Receiver"},
               {Control::AccuOption, "Accumulator"}});
    for (const Control combo : {Control::ServosCombo, Control::ReceiverCombo, Control::AccuCombo})
        addCatalogue(*inside, combo);
    optionRow({{Control::HorizontalServoOption, "Horizontal"},
               {Control::VerticalServoOption, "Vertical"}});
    inside->addLayout(fieldGrid(PanelTab::electronics, 0, allRows));
    page->addWidget(frame);
    page->addStretch();
}

}  // namespace velna
