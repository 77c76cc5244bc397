#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace velna {

/// One entry of what was dropped on the window.
struct DroppedItem {
    std::string name;      ///< full path of a file of this computer, or the address as it came
    bool isLocal = false;  ///< it is a file (or a folder) of this computer
};

/// The entries of a `text/uri-list`: an address a line, comments left out. A file's name is bytes:
/// what the address has coded is taken as it is, whether or not it is text.
std::vector<DroppedItem> droppedItems(std::string_view uriList);

}  // namespace velna
