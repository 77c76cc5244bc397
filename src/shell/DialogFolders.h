#pragma once

#include <string>

#include "shell/Dialogs.h"
#include "shell/Settings.h"

namespace velna {

/// Where the file dialogs of each purpose were last served, in this run of the program or before.
struct DialogFolders {
    Settings& settings;

    /// The folder in which the next dialog for `purpose` opens; empty where there was none, or
    /// where it has gone since.
    std::string of(FilePurpose purpose) const;
    void remember(FilePurpose purpose, const std::string& folder);
};

}  // namespace velna
