#pragma once

#include <string>

#include "support/FakeRenderContext.h"

namespace velna::test {

class EditorBench;

/// The picture that the toolbar's own commands draw on, recorded on the GL tape. A scenario that
/// clicks the toolbar needs one.
class ToolbarBench {
public:
    ToolbarBench();
    ~ToolbarBench();

    ToolbarBench(const ToolbarBench&) = delete;
    ToolbarBench& operator=(const ToolbarBench&) = delete;

    FakeRenderContext context;
};

/// Clicks a key of the toolbar that shows a view or the picture; nothing while it is disabled.
/// Throws std::runtime_error for another key. The toolbar speaks to the picture itself; what it
/// has drawn counts with what the editor asked for.
void clickToolbar(EditorBench& bench, const std::string& key);

}  // namespace velna::test
