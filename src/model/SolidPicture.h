#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velna {

/// The pixels of a converted picture, three bytes each. Objects with the same picture hold the same
/// ones; null for none.
using Texels = std::shared_ptr<const std::vector<unsigned char>>;

/// The picture that a solid carries.
struct SolidPicture {
    std::string texture_filename;  ///< full path, empty for none
    bool texture_loaded = false;   ///< `texels` hold the converted picture
    std::int32_t xtex = 0;         ///< its width, a power of two
    std::int32_t ytex = 0;         ///< its height, a power of two
    Texels texels;

    /// Takes the owner's `file`; what was converted of another one is not its picture any more.
    void carry(const std::string& file) {
        if (file == texture_filename) return;
        texture_filename = file;
        texture_loaded = false;
    }
};

}  // namespace velna
