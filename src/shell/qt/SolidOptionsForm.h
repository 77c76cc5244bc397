#pragma once

#include <QDialog>

#include "output/SolidExport.h"

class QCheckBox;

namespace velna {

/// The form `SolidOptions`: whether each part of the aircraft gets a file of its own, and whether
/// wings are cut at the borders of their panels.
class SolidOptionsForm : public QDialog {
public:
    SolidOptionsForm(const SolidOptions& preset, QWidget* parent);

    /// The boxes as they stand.
    SolidOptions options() const;

private:
    QCheckBox* addBox(const char* name, const char* caption, bool on);

    QCheckBox* each_;
    QCheckBox* cut_;
};

}  // namespace velna
