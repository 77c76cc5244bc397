#include "shell/PrintCommand.h"

#include "shell/PrintAdditions.h"

namespace velna {

void PrintCommand::run() {
    recallPrintAdditions(settings, PrintSelect);
    ports.dialogs->showPrintSelect();
    if (PrintSelect.cancel) return;
    keepPrintAdditions(settings, PrintSelect);
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
