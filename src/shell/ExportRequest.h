#pragma once

#include <string>
#include <vector>

#include "editor/FormState.h"
#include "model/Fits.h"
#include "output/Plans.h"

namespace velna {

/// The kinds of file that the command line writes.
enum class ExportKind { Project, Model, Drawing, Plans, Picture, VectorPicture };

/// A sheet of paper, in millimetres.
struct SheetSize {
    double width = 210;
    double height = 297;
    bool named = true;  ///< upright, and can be turned; else it lies as it was typed
};

/// What `velna --export` is asked for.
struct ExportRequest {
    std::string out;                    ///< as it was typed: a file, or a folder for several
    std::vector<std::string> projects;  ///< as they were typed
    ExportKind kind = ExportKind::Project;
    int view = ViewMode::VTop;
    int fuselage = 1;         ///< the current one
    SurfaceSize size{};       ///< of the drawing surface
    PrintSelectRecord plans;  ///< the plans wanted, and whether they are to be taped
    SheetSize sheet;
    bool landscape = false;  ///< the sheet is turned
};

}  // namespace velna
