#pragma once

#include <QDialog>
#include <vector>

class QLayout;
class QTreeWidget;

namespace velna {

class MainForm;

/// The form `ObjectList`: which fuselages are shown, and which is edited. Closing it by its window
/// button is Close.
class ManagerForm : public QDialog {
public:
    ManagerForm(MainForm& main, QWidget* parent);

    /// Shows the rows of `ObjectList` as they are.
    void showRows();

protected:
    void reject() override;

private:
    QLayout* buildButtons();
    void fitColumns();
    /// The numbers of the selected rows.
    std::vector<int> selectedRows() const;

    MainForm& main_;
    QTreeWidget* list_;
};

}  // namespace velna
