#pragma once

#include <string>
#include <vector>

#include "common/Outcome.h"
#include "output/CutPart.h"
#include "output/RibWishes.h"

namespace velna {

class MeshSections;
class Progress;
struct Project;

/// What is cut by a plan.
enum class CutPlan { wing, ribs, sections };

/// The parts of a plan, and a word on each thing that could not be made as it was wished.
struct CutParts {
    std::vector<CutPart> parts;
    std::vector<std::string> words;
};

/// A rib as it is cut: number and panel, the whole section, and the borders that skin and slots
/// have left of it. Without both these are its outline, point for point.
struct CutRib {
    std::string panel;
    int number = 0;  ///< from 1 at the root of its panel
    Rib rib;
    std::vector<Loop> borders;
};

/// The ribs of the wing's panels and of the stabiliser. Refused ribs and slots, and ribs that have
/// come to several pieces, leave a word each. Failed where the stations are no wish, or where the
/// ribs would have more points than anybody could draw; cancelled where `watcher` says so.
Outcome collectRibs(const Project& project, const RibWishes& wishes, Progress* watcher,
                    std::vector<CutRib>& ribs, std::vector<std::string>& words);

/// What the skin leaves of the outline of a fuselage's section, both in millimetres. Gives a word
/// where that is nothing; empty where it is something.
std::string sectionBorders(const Loop& outline, double skin, std::vector<Loop>& borders);

/// The parts of a plan at true scale, each at its own origin: the planforms of the panels of one
/// half, their ribs, or the sections of the current fuselage.
Outcome cutParts(const Project& project, CutPlan plan, const RibWishes& wishes,
                 const Lettering& lettering, Progress* watcher, CutParts& parts);

/// A length as it stands on a plan, "233.33 mm" or "9.186 in"; one beyond all numbers as the
/// largest.
std::string lengthWithUnit(double mm, int textUnits);

}  // namespace velna
