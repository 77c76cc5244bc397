#pragma once

#include <QFileDialog>
#include <QStringList>

namespace velna {

/// A save dialog that completes the name before it asks about overwriting, so that the question is
/// about the file that will be written. The toolkit's own completion takes everything behind a dot
/// for an extension: "glider v1.2" would stay without one.
class SaveDialog : public QFileDialog {
public:
    /// `extensions` are those of all kinds on offer, without their dots.
    SaveDialog(QWidget* parent, QStringList extensions);

    /// The extension of the kind that is chosen now.
    void setExtension(const QString& extension);

protected:
    void accept() override;

private:
    bool hasExtension(const QString& name) const;

    QStringList extensions_;
    QString extension_;
    QString typed_;  // as it was last typed
};

}  // namespace velna
