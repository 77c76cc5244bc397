#pragma once

#include <cstdint>
#include <string>

#include "common/Point.h"
#include "editor/Canvas.h"
#include "editor/Surface.h"
#include "editor/Window.h"

namespace velna {

/// The four orthographic views, as `view.mode` holds them.
namespace ViewMode {
inline constexpr int VTop = 1;
inline constexpr int Front = 2;
inline constexpr int Side = 3;
inline constexpr int HTop = 4;
}  // namespace ViewMode

/// Tabs of `Parameters`.
namespace PanelTab {
inline constexpr int fuselage = 0;
inline constexpr int wing = 1;
inline constexpr int stabilizer = 2;
inline constexpr int rudder = 3;
inline constexpr int electronics = 4;
}  // namespace PanelTab

/// Modifier bits of a pointer or key event; the rules compare them whole.
namespace ShiftState {
inline constexpr int shift = 1;
inline constexpr int ctrl = 2;
inline constexpr int alt = 4;
}  // namespace ShiftState

/// Buttons of a pointer event.
namespace MouseButton {
inline constexpr int left = 1;
inline constexpr int right = 2;
}  // namespace MouseButton

/// What the drawing surface shows, and how.
struct ViewState {
    std::int32_t mode = ViewMode::VTop;
    double zoom = 0.2;                 ///< pixels per model unit
    double xoff = 0;                   ///< pixel column of model coordinate 0
    double yoff = 0;                   ///< pixel row of model coordinate 0
    bool focusZoom = false;            ///< the next fit goes to the active section
    bool centerUpdate = false;         ///< toggled by the key `Centering`; nothing else reads it
    bool firstPictureRefresh = false;  ///< the next redraw erases nothing
    bool nothingToErase = false;       ///< no old lines are on the surface: all have just gone
    DrawMode drawMode = DrawMode::Copy;
    /// What wheel and pinch have made of the last fit: from its pixels to those shown now.
    Transform byHand;

    Transform transform() const { return {zoom, xoff, yoff}; }
    /// Whether a redraw takes the old lines off. White over a background picture just painted would
    /// scratch it, so neither the entry of a view nor the first redraw over a picture erases.
    bool erases() const { return !firstPictureRefresh && !nothingToErase; }
};

/// The pointer over the drawing surface, the keys that count there, and what the cursor shows.
struct PointerState {
    std::int16_t xloc = 0;  ///< pixel of the last press
    std::int16_t yloc = 0;
    float lastMouseX = 0;  ///< pixel of the last move
    float lastMouseY = 0;
    bool shiftkey = false;
    bool ctrlkey = false;
    bool altkey = false;
    bool ctrlkey_tab = false;  ///< the panel's plus button copies the fuselage
    CursorShape cursor = CursorShape::Default;
    CursorIcon cursorIcon = CursorIcon::None;

    /// The pointer at a pixel, as the parts see it.
    Pointer at(float x, float y) const { return {x, y, xloc, yloc, shiftkey, ctrlkey}; }
    bool anyKey() const { return shiftkey || ctrlkey || altkey; }
    void releaseKeys() { shiftkey = ctrlkey = altkey = false; }
};

/// The background picture of one view.
struct BackgroundPicture {
    bool shown = false;
    std::string file;    ///< full path; read again at each paint
    Point2D position;    ///< left and top, in pixels of the last fit
    Point2D size;        ///< width and height, likewise
    double scale = 100;  ///< percent of the natural size
    Point2D grab;        ///< `position` at the press that starts a move

    /// Makes it larger by `factor`; a point of it, in parts of its width and height, stays where it
    /// is.
    void growAbout(Point2D share, double factor) {
        position.x += share.x * size.x * (1 - factor);
        position.y += share.y * size.y * (1 - factor);
        size = {size.x * factor, size.y * factor};
        scale *= factor;
    }
};

/// Where a picture stands on the drawing surface, in pixels.
struct PicturePlace {
    Point2D position;  ///< left and top
    Point2D size;
};

}  // namespace velna
