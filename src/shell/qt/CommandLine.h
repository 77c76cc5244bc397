#pragma once

namespace velna {

struct Arguments;

/// What a call does that needs no window. Returns the status to end with. Neither a display nor a
/// device is opened, and nothing of the toolkit is made that the wanted files can do without.
int runWithoutWindow(const Arguments& arguments);

}  // namespace velna
