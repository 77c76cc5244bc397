#pragma once

#include <string>

namespace velna::Bitmap {

/// A picture size rounded down to a power of two (300 is 256, 512 stays); sizes below 1 are 1.
int roundedSize(int size);

/// Converts picture `tex` to a JPEG file in folder `dirout` (with its "/"), sizes rounded, turned a
/// quarter clockwise when `rot` is false. Returns the new file's name without folder: `titlename`
/// with its last three characters exchanged for "jpg", or with "-model.jpg" where that would be the
/// source itself; empty when `tex` is empty or cannot be read or written. The same picture asked
/// for again with the same arguments during one export is converted once; see `beginExport`.
std::string convertJPG(const std::string& tex, const std::string& titlename,
                       const std::string& dirout, bool rot);

/// Forgets what earlier exports have converted.
void beginExport();

/// Writes the side file of a project: picture `tex`, sizes rounded, as 24-bit BMP under the name
/// `titlename` in folder `dirout`. Does nothing for an empty `tex`, and leaves the source alone
/// where the target is the source itself. Returns the reason of a failure, empty for none.
std::string saveTarget(const std::string& tex, const std::string& titlename,
                       const std::string& dirout);

}  // namespace velna::Bitmap
