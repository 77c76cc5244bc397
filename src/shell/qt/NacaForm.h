#pragma once

#include <QDialog>

#include "shell/Dialogs.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;
class QWidget;

namespace velna {

class OutlinePicture;

/// Asks for a NACA section and shows its outline as it is typed. A number that no section has is
/// told in the form, which then cannot be accepted.
class NacaForm : public QDialog {
public:
    NacaForm(const NacaAnswer& preset, QWidget* parent);

    NacaAnswer answer() const;

private:
    void addFields(const NacaAnswer& preset);
    QWidget* panelOptions(bool everyPanel);
    void addButtons();
    void showSection();

    QLineEdit* number_;
    QSpinBox* points_;
    QCheckBox* closed_;
    QRadioButton* everyPanel_ = nullptr;
    OutlinePicture* picture_;
    QLabel* word_;
    QPushButton* ok_ = nullptr;
};

}  // namespace velna
