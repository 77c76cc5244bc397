#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "model/Fits.h"

namespace velna {

class PrinterSurface;

/// What the dialog of the Print command was left with.
struct PrintSelectRecord {
    bool Side = false;           ///< true-scale side view, on as many sheets as needed
    bool htop = false;           ///< true-scale plan of the current fuselage, likewise
    bool frontSections = false;  ///< a sheet for each section of the current fuselage, true scale
    bool vtop = false;           ///< the aircraft from above, fitted to the sheet
    bool front = false;          ///< the aircraft from the front, fitted to the sheet
    bool overlap = false;        ///< sheets to be taped: overlap, marks, places and a ruler
    bool cancel = true;          ///< the dialog was left by Cancel or its window button
};

extern PrintSelectRecord PrintSelect;

/// The print jobs, in the order in which they run.
enum class PlanJob { Side, frontSections, vtop, front, htop };

namespace Plans {

inline constexpr std::array<PlanJob, 5> allJobs{PlanJob::Side, PlanJob::frontSections,
                                                PlanJob::vtop, PlanJob::front, PlanJob::htop};

/// A single job never has more sheets than a 16-bit counter counts.
inline constexpr long long mostSheets = 32767;

/// The name that a job begins with: "side", "sections", "vtop", "front", "htop".
std::string_view jobName(PlanJob job);
/// Whether `PrintSelect` has the job ticked.
bool ticked(PlanJob job);
/// The names of the ticked jobs, in their order.
std::vector<std::string> tickedNames();

/// The ticked jobs, each a job of its own on `printer`, with its unit set to the project's first.
/// The first that fails or is cancelled ends them; what was printed before stays printed. The last
/// fuselage may be current afterwards. Fitted plans look as on a drawing surface of `area`. Returns
/// the reason of a failure or `cancelledReason`, empty for none.
std::string printPlans(PrinterSurface& printer, SurfaceSize area = {});

/// One job on `printer`, whose unit is set. Returns as `printPlans`.
std::string printJob(PlanJob job, PrinterSurface& printer, SurfaceSize area = {});

/// The same for a look before paper is used: unit set, and the current fuselage stays current.
std::string previewJob(PlanJob job, PrinterSurface& printer, SurfaceSize area = {});

}  // namespace Plans
}  // namespace velna
