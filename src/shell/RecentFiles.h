#pragma once

#include <string>
#include <vector>

#include "shell/Settings.h"

namespace velna {

/// The projects that were opened or saved last, for the arrow beside Open. They are remembered
/// from run to run; a file that is missing stays in the list, for it may lie on a drive that is not
/// plugged in.
struct RecentFiles {
    Settings& settings;

    static constexpr std::size_t most = 10;

    /// Full paths, the newest first.
    std::vector<std::string> list() const;
    /// Puts `file` at the front.
    void add(const std::string& file);
    void clear();

private:
    void store(const std::vector<std::string>& files);
};

}  // namespace velna
