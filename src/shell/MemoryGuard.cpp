#include "shell/MemoryGuard.h"

#include "common/MemoryEnds.h"

namespace velna {

void MemoryGuard::takeBack() const {
    main.giveUpGesture();
    rendering.endDrags();
    asFarAsMemoryGoes([this] {
        if (ports.progress) ports.progress->finish();
    });
    asFarAsMemoryGoes([this] { main.showGivenUp(); });
    asFarAsMemoryGoes([this] { rendering.renderScene(true); });
    asFarAsMemoryGoes([this] {
        reportFailure(*ports.dialogs, "That needs more memory than there is.",
                      "The aircraft is whole: as it was before, or as it was to be.");
    });
}

}  // namespace velna
