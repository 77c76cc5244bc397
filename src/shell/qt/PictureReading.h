#pragma once

#include <QImage>
#include <QSize>
#include <string>

namespace velna {

/// Reads the first page of a picture file, its kind found by its content. `largest`, where it is
/// not empty, is a size that need not be exceeded: decoders that can will deliver less. A null
/// image, with the reason, when the file cannot be read or would take more memory than a picture
/// may.
QImage readPicture(const std::string& file, QSize largest, std::string& reason);

/// The size at which a picture of `natural` pixels may be decoded: halved until memory has room.
QSize affordablePicture(QSize natural);

/// The size that the file's header tells, invalid when it cannot be read.
QSize readPictureSize(const std::string& file);

}  // namespace velna
