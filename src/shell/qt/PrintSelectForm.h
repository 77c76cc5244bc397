#pragma once

#include <QDialog>

class QLineEdit;

namespace velna {

struct PrintCommand;
struct PrintSelectRecord;
class RibBox;

/// The form `PrintSelect`: which plans are printed, with a look at them before paper is used.
/// Closing it by its window button is Cancel.
class PrintSelectForm : public QDialog {
public:
    PrintSelectForm(PrintCommand& command, QWidget* parent);

protected:
    void reject() override;

private:
    void addBoxes();
    void addCorrection();
    void addButtons();
    /// The boxes and fields as they stand, into the record. False, with a message and the record as
    /// it was, where a field holds what it cannot.
    bool keepBoxes();
    void print();
    void preview();

    PrintCommand& command_;
    PrintSelectRecord& record_;
    RibBox* ribs_ = nullptr;
    QLineEdit* across_ = nullptr;
    QLineEdit* down_ = nullptr;
};

}  // namespace velna
