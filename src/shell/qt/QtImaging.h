#pragma once

#include <QMetaObject>
#include <memory>
#include <set>
#include <string>

#include "shell/qt/QtPictures.h"

class QWidget;

namespace velna {

class ConversionForm;

/// Pictures for textures, with a form that shows a conversion, and boxes that tell what failed.
class QtImaging : public QtPictures {
public:
    explicit QtImaging(QWidget& owner);
    ~QtImaging() override;

    void showProgress(int percent) override;
    void hideProgress() override;
    /// A text is shown once a command, however many objects fail in it.
    void showError(const std::string& text) override;

private:
    void copied(int percent) override;
    void waitsForTheUser();

    QWidget& owner_;
    std::unique_ptr<ConversionForm> form_;
    std::set<std::string> told_;  ///< texts of boxes shown in the command in hand
    int commandLoop_ = 0;         ///< how deep the loop lies that the first of them came from
    bool boxOpen_ = false;
    QMetaObject::Connection waiting_;
};

}  // namespace velna
