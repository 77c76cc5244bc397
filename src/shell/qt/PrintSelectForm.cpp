#include "shell/qt/PrintSelectForm.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>
#include <memory>

#include "common/NumberText.h"
#include "shell/PrintCommand.h"
#include "shell/qt/QtPrinterSurface.h"
#include "shell/qt/RibBox.h"

namespace velna {
namespace {

struct BoxRow {
    const char* name;
    const char* caption;
    const char* title;  // of its preview, null for none
    bool PrintSelectRecord::*field;
    PlanJob job;
};

constexpr BoxRow boxes[] = {
    {"CheckSide", "Side view, true scale, on as many sheets as needed", "Side view",
     &PrintSelectRecord::Side, PlanJob::Side},
    {"CheckHtop", "Plan of the fuselage, true scale, on as many sheets as needed",
     "Plan of the fuselage", &PrintSelectRecord::htop, PlanJob::htop},
    {"CheckSections", "Sections of the fuselage, true scale, a sheet each",
     "Sections of the fuselage", &PrintSelectRecord::frontSections, PlanJob::frontSections},
    {"CheckVtop", "Whole aircraft from above, fitted to the sheet", "Aircraft from above",
     &PrintSelectRecord::vtop, PlanJob::vtop},
    {"CheckFront", "Whole aircraft from the front, fitted to the sheet", "Aircraft from the front",
     &PrintSelectRecord::front, PlanJob::front},
    {"CheckWing", "Wing panels and stabiliser as they lie on the board, true scale", "Wing panels",
     &PrintSelectRecord::wing, PlanJob::wing},
    {"CheckRibs", "Ribs, true scale; marks the sections of the fuselage too", "Ribs",
     &PrintSelectRecord::ribs, PlanJob::ribs},
};

constexpr const char* overlapName = "CheckOverlap";

}  // namespace

PrintSelectForm::PrintSelectForm(PrintCommand& command, QWidget* parent)
    : QDialog(parent), command_(command), record_(command.PrintSelect) {
    setObjectName("PrintSelect");
    setWindowTitle("Select Views for Print Out");
    setProperty("helpPage", "print");
    new QVBoxLayout(this);
    addBoxes();
    addButtons();
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

void PrintSelectForm::addBoxes() {
    const auto add = [this](const char* name, const char* caption, bool on) {
        auto* box = new QCheckBox(caption, this);
        box->setObjectName(name);
        box->setChecked(on);
        layout()->addWidget(box);
    };
    for (const BoxRow& row : boxes) add(row.name, row.caption, record_.*row.field);
    static_cast<QVBoxLayout*>(layout())->addSpacing(8);
    add(overlapName, "Sheets to tape together: 10 mm overlap, marks and a ruler", record_.overlap);
    ribs_ = new RibBox(record_.wishes, command_.main.project.units, this);
    layout()->addWidget(ribs_);
    addCorrection();
}

void PrintSelectForm::addCorrection() {
    auto* frame = new QGroupBox("Printer correction", this);
    frame->setToolTip("What 100 mm of the printed ruler should be, divided by what it measures");
    auto* row = new QHBoxLayout(frame);
    const auto add = [&](const char* name, const char* text, double factor) {
        auto* caption = new QLabel(text, frame);
        auto* field = new QLineEdit(QString::fromStdString(numberText(factor)), frame);
        field->setObjectName(name);
        field->setAccessibleName(caption->text());
        caption->setBuddy(field);
        row->addWidget(caption);
        row->addWidget(field);
        return field;
    };
    across_ = add("CorrectionXText", "Across", record_.correction.x);
    down_ = add("CorrectionYText", "Down", record_.correction.y);
    layout()->addWidget(frame);
}

void PrintSelectForm::addButtons() {
    auto* buttons = new QDialogButtonBox(this);
    const auto add = [&](const char* name, const char* caption, QDialogButtonBox::ButtonRole role,
                         void (PrintSelectForm::*act)()) {
        QPushButton* button = buttons->addButton(caption, role);
        button->setObjectName(name);
        connect(button, &QPushButton::clicked, this, [this, act] { (this->*act)(); });
    };
    add("PrintCommand", "Print", QDialogButtonBox::AcceptRole, &PrintSelectForm::print);
    add("PreviewCommand", "Preview", QDialogButtonBox::ActionRole, &PrintSelectForm::preview);
    add("CancelCommand", "Cancel", QDialogButtonBox::RejectRole, &PrintSelectForm::reject);
    layout()->addWidget(buttons);
}

bool PrintSelectForm::keepBoxes() {
    RibWishes wishes = record_.wishes;
    PrinterCorrection correction;
    Outcome outcome = ribs_->read(wishes);
    if (outcome.isDone()) {
        outcome =
            readCorrection(across_->text().toStdString(), down_->text().toStdString(), correction);
    }
    if (outcome.hasFailed()) {
        command_.ports.dialogs->message(applicationTitle, outcome.reason(), BoxIcon::Exclamation);
        return false;
    }
    record_.wishes = wishes;
    record_.correction = correction;
    for (const BoxRow& row : boxes)
        record_.*row.field = findChild<QCheckBox*>(row.name)->isChecked();
    record_.overlap = findChild<QCheckBox*>(overlapName)->isChecked();
    return true;
}

void PrintSelectForm::print() {
    if (!keepBoxes()) return;
    record_.cancel = false;
    accept();
}

void PrintSelectForm::reject() {
    record_.cancel = true;
    QDialog::reject();
}

void PrintSelectForm::preview() {
    // A look is no choice: Cancel afterwards leaves the record as it was.
    const PrintSelectRecord before = record_;
    if (!keepBoxes()) return;
    QPrinter printer(QPrinter::HighResolution);
    printer.setFullPage(true);
    for (const BoxRow& row : boxes) {
        if (!Plans::ticked(record_, row.job)) continue;
        QPrintPreviewDialog look(&printer, this);
        look.setWindowTitle(row.title);
        look.resize(parentWidget()->size() * 3 / 4);
        connect(&look, &QPrintPreviewDialog::paintRequested, this, [this, &row](QPrinter* paper) {
            QtPrinterSurface surface(*paper);
            const MainForm& main = command_.main;
            // What cannot be printed shows as a page without a plan.
            Progress* const watcher = command_.ports.progress;
            (void)Plans::previewJob(
                main.project, record_, row.job,
                {surface, main.drawAreaSize(), watcher, nullptr, command_.figures.showsMarks});
            if (watcher) watcher->finish();
        });
        look.exec();
    }
    record_ = before;
}

}  // namespace velna
