#include "shell/AirfoilCommands.h"

#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "editor/HistoryStep.h"
#include "editor/ModelChange.h"
#include "model/NacaSection.h"
#include "persistence/OutlineFiles.h"

namespace velna {

namespace {

/// One step that changes the wings, or a message that ends in `reason`.
template <class Change>
bool changeWings(AirfoilCommands& on, const std::string& step, const std::string& failure,
                 Change change) {
    MainForm& main = on.main;
    try {
        const HistoryStep named(main, step);
        changeModel(
            main, [&main] { return main.project.Wings; }, change);
        return true;
    } catch (const ReadFailure& refused) {
        reportFailure(*on.ports.dialogs, failure + " The aircraft stays as it is.", refused.what());
        return false;
    }
}

}  // namespace

void AirfoilCommands::openOutline(const std::string& file) {
    changeWings(*this, "Airfoil", titleOf(file) + " could not be opened.", [&] {
        try {
            AirfoilOutline::putOnWing(main.project, readOutline(file), false);
        } catch (const ReadFailure& failure) {
            throw ReadFailure(file + ": no airfoil (" + failure.what() + ")");
        }
    });
}

void AirfoilCommands::nacaSection() {
    const auto answer = ports.dialogs->askNaca(naca);
    if (!answer) return;
    naca = *answer;
    const std::string failure = "The section could not be put on the wing.";
    const bool changed = changeWings(*this, "NACA section", failure, [&] {
        const auto digits = NacaSection::number(naca.number);
        const auto outline = NacaSection::outline(digits, naca.points, naca.closed);
        AirfoilOutline::putOnWing(main.project, outline, naca.everyPanel);
    });
    if (changed) show();
}

void AirfoilCommands::onEveryPanel() {
    if (changeWings(*this, "Airfoil on all panels", "The airfoil could not be put on all panels.",
                    [&] { AirfoilOutline::copyToEveryPanel(main.project); }))
        show();
}

/// The view in hand stays.
void AirfoilCommands::show() {
    main.updateWingInterface();
    main.redrawAtSameScale();
    rendering.renderScene(true);
}

}  // namespace velna
