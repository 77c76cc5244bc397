#pragma once

#include <QImage>
#include <memory>

#include "preview/Imaging.h"

class QWidget;

namespace velna {

class ConversionForm;

/// Pictures for textures: decoded, turned, resampled and encoded by the toolkit.
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
    bool save(const std::string& file, PictureFormat format, std::string& reason) override;
    void showProgress(int percent) override;
    void hideProgress() override;
    void showError(const std::string& text) override;

private:
    QWidget& owner_;
    QImage image_;
    std::unique_ptr<ConversionForm> form_;
};

}  // namespace velna
