#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/Outcome.h"
#include "model/Fits.h"
#include "output/PrinterCorrection.h"
#include "output/RibWishes.h"

namespace velna {

class PrinterSurface;
class Progress;

/// What the dialog of the Print command was left with.
struct PrintSelectRecord {
    bool Side = false;           ///< true-scale side view, on as many sheets as needed
    bool htop = false;           ///< true-scale plan of the current fuselage, likewise
    bool frontSections = false;  ///< a sheet for each section of the current fuselage, true scale
    bool vtop = false;           ///< the aircraft from above, fitted to the sheet
    bool front = false;          ///< the aircraft from the front, fitted to the sheet
    bool overlap = false;        ///< sheets to be taped: overlap, marks, places and a ruler
    bool cancel = true;          ///< the dialog was left by Cancel or its window button
    bool wing = false;           ///< the wing's panels as they lie on the board, true scale
    bool ribs = false;           ///< their ribs; marks the fuselage's sections too
    RibWishes wishes{};          ///< what ribs, stations and sections are to be like
    PrinterCorrection correction{};  ///< for the printer that is asked for, and for nothing else
};

/// The print jobs, in the order in which they run.
enum class PlanJob { Side, frontSections, vtop, front, htop, wing, ribs };

namespace Plans {

inline constexpr std::array<PlanJob, 7> allJobs{
    PlanJob::Side, PlanJob::frontSections, PlanJob::vtop, PlanJob::front,
    PlanJob::htop, PlanJob::wing,          PlanJob::ribs};

/// A single job never has more sheets than a 16-bit counter counts.
inline constexpr long long mostSheets = 32767;

/// Whether `select` has the job ticked.
bool ticked(const PrintSelectRecord& select, PlanJob job);
/// The names of the ticked jobs, in their order: "side", "sections", "vtop", "front", "htop",
/// "wing", "ribs".
std::vector<std::string> tickedNames(const PrintSelectRecord& select);
/// The file that a job gets where `target` is the file of all: "plan.pdf" and "side" give
/// "plan-side.pdf".
std::string jobFile(const std::string& target, const std::string& job);

/// What plans are printed on.
struct Paper {
    PrinterSurface& printer;
    SurfaceSize area{};           ///< fitted plans look as on a drawing surface of this size
    Progress* watcher = nullptr;  ///< may cancel; null: the jobs run to their end
    /// Gets a line on each thing that could not be made as it was wished.
    std::vector<std::string>* words = nullptr;
    bool figureMarks = false;  ///< quarter point and balance range, where x is seen
};

/// The ticked jobs, each a job of its own, with the printer's unit set to the project's first. The
/// first that fails or is cancelled ends them; what was printed before stays printed. The front
/// plan leaves the last fuselage current.
Outcome printPlans(Project& project, const PrintSelectRecord& select, const Paper& paper);

/// One job for a look before paper is used, ticked or not; of `select` the overlap, the
/// ribs' box and the wishes count.
Outcome previewJob(const Project& project, const PrintSelectRecord& select, PlanJob job,
                   const Paper& paper);

}  // namespace Plans
}  // namespace velna
