#pragma once

#include <QDialog>

#include "output/RibWishes.h"

class QCheckBox;

namespace velna {

class Dialogs;
class RibBox;

/// The question of what a file for a cutter shall hold. OK is refused with a message while a field
/// holds what it cannot.
class RibForm : public QDialog {
public:
    RibForm(Dialogs& dialogs, RibWishes& wishes, int units, QWidget* parent);

protected:
    void accept() override;

private:
    Dialogs& dialogs_;
    RibWishes& wishes_;
    RibBox* box_;
    QCheckBox* each_;
};

}  // namespace velna
