#include "preview/Bitmap.h"

#include <bit>
#include <exception>

namespace velna {

namespace Bitmap {
namespace {

Converted convert(Imaging* imaging, const std::string& tex, bool turn, PictureFormat format) {
    Converted result;
    std::string reason = "no picture reader";
    if (!imaging || !imaging->load(tex, reason)) {
        result.unreadable = reason.empty() ? "not readable" : reason;
        return result;
    }
    if (turn) imaging->rotateQuarter();
    imaging->resize(roundedSize(imaging->width()), roundedSize(imaging->height()));
    if (!imaging->encode(format, result.bytes, reason) || result.bytes.empty())
        result.unwritable = reason.empty() ? "not written" : reason;
    return result;
}

}  // namespace

int roundedSize(int size) {
    return size < 1 ? 1 : static_cast<int>(std::bit_floor(static_cast<unsigned>(size)));
}

Converted converted(Imaging* imaging, const std::string& tex, bool turn, PictureFormat format) {
    try {
        return convert(imaging, tex, turn, format);
    } catch (const std::exception& failure) {
        return {{}, {}, failure.what()};
    }
}

}  // namespace Bitmap
}  // namespace velna
