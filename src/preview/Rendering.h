#pragma once

#include <array>
#include <optional>

#include "model/Project.h"
#include "model/Solids.h"
#include "preview/Imaging.h"
#include "preview/RenderContext.h"
#include "preview/Scene.h"

namespace velna {

/// The arguments of a view transform: pan and distance in pointer units, angles in tenths of a
/// degree.
struct View {
    double panX = 0;
    double panY = 0;
    double distance = 0;
    double spin = 0;
    double tilt = 0;
};

/// The picture in three dimensions of one project, whose solids it builds. Both must outlive it.
class Rendering {
public:
    RenderContext* context = nullptr;  ///< the port; without one the picture stays dark
    Imaging* imaging = nullptr;        ///< the port; without one no picture is converted

    bool contextCreated = false;   ///< a context is current: GL may be called
    bool renderListBuilt = false;  ///< display list 1 is valid
    double renderSpin = 900;       ///< tenths of a degree
    double renderTilt = 450;
    double renderPanX = 0;  ///< pointer units
    double renderPanY = 0;
    double renderDistance = 0;

    // The drags that run; each button held has its own, with its own grab point.
    bool rotating = false;
    bool zooming = false;
    bool panning = false;

    /// What the picture shows now. It is apart from the stored values, which a drag writes only at
    /// its release.
    View shownView;

    /// The matrix in use is a sum that stands nowhere else: a new context goes on from it.
    bool matrixIsSum = false;

    /// What the program begins with, whatever the unit.
    static constexpr View startView{0, 0, 0, 900, 200};

    /// Pointer buttons over the picture.
    static constexpr int leftButton = 1;
    static constexpr int rightButton = 2;

    Rendering(const Project& shown, Solids& itsSolids) : project_(shown), solids_(itsSolids) {}
    Rendering(const Rendering&) = delete;
    Rendering& operator=(const Rendering&) = delete;

    // Rendering.cpp
    /// Full set-up of the context with a frustum of half-width 100.
    void createRenderContext();
    void createRenderContextWide(double halfWidth);
    void destroyRenderContext();
    /// The toolkit has lost or replaced the context: a new one with the frustum and the view of the
    /// old, and the list made anew.
    void recreateRenderContext();
    /// A new size of `Render`: viewport and frustum follow, the list is replayed.
    void resized();
    /// Shows the picture; with `rebuild` the solids and lists of what has changed are made anew.
    void renderScene(bool rebuild);
    /// Between true and false, which may be nested, `renderScene` only takes note of what it is
    /// asked for; the last false does that once.
    void hold(bool on);
    /// Lets go of every drag, and stores nothing.
    void endDrags();

    // ViewTransform.cpp
    void setViewTransform(double panX, double panY, double distance, double spin, double tilt);
    /// The last view transform again, with the same arguments: after a change of the unit or the
    /// model.
    void reapplyViewTransform();

private:
    void setProjection() const;
    bool makeContext();
    void keepMatrix();
    void prepareScene();

    static constexpr double usualHalfWidth = 100;

    const Project& project_;
    Solids& solids_;
    Scene scene_;
    /// Solids and pictures are being made. A message box about a picture lets window events
    /// through, and one of them may ask for the picture again.
    bool preparing_ = false;
    int holds_ = 0;
    std::optional<bool> heldRender_;            ///< what `renderScene` was asked for meanwhile
    double frustumHalfWidth_ = usualHalfWidth;  ///< of the frustum in use
    /// Where a sum of frames was when its context went.
    std::optional<std::array<double, 16>> keptMatrix_;
};

}  // namespace velna
