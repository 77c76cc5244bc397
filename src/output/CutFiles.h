#pragma once

#include <string>
#include <vector>

#include "common/Outcome.h"
#include "output/CutParts.h"

namespace velna {

/// The kinds of file for machines that cut.
enum class CutFormat { dxf, svg };

/// Saves a plan for cutting at true scale, in millimetres whatever the project's unit: everything
/// in `file`, or with `wishes.each` a file for each part, whose name gets the part's ("set.dxf":
/// "set-wing-1-rib-003.dxf"); all of them or none take their places. `words` gets a line on each
/// thing that could not be made as it was wished. Failed, with nothing written, where no part is
/// left.
Outcome saveCutPlan(const Project& project, CutPlan plan, CutFormat format, const RibWishes& wishes,
                    const std::string& file, std::vector<std::string>& words,
                    Progress* watcher = nullptr);

/// The files that `saveCutPlan` would write; none where it would fail.
std::vector<std::string> cutPlanFiles(const Project& project, CutPlan plan, const RibWishes& wishes,
                                      const std::string& file);

}  // namespace velna
