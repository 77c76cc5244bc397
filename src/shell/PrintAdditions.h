#pragma once

#include "output/Plans.h"
#include "shell/Settings.h"

namespace velna {

/// A tick of the print form that stands beside the choice of plans, and is remembered from run to
/// run under a name of the settings.
struct PrintAddition {
    const char* key;
    bool PrintSelectRecord::*field;
};

inline constexpr PrintAddition printAdditions[] = {
    {"print-overlap", &PrintSelectRecord::overlap},
};

/// Sets the additions of `record` as they were last printed with; those that never were stay.
void recallPrintAdditions(const Settings& settings, PrintSelectRecord& record);

/// Remembers the additions of `record`.
void keepPrintAdditions(Settings& settings, const PrintSelectRecord& record);

}  // namespace velna
