#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace velna {

/// The pixels of a converted picture, three bytes each. Objects with the same picture hold the same
/// ones; null for none.
using Texels = std::shared_ptr<const std::vector<unsigned char>>;

/// The fields of an object that its picture is about.
struct ObjectPicture {
    const std::string& file;
    bool& loaded;
    std::int32_t& xtex;
    std::int32_t& ytex;
    Texels& texels;
};

}  // namespace velna
