#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>

#include "editor/AircraftViews.h"
#include "editor/Controls.h"
#include "editor/FormState.h"
#include "editor/History.h"
#include "editor/PanelTable.h"
#include "editor/PrefsRecord.h"
#include "editor/Strip.h"
#include "editor/Tracing.h"
#include "model/Fits.h"

namespace velna {

/// The four views, a row each.
struct ViewRow;
extern const ViewRow vtopView, frontView, sideView, htopView;

/// The main form: the view and pointer state, the panel's controls, and the procedures that the
/// window's events call. It draws through its two surfaces and speaks to the window through a port.
class MainForm {
public:
    /// The form as it stands before start-up. `aircraft` must outlive it.
    explicit MainForm(Project& aircraft);
    MainForm(const MainForm&) = delete;

    Project& project;  ///< the aircraft in hand

    // the ports, set once before anything else
    Surface* DrawArea = nullptr;
    Surface* DrawSectionArea = nullptr;
    Window* window = nullptr;

    ViewState view;
    PointerState pointer;
    std::array<BackgroundPicture, 5> pictures;  ///< by `view.mode`, 1 to 4 used
    AircraftViews views;                        ///< what is on the surface, and the gesture
    ControlStates controls;                     ///< what every control shows
    Tracing tracing;                            ///< of the background picture, by two points
    StripState strip;                           ///< what the strip beside the logo measures from
    PrefsRecord Prefs;                          ///< what the form of the preferences holds
    bool savedProject = true;                   ///< the model has been saved since its last change
    History history;                            ///< what the user can go back to
    /// The project's file: full path of the last save or open; empty where it has none yet, and
    /// where a file could not be read to its end, which must not be written over unasked.
    std::string projectName;

    // reserved
    std::string buffer_filename;
    double initval = 0;
    bool selected = false;
    bool mousedown = false;

    /// What the views draw on at this moment.
    Canvas canvas() const;

    // Views.cpp
    void initVTopView() { enterView(vtopView); }
    void initFrontView() { enterView(frontView); }
    void initSideView() { enterView(sideView); }
    void initHTopView() { enterView(htopView); }
    /// Clears the surface, paints the view's picture and, unless its scale is to stay, fits it.
    void initDrawArea(bool keepsScale = false);
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

    // UndoRedo.cpp
    /// The history begins anew with the aircraft in hand.
    void beginHistory();
    /// The user has begun to hold something, and has let it go: what changes between is one step.
    void beginGesture();
    void endGesture();
    /// The same with a slider.
    void holdSlider(Control slider);
    /// What is held names the step.
    void nameGesture();
    /// A number for the steps that are made on `control` without leaving it.
    unsigned visitOf(Control control);
    /// The control is left, or another drag of it begins.
    void endVisit() { visit_ = 0; }
    /// One step of the history back, or forth; false where there is none, or while something is
    /// held. Panel, views and section editor show it, at the scale that they have; the picture is
    /// the caller's.
    bool undo();
    bool redo();
    /// What is under way has failed in its middle: gives it up, and the aircraft is again what the
    /// history holds. It needs no memory, and shows nothing yet.
    void giveUpGesture();
    /// Panel, views and section editor show what `giveUpGesture` has left.
    void showGivenUp();
    /// Buttons and menu entries tell what undo and redo would do.
    void showHistory();

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
    /// The catalogue combo boxes begin anew, in the project's unit.
    void fillCatalogues();
    /// What the panel's numbers are stored in.
    PanelStore store() { return {project, controls}; }

    // SectionEditor.cpp
    void sliderChanged(Control slider, int value);
    /// Fits the section editor, or one of `w` x `h` pixels, to the selected section.
    void zoomSectionSet();
    void zoomSectionSet(int w, int h);
    /// Draws the selected section of the current fuselage in the section editor.
    void drawSection();

    // BackgroundPicture.cpp
    bool pictureShownHere() const { return pictures[static_cast<std::size_t>(view.mode)].shown; }
    BackgroundPicture& pictureHere() { return pictures[static_cast<std::size_t>(view.mode)]; }
    /// Where the view's picture is seen: it goes with the drawing when that is made larger by hand.
    PicturePlace shownPicture() const;
    void paintPicture();
    /// The menu entries that work on a shown picture.
    void enablePictureEntries(bool on);
    void setDrawMode(DrawMode drawMode);
    void loadBitmapAction();
    void moveBitmapAction();
    void sizeBitmapAction();
    void lockZoomAction();
    void clearBitmapAction();

    // FuselageManager.cpp: `ObjectList`'s commands, on the rows selected there, counted from 1
    void showCommand(std::span<const int> rows);
    void hideCommand(std::span<const int> rows);
    /// A click on the check mark of row `i`.
    void rowChecked(int i, bool on);
    void showAll();
    /// Close, also by a double click; `focusedRow` 0 for none.
    void closeManager(int focusedRow);

    // ApplyPreferences.cpp
    /// What closing the preferences does to the project and the views: unit, catalogues, panel, top
    /// view, picture, and last the scale, which the views show at their next redraw only.
    void applyPreferences();

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
    bool equipmentTab() const { return tab() == PanelTab::electronics; }
    bool renderPressed() const { return controls[Control::RenderButton].checked; }
    bool checked(Control control) const { return controls[control].checked; }

private:
    /// The frame of a view's entry: the mode and the pressed key, modifiers gone, the surface
    /// cleared and fitted at the start, shown at the end. In between nothing old is on the surface
    /// to take off.
    void enterView(const ViewRow& row, bool keepsScale = false);
    bool stepHistory(bool (History::*step)(Project& aircraft, std::string& file));
    void showRestored(bool otherUnit);

    bool gestureOpen_ = false;
    int sectionsAtPress_ = 0;
    unsigned visit_ = 0;
    Control visited_ = Control::count;
};

}  // namespace velna
