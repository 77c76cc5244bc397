#include "shell/PrintCommand.h"

namespace velna {

void PrintCommand::run() {
    ports.dialogs->showPrintSelect();
    if (PrintSelect.cancel) return;
    Outcome outcome;
    if (PrinterSurface* printer = ports.dialogs->askPrinter(Plans::tickedNames(PrintSelect))) {
        outcome = Plans::printPlans(
            main.project, PrintSelect,
            {*printer, main.drawAreaSize(), ports.progress, nullptr, figures.showsMarks});
    }
    // A plan may leave another fuselage current.
    main.initVTopView();
    main.updateFuselageInterface();
    if (outcome.hasFailed())
        reportFailure(*ports.dialogs, "The plans could not be printed.", outcome.reason());
}

}  // namespace velna
