#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "preview/Imaging.h"

namespace velna::test {

/// An imaging control over pictures in memory and over 24-bit bitmap files, with plain resampling.
/// It keeps what was asked of it, and records boxes and forms on the GL tape, where a display list
/// shows whether they came at a wrong time.
class FakeImaging : public Imaging {
public:
    /// By file name, before the disk is looked at.
    std::map<std::string, PictureBytes> pictures;
    /// The reason why no picture can be encoded; empty lets them pass.
    std::string encodeFailure;
    /// Pixels that are fewer than the size says.
    bool cutPixels = false;
    /// The memory for the pixels is not to be had.
    bool pixelsFail = false;
    /// What happens while a message box is open.
    std::function<void()> whileBoxOpen = [] {};

    struct Saved {
        PictureFormat format;
        PictureBytes picture;
    };
    std::vector<Saved> saved;         ///< every picture encoded
    std::vector<std::string> loads;   ///< every file asked for
    std::vector<std::string> errors;  ///< every message box

    bool load(const std::string& file, std::string& reason) override;
    int width() const override { return current_.width; }
    int height() const override { return current_.height; }
    void rotateQuarter() override;
    void resize(int width, int height) override;
    PictureBytes pixels() override;
    bool encode(PictureFormat format, std::string& bytes, std::string& reason) override;
    void showProgress(int percent) override;
    void hideProgress() override;
    void showError(const std::string& text) override;

private:
    PictureBytes current_;
};

/// A picture of one colour.
PictureBytes plainPicture(int width, int height);

}  // namespace velna::test
