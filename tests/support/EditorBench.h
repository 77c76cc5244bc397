#pragma once

#include <string>

#include <gtest/gtest.h>

#include "support/EditorInHand.h"
#include "support/RecordingSurface.h"
#include "support/RecordingWindow.h"

namespace velna::test {

/// The editor as it stands after start-up, on recorders: the default aircraft in millimetres seen
/// from above on a surface of 900 x 500, the wing tab open, nothing to save. Making it begins with
/// a fresh form and project.
class EditorBench {
public:
    EditorBench();
    ~EditorBench();

    RecordingSurface area{900, 500};
    RecordingSurface sectionArea{150, 150};
    RecordingWindow window;

    /// Forgets what was recorded so far.
    void forget();
};

/// The user has typed `text` into a box, and another key goes down in it.
inline void type(Control box, const std::string& text) {
    Main.textEdited(box, text);
    Main.textKeyDown(box, text);
}

/// A test of the editor.
class EditorTest : public ::testing::Test {
protected:
    EditorBench bench;
    RecordingSurface& area = bench.area;
    RecordingSurface& sectionArea = bench.sectionArea;
    RecordingWindow& window = bench.window;
};

}  // namespace velna::test
