#pragma once

#include <span>

#include "editor/Window.h"

namespace velna {

/// Whose rows a cursor rule stands with. Each kind is a block of its own: its first row that fits
/// sets the cursor, and a later block overrules an earlier one.
enum class CursorBlock {
    OverWing,
    OverStabilizer,
    OverFuselage,
    OverBox,
    OverFin,
    OverNothing,
    CtrlSet,
    AltSet
};

/// What a row asks of the flags or of the view.
enum class Ask { Either, Yes, No };

/// One row of the cursor table.
struct CursorRule {
    CursorBlock block;
    Ask vtop;                    ///< the view is VTop
    Ask shift;                   ///< `shiftkey` is set
    std::span<const int> parts;  ///< the parts that it holds for; empty for all
    CursorShape shape;
    CursorIcon icon = CursorIcon::None;
};

/// The table, in its order.
std::span<const CursorRule> cursorRules();

}  // namespace velna
