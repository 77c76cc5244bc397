#pragma once

#include <vector>

#include "common/Outcome.h"

namespace velna {

struct ExportRequest;
struct OptionRow;

/// Makes what was typed for an export one wish: the kind of file, and its plans, from the options
/// `given`. Failed, in the order in which they were typed, where they contradict each other or say
/// nothing about such a file.
Outcome fitTogether(ExportRequest& request, const std::vector<const OptionRow*>& given);

}  // namespace velna
