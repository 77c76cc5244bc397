#pragma once

#include <string>
#include <string_view>

#include "common/Outcome.h"
#include "output/PrinterCorrection.h"
#include "output/RibWishes.h"

namespace velna {

class Settings;

/// What was last wished about ribs; where nothing is remembered, or not readable, the wishes that
/// nobody has touched.
RibWishes recallRibWishes(const Settings& settings);
void keepRibWishes(Settings& settings, const RibWishes& wishes);

/// The correction of the printer that was last set.
PrinterCorrection recallCorrection(const Settings& settings);
void keepCorrection(Settings& settings, const PrinterCorrection& correction);

}  // namespace velna
