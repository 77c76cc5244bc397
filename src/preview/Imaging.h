#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace velna {

enum class PictureFormat { Bmp, Jpeg };

/// A picture in memory: three bytes a pixel, red, green, blue, the first row first, no padding.
struct PictureBytes {
    int width = 0;
    int height = 0;
    std::vector<unsigned char> bytes;
};

/// The imaging operations that pictures need: it holds one picture at a time.
class Imaging {
public:
    virtual ~Imaging() = default;

    /// Decodes the first page of a picture file (its kind is found by its content); false, with the
    /// reason in `reason`, when it cannot be read or is larger than memory should hold.
    virtual bool load(const std::string& file, std::string& reason) = 0;
    virtual int width() const = 0;
    virtual int height() const = 0;
    /// A quarter turn clockwise; width and height change places.
    virtual void rotateQuarter() = 0;
    /// Resamples smoothly to the given size.
    virtual void resize(int width, int height) = 0;
    /// The picture's pixels as they stand.
    virtual PictureBytes pixels() = 0;
    /// The bytes of a file that holds the picture; false with the reason otherwise.
    virtual bool encode(PictureFormat format, std::string& bytes, std::string& reason) = 0;

    /// The form `Bitmap` with the picture and its progress bar, shown during a conversion.
    virtual void showProgress(int percent) = 0;
    /// Puts the form away, and the picture with it.
    virtual void hideProgress() = 0;

    /// The box with the stop sign.
    virtual void showError(const std::string& text) = 0;
};

}  // namespace velna
