#include "shell/qt/PrefsForm.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QEvent>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <functional>
#include <utility>

#include "shell/Preferences.h"
#include "shell/Startup.h"
#include "shell/qt/EventArguments.h"

namespace velna {
namespace {

// Shows the span that the factor would give, with each key that goes down.
class ScaleText : public QLineEdit {
public:
    ScaleText(MainForm& main, std::function<void()> committed)
        : main_(main), committed_(std::move(committed)) {}

protected:
    bool event(QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QLineEdit::event(event);
        main_.Prefs.scaleTextKeyDown(text().toStdString());
        committed_();
        return !EventArguments::typesWithAlt(static_cast<const QKeyEvent&>(*event)) &&
               QLineEdit::event(event);
    }

private:
    MainForm& main_;
    std::function<void()> committed_;
};

QRadioButton* unitOption(PrefsRecord& record, const char* name, const char* caption, int unit) {
    auto* option = new QRadioButton(caption);
    option->setObjectName(name);
    option->setChecked(unit == inches ? record.InchesOption : record.MillimetersOption);
    QObject::connect(option, &QRadioButton::clicked, option,
                     [&record, unit] { record.selectUnit(unit); });
    return option;
}

}  // namespace

PrefsForm::PrefsForm(Preferences& preferences, bool smallFonts, QWidget* parent)
    : QDialog(parent), preferences_(preferences) {
    setObjectName("Prefs");
    setWindowTitle("Preferences");
    setProperty("helpPage", "preferences");
    if (smallFonts) growWithSmallFonts();
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(unitFrame());
    layout->addWidget(scaleFrame());
    layout->addWidget(keysFrame());

    auto* buttons = new QDialogButtonBox;
    auto* close = buttons->addButton("&Close", QDialogButtonBox::AcceptRole);
    close->setObjectName("CloseCommand");
    auto* cancel = buttons->addButton("C&ancel", QDialogButtonBox::RejectRole);
    cancel->setObjectName("CancelCommand");
    connect(close, &QPushButton::clicked, this, [this] { closeCommand(); });
    connect(cancel, &QPushButton::clicked, this, [this] { reject(); });
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    showSpan();
    // On the unit that is set: a key must not set the other one before anything was looked at.
    for (auto* option : findChildren<QRadioButton*>())
        if (option->isChecked()) option->setFocus();
}

// With the letters the layout grows everything that holds them.
void PrefsForm::growWithSmallFonts() {
    QFont larger = font();
    larger.setPointSizeF(larger.pointSizeF() * Startup::smallFontsScale);
    setFont(larger);
}

QWidget* PrefsForm::unitFrame() {
    PrefsRecord& record = preferences_.main.Prefs;
    auto* frame = new QGroupBox("Units");
    auto* layout = new QVBoxLayout(frame);
    layout->addWidget(unitOption(record, "InchesOption", "&Inches", inches));
    layout->addWidget(unitOption(record, "MillimetersOption", "&Millimeters", millimetres));
    return frame;
}

QWidget* PrefsForm::scaleFrame() {
    auto* frame = new QGroupBox("Scale");
    auto* grid = new QGridLayout(frame);
    scaleText_ = new ScaleText(preferences_.main, [this] { showSpan(); });
    scaleText_->setObjectName("ScaleText");
    scaleText_->setText(QString::fromStdString(preferences_.main.Prefs.ScaleText));
    auto* caption = new QLabel("&Size of the whole model");
    caption->setBuddy(scaleText_);
    spanLabel_ = new QLabel;
    spanLabel_->setObjectName("SpanLabel");
    spanLabel_->setMinimumWidth(80);
    grid->addWidget(caption, 0, 0);
    grid->addWidget(scaleText_, 0, 1);
    grid->addWidget(new QLabel("%"), 0, 2);
    grid->addWidget(new QLabel("Full span of the wing"), 1, 0);
    grid->addWidget(spanLabel_, 1, 1);
    grid->addWidget(new QLabel(preferences_.main.project.units == inches ? "in" : "mm"), 1, 2);
    return frame;
}

QWidget* PrefsForm::keysFrame() {
    auto* frame = new QGroupBox("Keys");
    auto* layout = new QVBoxLayout(frame);
    ctrlZ_ = new QCheckBox("Ctrl+&Z undoes");
    ctrlZ_->setObjectName("CtrlZCheck");
    ctrlZ_->setToolTip("Ctrl+Z undoes, Ctrl+Y redoes and Ctrl+S saves again, over the drawing too");
    ctrlZ_->setChecked(preferences_.main.Prefs.ctrlZUndoes);
    layout->addWidget(ctrlZ_);
    return frame;
}

void PrefsForm::showSpan() {
    spanLabel_->setText(QString::fromStdString(preferences_.spanText()));
}

void PrefsForm::closeCommand() {
    // A factor typed last has had no key behind it.
    preferences_.main.Prefs.ScaleText = scaleText_->text().toStdString();
    preferences_.setCtrlZ(ctrlZ_->isChecked());
    hide();
    preferences_.CloseCommand_Click();
    accept();
}

void PrefsForm::reject() {
    preferences_.CancelCommand_Click();
    QDialog::reject();
}

}  // namespace velna
