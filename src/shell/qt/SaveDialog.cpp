#include "shell/qt/SaveDialog.h"

#include <QFileInfo>
#include <QLineEdit>
#include <algorithm>
#include <utility>

namespace velna {
namespace {

QLineEdit* nameEdit(const QFileDialog& dialog) {
    return dialog.findChild<QLineEdit*>("fileNameEdit");
}

}  // namespace

SaveDialog::SaveDialog(QWidget* parent, QStringList extensions)
    : QFileDialog(parent, "Save"), extensions_(std::move(extensions)) {
    setAcceptMode(QFileDialog::AcceptSave);
    // Other dialogs let nobody at the name.
    setOption(QFileDialog::DontUseNativeDialog);
    connect(nameEdit(*this), &QLineEdit::textEdited, this,
            [this](const QString& text) { typed_ = text; });
}

void SaveDialog::setExtension(const QString& extension) {
    extension_ = extension;
    // With the kind the toolkit exchanges what stands behind the last dot, which may be a part of
    // the name.
    if (!typed_.isEmpty() && !hasExtension(typed_)) nameEdit(*this)->setText(typed_);
}

bool SaveDialog::hasExtension(const QString& name) const {
    return std::any_of(extensions_.begin(), extensions_.end(), [&](const QString& one) {
        return name.endsWith('.' + one, Qt::CaseInsensitive);
    });
}

void SaveDialog::accept() {
    QLineEdit& edit = *nameEdit(*this);
    const QString name = edit.text();
    // A folder is entered.
    const bool folder = name.endsWith('/') || QFileInfo(selectedFiles().value(0)).isDir();
    if (!name.isEmpty() && !folder && !hasExtension(name)) edit.setText(name + '.' + extension_);
    QFileDialog::accept();
}

}  // namespace velna
