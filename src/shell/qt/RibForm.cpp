#include "shell/qt/RibForm.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/Dialogs.h"
#include "shell/Ports.h"
#include "shell/qt/RibBox.h"

namespace velna {

RibForm::RibForm(Dialogs& dialogs, RibWishes& wishes, int units, QWidget* parent)
    : QDialog(parent), dialogs_(dialogs), wishes_(wishes) {
    setObjectName("RibForm");
    setWindowTitle("Parts to Cut");
    setProperty("helpPage", "ribs");
    auto* layout = new QVBoxLayout(this);
    box_ = new RibBox(wishes, units, this);
    layout->addWidget(box_);
    each_ = new QCheckBox("A &file for each part", this);
    each_->setObjectName("EachCheck");
    each_->setChecked(wishes.each);
    layout->addWidget(each_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OkCommand");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("CancelCommand");
    connect(buttons, &QDialogButtonBox::accepted, this, &RibForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &RibForm::reject);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
}

void RibForm::accept() {
    const Outcome read = box_->read(wishes_);
    if (read.hasFailed()) {
        dialogs_.message(applicationTitle, read.reason(), BoxIcon::Exclamation);
        return;
    }
    wishes_.each = each_->isChecked();
    QDialog::accept();
}

}  // namespace velna
