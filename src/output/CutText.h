#pragma once

#include <string>
#include <string_view>

namespace velna {

/// `text` as it may stand in a DXF text: one line, letters beyond ASCII as \U+XXXX.
std::string dxfText(std::string_view text);
/// `text` as it may stand in an XML text: marks escaped, without control characters.
std::string xmlText(std::string_view text);

}  // namespace velna
