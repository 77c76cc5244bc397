#pragma once

#include <QImage>
#include <functional>
#include <string>

#include "preview/Imaging.h"

namespace velna {

/// Pictures for textures: decoded, turned, resampled and encoded by the toolkit, with nobody to
/// look on. Where memory has no room for a step, the picture is gone and later steps fail; nothing
/// throws.
class QtPictures : public Imaging {
public:
    bool load(const std::string& file, std::string& reason) override;
    int width() const override { return image_.width(); }
    int height() const override { return image_.height(); }
    void rotateQuarter() override;
    void resize(int width, int height) override;
    PictureBytes pixels() override;
    bool encode(PictureFormat format, std::string& bytes, std::string& reason) override;
    void showProgress(int /*percent*/) override {}
    void hideProgress() override { image_ = {}; }
    /// What cannot be read is told by the command that asked for it.
    void showError(const std::string& /*text*/) override {}

protected:
    const QImage& image() const { return image_; }

private:
    /// So much of the pixels is copied.
    virtual void copied(int /*percent*/) {}

    void whereMemoryHasRoom(const std::function<void()>& step);
    void copyPixels(PictureBytes& result);

    QImage image_;
};

}  // namespace velna
