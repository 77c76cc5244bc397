#include "shell/qt/SolidOptionsForm.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

namespace velna {

SolidOptionsForm::SolidOptionsForm(const SolidOptions& preset, QWidget* parent) : QDialog(parent) {
    setObjectName("SolidOptions");
    setWindowTitle("Solids");
    setProperty("helpPage", "solids");
    new QVBoxLayout(this);
    each_ = addBox("CheckEach", "A file for each part", preset.each);
    cut_ = addBox("CheckCut", "Wings cut at the borders of their panels", preset.cut);
    auto* buttons = new QDialogButtonBox(this);
    QPushButton* save = buttons->addButton("Save", QDialogButtonBox::AcceptRole);
    save->setObjectName("SaveCommand");
    save->setDefault(true);
    buttons->addButton("Cancel", QDialogButtonBox::RejectRole)->setObjectName("CancelCommand");
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout()->addWidget(buttons);
    layout()->setSizeConstraint(QLayout::SetFixedSize);
}

SolidOptions SolidOptionsForm::options() const {
    return {each_->isChecked(), cut_->isChecked()};
}

QCheckBox* SolidOptionsForm::addBox(const char* name, const char* caption, bool on) {
    auto* box = new QCheckBox(caption, this);
    box->setObjectName(name);
    box->setChecked(on);
    layout()->addWidget(box);
    return box;
}

}  // namespace velna
