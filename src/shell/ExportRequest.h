#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "editor/FormState.h"
#include "model/Fits.h"
#include "output/CutParts.h"
#include "output/Exports.h"
#include "output/Plans.h"
#include "output/SolidExport.h"

namespace velna {

/// The kinds of file that the command line writes.
enum class ExportKind {
    Project,
    Model,
    Drawing,
    Plans,
    Picture,
    VectorPicture,
    Stl,
    ThreeMf,
    Obj,
    Glb
};

/// A sheet of paper, in millimetres.
struct PaperSize {
    double width = 210;
    double height = 297;
    bool named = true;  ///< upright, and can be turned; else it lies as it was typed
};

/// A plan by its name on the command line.
struct PlanName {
    std::string_view name;
    bool PrintSelectRecord::*tick;  ///< on paper
    std::optional<CutPlan> cut;     ///< where it can be cut, too
};

/// What `velna --export` is asked for.
struct ExportRequest {
    std::string out;                    ///< as it was typed: a file, or a folder for several
    std::vector<std::string> projects;  ///< as they were typed
    ExportKind kind = ExportKind::Project;
    int view = ViewMode::VTop;
    int fuselage = 1;                 ///< the current one
    SurfaceSize size{};               ///< of the drawing surface
    std::vector<PlanName> planNames;  ///< as they were typed
    PrintSelectRecord plans;          ///< for paper: those plans; and how ribs are to be, anywhere
    std::optional<CutPlan> cut;       ///< for a drawing: that plan in place of a view
    PaperSize paper;
    bool landscape = false;  ///< the sheet is turned
    SolidOptions solids;     ///< for the files of solids
    VrmlSpelling spelling = VrmlSpelling::Usual;
};

}  // namespace velna
