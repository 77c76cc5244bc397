#pragma once

#include <memory>
#include <string>

#include <dirent.h>

namespace velna {

/// Calls `visit(title)` with the name of each entry of `folder`, "." and ".." among them; with none
/// where it cannot be read. What `visit` throws comes through: the iterator of the library would
/// end the program where there is no memory for a name.
template <class Visit>
void forEachTitle(const std::string& folder, Visit visit) {
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(
        ::opendir(folder.empty() ? "." : folder.c_str()), ::closedir);
    if (!entries) return;
    while (const dirent* const entry = ::readdir(entries.get())) visit(entry->d_name);
}

}  // namespace velna
