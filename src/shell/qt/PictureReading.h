#pragma once

#include <QImage>
#include <QSize>
#include <string>

namespace velna {

/// The most pixels of a picture that is read.
inline constexpr qint64 mostPixels = 100'000'000;

/// Whether a picture of this size takes so long to read or to turn that the pointer has to tell it.
bool takesLong(QSize size);

/// Reads the first page of a picture file: a regular file with a BMP, ICO, JPEG, PNG, GIF or TIFF
/// picture of at most `mostPixels`, its kind found by its content. `largest`, where it is not
/// empty, is a size that need not be exceeded: decoders that can will deliver less. A null image,
/// with the reason, for everything else and where memory has no room; never throws. The pointer
/// tells of a large one that it is being read.
QImage readPicture(const std::string& file, QSize largest, std::string& reason);

/// The size of a picture that `readPicture` takes, invalid for everything else; never throws.
QSize readPictureSize(const std::string& file);

}  // namespace velna
