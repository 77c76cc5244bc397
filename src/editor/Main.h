#pragma once

#include <array>
#include <cstdint>
#include <string>

#include "common/Point.h"
#include "editor/AircraftViews.h"
#include "editor/Canvas.h"
#include "editor/Controls.h"
#include "editor/Surface.h"
#include "editor/Window.h"
#include "model/Fits.h"

namespace velna {

/// The four orthographic views, as `Main.mode` holds them.
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

/// The background picture of one view.
struct BackgroundPicture {
    bool shown = false;
    std::string file;    ///< full path; read again at each paint
    Point2D position;    ///< left and top, pixels
    Point2D size;        ///< width and height, pixels
    double scale = 100;  ///< percent of the natural size
    Point2D grab;        ///< `position` at the press that starts a move
};

/// The main form: the view and pointer state, the panel's controls, and the procedures that the
/// window's events call. It draws through its two surfaces and speaks to the window through a port.
class MainForm {
public:
    // the ports, set once before anything else
    Surface* DrawArea = nullptr;
    Surface* DrawSectionArea = nullptr;
    Window* window = nullptr;

    // the view
    std::int32_t mode = ViewMode::VTop;
    std::string buffer_filename;  ///< reserved
    double r = 1;                 ///< reserved
    double zoom = 0.2;            ///< pixels per model unit
    double xoff = 0;              ///< pixel column of model coordinate 0
    double yoff = 0;              ///< pixel row of model coordinate 0
    std::int16_t xloc = 0;        ///< pixel of the last press
    std::int16_t yloc = 0;
    double initval = 0;                ///< reserved
    bool selected = false;             ///< reserved
    bool focusZoom = false;            ///< the next fit goes to the active section
    bool centerUpdate = false;         ///< toggled by the key `Centering`; nothing else reads it
    bool firstPictureRefresh = false;  ///< the next redraw erases nothing
    bool keepsScale = false;           ///< a redraw does not fit the view
    bool nothingToErase = false;       ///< no old lines are on the surface: all have just gone

    // pointer and keys
    bool shiftkey = false;
    bool ctrlkey = false;
    bool altkey = false;
    bool ctrlkey_tab = false;
    bool mousedown = false;  ///< reserved
    CursorShape cursor = CursorShape::Default;
    CursorIcon cursorIcon = CursorIcon::None;
    DrawMode drawMode = DrawMode::Copy;

    bool savedProject = true;                   ///< the model has been saved since its last change
    AircraftViews views;                        ///< what is on the surface, and the gesture
    ControlStates controls;                     ///< what every control shows
    std::array<BackgroundPicture, 5> pictures;  ///< by `mode`, 1 to 4 used

    /// Back to the state before start-up; the ports stay.
    void reset();

    /// What the views draw on at this moment, and the pointer as the drawing surface sees it.
    Transform transform() const { return {zoom, xoff, yoff}; }
    Canvas canvas() const;
    Pointer pointer(float x, float y) const;

    // Views.cpp
    void initVTopView();
    void initFrontView();
    void initSideView();
    void initHTopView();
    void initDrawArea();
    /// Enters the current view again and, with `Render` pressed, renders: what every committed edit
    /// does.
    void refreshDrawingArea();
    /// The current view again at the scale it has, without rendering: what an export has shown has
    /// no outline of this view yet, where the pointer could find it.
    void redrawAtSameScale();
    SurfaceSize drawAreaSize() const;
    /// A number as the panel shows it: whole millimetres rounded down, or inches with two decimals.
    std::string Formatter(double x) const;

    // Pointer.cpp: x and y in pixels of `DrawArea`
    void DrawArea_MouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    void DrawArea_MouseMove(std::int16_t button, std::int16_t shift, float x, float y);
    void DrawArea_MouseUp(std::int16_t button, std::int16_t shift, float x, float y);
    /// A grab lost, a window in front, a release outside: the gesture ends in Hover, nothing stays
    /// armed.
    void cancelGesture();
    /// Some object is being dragged.
    bool anyBusy() const { return views.anyHit(); }
    /// The pointer rests on some object.
    bool anySelected() const { return views.anySelected(); }

    // KeyCommands.cpp: virtual key codes, letters by their capital
    void DrawArea_keydown(std::int16_t keyCode, std::int16_t shift);
    void DrawArea_keyup();
    void Form_keyup();

    // CursorRules.cpp
    void updateCursor();
    void setCursor(CursorShape shape, CursorIcon icon = CursorIcon::None);

