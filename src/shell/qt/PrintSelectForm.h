#pragma once

#include <QDialog>

class QCheckBox;
class QPushButton;

namespace velna {

struct PrintCommand;
struct PrintSelectRecord;

/// The form `PrintSelect`: which plans are printed, with a look at them before paper is used.
/// Closing it by its window button is Cancel.
class PrintSelectForm : public QDialog {
public:
    PrintSelectForm(PrintCommand& command, QWidget* parent);

protected:
    void reject() override;

private:
    void addBoxes();
    void addButtons();
    /// The boxes as they stand, into the record.
    void keepBoxes();
    void print();
    void preview();

    PrintCommand& command_;
    PrintSelectRecord& record_;
};

}  // namespace velna
