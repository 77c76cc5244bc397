// Any bytes as the hand of a user: up to sixty gestures, then everything that the program makes of
// an aircraft, then each step undone to the start and made again to the end, then saved and read.
#include <cstddef>
#include <cstdint>

#include "Editing.h"
#include "FuzzModel.h"
#include "output/FiguresJson.h"
#include "support/EditorInHand.h"
#include "support/FakeRenderContext.h"
#include "support/SameAircraft.h"
#include "support/WorkThrough.h"

namespace velna::fuzz {
namespace {

void expectHistory(const Project& start) {
    Main.cancelGesture();
    const Project end = project;
    int undone = 0;
    while (Main.undo()) ++undone;
    if (!test::sameAircraft(start, project)) broken("undone to the start, it is another aircraft");
    // Where the hand has taken steps back there are more to make again.
    while (undone-- > 0)
        if (!Main.redo()) broken("a step that was undone cannot be made again");
    if (!test::sameAircraft(end, project)) broken("made again, it is another aircraft");
}

/// Figures that are computed where something has changed are those that are computed anew.
void expectSameFigures(const Project& start) {
    const Flight flight{1500, 60};
    const Figures since = figuresSince(figuresOf(start, flight), start, project, flight);
    if (figuresJson(since) != figuresJson(figuresOf(project, flight)))
        broken("figures of what has changed differ from those of the whole");
}

void edit(FuzzedDataProvider& bytes, const Choice& choice) {
    resetEditor();
    test::GlTape::clear();
    test::GlTape::foldsVertices = true;
    test::FakeRenderContext context;
    Rendering rendering(project, solids);
    rendering.context = &context;
    rendering.createRenderContext();
    PlacesSurface area(900, 500);
    PlacesSurface section(150, 150);
    AnsweringWindow window(rendering);
    Main.DrawArea = &area;
    Main.DrawSectionArea = &section;
    Main.window = &window;
    Main.setChecked(Control::RenderButton, bytes.ConsumeBool());
    Main.fillCatalogues();
    Main.refreshPanels();
    Main.initVTopView();
    Main.beginHistory();
    const Project start = project;
    Editing hand(Main, area, window, bytes);
    for (int i = 0; i < mostGestures && bytes.remaining_bytes() > 0 && isSmall(project); ++i) {
        hand.act();
        expectStrip(Main);
    }
    if (!test::GlTape::faults().empty()) broken("the picture: " + test::GlTape::faults().front());
    if (!isSmall(project)) return;
    expectHistory(start);
    expectSameFigures(start);
    workThrough(project, choice);
    rendering.destroyRenderContext();
}

}  // namespace
}  // namespace velna::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace velna;
    FuzzedDataProvider bytes(data, size);
    fuzz::edit(bytes, fuzz::Choice::byHash({reinterpret_cast<const char*>(data), size}));
    if (fuzz::isSmall(project)) fuzz::expectRoundTrip();
    fuzz::expectNoLeak();
    return 0;
}