    // Popup menu entries (KeyCommands.cpp and BackgroundPicture.cpp)
    void menuClicked(Control entry);

    // ParameterPanel.cpp: fillers touch nothing in the model
    void updateWingInterface();
    void updateStabilizerInterface();
    void updateFuselageInterface();
    void updateRudderInterface();
    void updateEquipmentInterface();
    /// Enables the text boxes. A fuselage without outline points has no shape that a number could
    /// change: until it gets some, their number is all that can be typed on the whole form.
    void enableTexts();
    /// All fillers and the section editor's scale, in the order of the toolbar commands.
    void refreshPanels();
    /// The user has changed the text of a box, be it to the same: nothing is stored in the model,
    /// but for `NbCrossFuselageText`, whose changes commit.
    void textEdited(Control box, const std::string& text);
    /// A key goes down in a text box that shows `text`: what the user has typed there is committed,
    /// once. What the program has filled in is not, for it shows whole millimetres; nor what was
    /// taken before, for the model may have changed since without a refill.
    void textKeyDown(Control box, const std::string& text);
    /// The text of `NbCrossFuselageText` has changed.
    void nbCrossChanged(const std::string& text);
    void scrollChanged(Control bar, int value);
    void checkClicked(Control check, bool on);
    void optionClicked(Control option);
    void comboClicked(Control combo, int index);
    /// A press on a push button of the panel, with the modifiers held.
    void buttonPressed(Control button, std::int16_t shift);
    void tabClicked(int tab);
    /// Fills the catalogue combo boxes in the project's unit.
    void fillCatalogues();

    // SectionEditor.cpp
    void sliderChanged(Control slider, int value);
    /// Fits the section editor, or one of `w` x `h` pixels, to the selected section.
    void zoomSectionSet();
    void zoomSectionSet(int w, int h);
    /// Draws the selected section of the current fuselage in the section editor.
    void drawSection();

    // BackgroundPicture.cpp
    bool pictureShownHere() const { return pictures[static_cast<std::size_t>(mode)].shown; }
    BackgroundPicture& pictureHere() { return pictures[static_cast<std::size_t>(mode)]; }
    void paintPicture();
    /// The menu entries that work on a shown picture.
    void enablePictureEntries(bool on);
    void setDrawMode(DrawMode drawMode);
    void loadBitmapAction();
    void moveBitmapAction();
    void sizeBitmapAction();
    void lockZoomAction();
    void clearBitmapAction();

    // FuselageManager.cpp: `ObjectList`'s commands, on the rows selected there
    void showCommand();
    void hideCommand();
    /// A click on the check mark of row `i`.
    void rowChecked(int i, bool on);
    void showAll();
    /// Close, also by a double click; `focusedRow` 0 for none.
    void closeManager(int focusedRow);

    // PreferencesClose.cpp
    /// What closing the preferences does to the project and the views: unit, catalogues, panel, top
    /// view, picture, and last the scale, which the views show at their next redraw only.
    void closePreferences();
    /// A key goes down in `ScaleText` that shows `text`: percent of the present size. Anything that
    /// is not a finite factor above 0 leaves the model alone.
    void scaleTextKeyDown(const std::string& text);

    // Controls.cpp: change a control's state and show it
    void setText(Control control, const std::string& text);
    void setEntry(Control box, TextEntry entry);
    void setVisible(Control control, bool visible);
    void setEnabled(Control control, bool enabled);
    void setChecked(Control control, bool checked);
    void setSlider(Control control, int value);
    /// Maximum and value together; the change event runs once if the value has changed.
    void setScroll(Control bar, int maximum, int value);
    /// The new maximum clips the value; that runs the change event.
    void setScrollMaximum(Control bar, int maximum);
    void selectTab(int tab);
    int tab() const { return controls[Control::Parameters].value; }
    /// Whether a redraw takes the old lines off. White over a background picture just painted would
    /// scratch it, so neither the entry of a view nor the first redraw over a picture erases.
    bool erases() const { return !firstPictureRefresh && !nothingToErase; }
    bool renderPressed() const { return controls[Control::RenderButton].checked; }
    bool checked(Control control) const { return controls[control].checked; }

private:
    /// Enters the current view again.
    void enterView();
    /// The current view fitted to the surface.
    Transform fitted(Transform before);

    float lastMouseX = 0;
    float lastMouseY = 0;
};

extern MainForm Main;

}  // namespace velna
