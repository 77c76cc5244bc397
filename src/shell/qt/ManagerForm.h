#pragma once

#include <QDialog>
#include <vector>

class QLayout;
class QPushButton;
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
    void changeEvent(QEvent* event) override;
    void reject() override;

private:
    QLayout* buildButtons();
    void drawIcons();
    void fitColumns();
    /// The numbers of the selected rows.
    std::vector<int> selectedRows() const;

    MainForm& main_;
    QTreeWidget* list_;
    QPushButton* show_ = nullptr;
    QPushButton* hide_ = nullptr;
};

}  // namespace velna
