#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "model/FrontOutline.h"
#include "model/Project.h"
#include "output/CutParts.h"
#include "output/PartPacking.h"
#include "output/SheetMarks.h"

namespace velna {

/// Parts to be cut, on sheets of paper at true scale: as many on a sheet as it holds, some turned
/// by a right angle, and what is larger than a sheet cut into tiles as the other plans are.
class PartSheets {
public:
    /// `sheet` in the project's unit. With `overlap` every sheet has the ruler, and tiles the marks
    /// for taping.
    PartSheets(std::vector<CutPart> parts, const Project& project, const SheetSize& sheet,
               bool overlap);

    /// Whether the paper is too small to overlap; there are no sheets then.
    bool tooSmall() const { return tooSmall_; }
    /// How many sheets there are.
    double count() const { return count_; }
    /// Prints sheet `number`, from 1.
    void print(PrinterSurface& printer, long long number) const;

private:
    /// A part and the place of its origin on the sheet, in millimetres, y down.
    struct Placed {
        std::size_t part;
        Point2D origin;
    };
    /// A part in tiles, and the number of its first sheet.
    struct Tiled {
        Placed placed;
        SheetGrid grid;
        double first;
    };

    void pack(const std::vector<std::size_t>& fitting, std::span<const PackedPart> sizes,
              const SheetSize& room);
    void tile(std::size_t part);
    void printPart(PrinterSurface& printer, const Placed& placed, const Point2D& moved) const;
    void printTile(PrinterSurface& printer, const Tiled& tiled, long long number) const;

    std::vector<CutPart> parts_;
    const Project& project_;
    SheetSize sheet_;
    bool overlap_;
    double unit_;  ///< millimetres
    bool tooSmall_ = false;
    double count_ = 0;
    std::vector<std::vector<Placed>> packed_;
    std::vector<Tiled> tiled_;
};

/// The sections of the current fuselage less the skin, each with its number and position.
class CutSectionPlans {
public:
    /// `at` is true to scale. `words`, where there are any, gets a line on each section that has
    /// nothing left to cut.
    CutSectionPlans(const Project& project, const Transform& at, const RibWishes& wishes,
                    std::vector<std::string>* words);

    /// The section in ordered place `i`, and its mirror image where the fuselage has a twin.
    void print(PrinterSurface& printer, int i);

private:
    void printHalf(PrinterSurface& printer, const CutPart& part, bool mirror) const;

    const Project& project_;
    const MeshSections& body_;
    Transform at_;
    double skin_;
    double unit_;  ///< millimetres
    std::vector<std::string>* words_;
    FrontOutline front_;
};

}  // namespace velna
