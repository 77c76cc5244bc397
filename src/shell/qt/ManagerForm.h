#pragma once

#include <QDialog>

class QLayout;
class QTreeWidget;

namespace velna {

/// The form `ObjectList`: which fuselages are shown, and which is edited. Closing it by its window
/// button is Close.
class ManagerForm : public QDialog {
public:
    explicit ManagerForm(QWidget* parent);

    /// Shows the rows of `ObjectList` as they are.
    void showRows();

protected:
    void reject() override;

private:
    QLayout* buildButtons();
    void fitColumns();
    void keepSelection();

    QTreeWidget* list_;
};

}  // namespace velna
