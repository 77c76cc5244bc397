#pragma once

#include <cstdint>

#include "preview/RenderContext.h"

namespace velna::Rendering {

extern RenderContext* context;  ///< the port, set once at start

extern bool contextCreated;   ///< a context is current: GL may be called
extern bool renderListBuilt;  ///< display list 1 is valid
extern double renderSpin;     ///< tenths of a degree
extern double renderTilt;
extern double renderPanX;  ///< pointer units
extern double renderPanY;
extern double renderDistance;

// The drags that run; each button held has its own, with its own grab point.
extern bool rotating;
extern bool zooming;
extern bool panning;

/// Pointer buttons over the picture.
inline constexpr int leftButton = 1;
inline constexpr int rightButton = 2;

/// Back to the state before start-up; the port stays.
void reset();

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

// Scene.cpp
/// Shows the picture; with `rebuild` the solids and display list 1 are made anew.
void renderScene(bool rebuild);

// ViewTransform.cpp
void setViewTransform(double panX, double panY, double distance, double spin, double tilt);
/// The last view transform again, with the same arguments: after a change of the unit or the model.
void reapplyViewTransform();

// ViewMouse.cpp: the mouse over `Render`, in its own units; `shift` the modifier mask (Shift 1,
// Ctrl 2, Alt 4). During a flight these hand on to it, or do nothing.
void mouseDown(int button, int shift, double x, double y);
void mouseMove(double x, double y);
void mouseUp(int button, double x, double y);
/// Lets go of every drag, and stores nothing.
void endDrags();
/// A wheel step or a pinch: `change` is added to the distance; a step that would leave the limits
/// of a drag does nothing.
void zoomBy(double change);

}  // namespace velna::Rendering
