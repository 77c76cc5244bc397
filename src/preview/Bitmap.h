#pragma once

#include <string>

#include "preview/Imaging.h"

namespace velna::Bitmap {

/// A picture size rounded down to a power of two (300 is 256, 512 stays); sizes below 1 are 1.
int roundedSize(int size);

/// A picture on its way into another file. One of the three texts is set.
struct Converted {
    std::string bytes;       ///< of the whole new file
    std::string unreadable;  ///< why the picture could not be read
    std::string unwritable;  ///< why there are no bytes of the new form
};

/// Picture `tex`, read by `imaging` (none reads nothing), with its sizes rounded, turned a quarter
/// clockwise where told, in the form of `format`. No exception leaves it: memory that cannot be had
/// is a failure like others.
Converted converted(Imaging* imaging, const std::string& tex, bool turn, PictureFormat format);

}  // namespace velna::Bitmap
