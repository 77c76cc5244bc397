#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "common/Outcome.h"
#include "preview/PictureCopies.h"
#include "shell/ExportRequest.h"
#include "shell/ExportTools.h"

namespace velna {

/// One file, or one set of plans, from one project.
struct ExportJob {
    Project& project;
    const ExportRequest& request;
    const std::string& file;  ///< the target
    PictureStore& pictures;
    ExportTools& tools;
    std::vector<std::string>& words;  ///< gets a line on each thing not made as it was wished
};

/// One kind of file.
struct ExportKindRow {
    ExportKind kind;
    const char* ending;  ///< without the point
    const char* help;    ///< what it is, in a few words
    /// Writes the file; a failed one leaves what stood there.
    Outcome (*write)(const ExportJob& job);
};

/// All kinds, in the order of `ExportKind`.
std::span<const ExportKindRow> exportKinds();

const ExportKindRow& rowOf(ExportKind kind);

/// The kind that `ending`, without a point and ignoring case, stands for; null for none.
const ExportKindRow* kindOfEnding(std::string_view ending);

/// The drawing of the view `mode`.
Outcome exportViewDrawing(const Project& project, int mode, const std::string& file,
                          Progress* watcher);

}  // namespace velna
