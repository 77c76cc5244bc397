#pragma once

#include <QDialog>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace velna {

struct Preferences;

/// The form `Prefs`: the unit and a one-off scale. Closing it by its window button is Cancel.
class PrefsForm : public QDialog {
public:
    PrefsForm(Preferences& preferences, bool smallFonts, QWidget* parent);

protected:
    void reject() override;

private:
    void growWithSmallFonts();
    QWidget* unitFrame();
    QWidget* scaleFrame();
    QWidget* keysFrame();
    void showSpan();
    void closeCommand();

    Preferences& preferences_;
    QLineEdit* scaleText_ = nullptr;
    QLabel* spanLabel_ = nullptr;
    QCheckBox* ctrlZ_ = nullptr;
};

}  // namespace velna
