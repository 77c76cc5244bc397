#pragma once

#include <QImage>
#include <QMetaObject>
#include <functional>
#include <memory>
#include <set>
#include <string>

#include "preview/Imaging.h"

class QWidget;

namespace velna {

class ConversionForm;

/// Pictures for textures: decoded, turned, resampled and encoded by the toolkit. Where memory has
/// no room for a step, the picture is gone and later steps fail; nothing throws.
class QtImaging : public Imaging {
public:
    explicit QtImaging(QWidget& owner);
    ~QtImaging() override;

    bool load(const std::string& file, std::string& reason) override;
    int width() const override { return image_.width(); }
    int height() const override { return image_.height(); }
    void rotateQuarter() override;
    void resize(int width, int height) override;
    PictureBytes pixels() override;
    bool encode(PictureFormat format, std::string& bytes, std::string& reason) override;
    void showProgress(int percent) override;
    void hideProgress() override;
    /// A text is shown once a command, however many objects fail in it.
    void showError(const std::string& text) override;

private:
    void whereMemoryHasRoom(const std::function<void()>& step);
    void copyPixels(PictureBytes& result);
    void waitsForTheUser();

    QWidget& owner_;
    QImage image_;
    std::unique_ptr<ConversionForm> form_;
    std::set<std::string> told_;  ///< texts of boxes shown in the command in hand
    int commandLoop_ = 0;         ///< how deep the loop lies that the first of them came from
    bool boxOpen_ = false;
    QMetaObject::Connection waiting_;
};

}  // namespace velna
