#include "shell/qt/RibBox.h"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

#include "model/Panels.h"
#include "model/Units.h"

namespace velna {
namespace {

QLabel* caption(const char* text) {
    return new QLabel(text);
}

}  // namespace

RibBox::RibBox(const RibWishes& wishes, int units, QWidget* parent)
    : QGroupBox("Ribs and stations", parent),
      grid_(new QGridLayout(this)),
      unit_(millimetresOf(units)) {
    const char* const unit = units == inches ? "in" : "mm";
    const RibTexts texts = ribTexts(wishes, unit_);
    stations_ = addField(0, "StationsText",
                         addChoice("ByCountOption", "Stations a panel", !texts.bySpacing),
                         texts.stations, "");
    bySpacing_ = addChoice("BySpacingOption", "Spacing", texts.bySpacing);
    spacing_ = addField(1, "SpacingText", bySpacing_, texts.spacing, unit);
    skin_ = addField(2, "SkinText", caption("Skin taken off"), texts.skin, unit);
    slots_ = addField(3, "SlotsText", caption("Spar slots"), texts.spars, "");
    slots_->setPlaceholderText(units == inches ? "30,0.25,0.16,top" : "30,6,4,top; 30,6,4,bottom");
    slots_->setMinimumWidth(220);
    slots_->setToolTip(
        "For each slot: percent of the chord, width, depth, top or bottom; more behind a "
        "semicolon");
    // A length typed for one of the two means that one.
    connect(spacing_, &QLineEdit::textEdited, this, [this] { bySpacing_->setChecked(true); });
    connect(stations_, &QLineEdit::textEdited, this,
            [this] { findChild<QRadioButton*>("ByCountOption")->setChecked(true); });
}

QRadioButton* RibBox::addChoice(const char* name, const char* text, bool on) {
    auto* choice = new QRadioButton(text, this);
    choice->setObjectName(name);
    choice->setChecked(on);
    return choice;
}

QLineEdit* RibBox::addField(int row, const char* name, QWidget* before, const std::string& text,
                            const char* behind) {
    auto* field = new QLineEdit(QString::fromStdString(text), this);
    field->setObjectName(name);
    if (auto* const label = qobject_cast<QLabel*>(before)) {
        label->setBuddy(field);
        field->setAccessibleName(label->text());
    } else {
        field->setAccessibleName(static_cast<QRadioButton*>(before)->text());
    }
    grid_->addWidget(before, row, 0);
    grid_->addWidget(field, row, 1);
    grid_->addWidget(new QLabel(behind, this), row, 2);
    return field;
}

Outcome RibBox::read(RibWishes& wishes) const {
    const RibTexts texts{bySpacing_->isChecked(), stations_->text().toStdString(),
                         spacing_->text().toStdString(), skin_->text().toStdString(),
                         slots_->text().toStdString()};
    return readRibTexts(texts, unit_, wishes);
}

}  // namespace velna
