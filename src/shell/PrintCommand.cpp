#include "shell/PrintCommand.h"

#include "shell/CutCommand.h"
#include "shell/CuttingSettings.h"
#include "shell/PrintAdditions.h"

namespace velna {

void PrintCommand::run() {
    recallPrintAdditions(settings, PrintSelect);
    PrintSelect.wishes = recallRibWishes(settings);
    PrintSelect.correction = recallCorrection(settings);
    ports.dialogs->showPrintSelect();
    if (PrintSelect.cancel) return;
    keepPrintAdditions(settings, PrintSelect);
    keepRibWishes(settings, PrintSelect.wishes);
    keepCorrection(settings, PrintSelect.correction);
    std::vector<std::string> words;
    Outcome outcome;
    if (PrinterSurface* printer = ports.dialogs->askPrinter(Plans::tickedNames(PrintSelect))) {
        outcome = Plans::printPlans(
            main.project, PrintSelect,
            {*printer, main.drawAreaSize(), ports.progress, &words, figures.showsMarks});
    }
    // A plan may leave another fuselage current.
    main.initVTopView();
    main.updateFuselageInterface();
    if (outcome.hasFailed())
        reportFailure(*ports.dialogs, "The plans could not be printed.", outcome.reason());
    if (outcome.isDone() && !words.empty())
        ports.dialogs->message(applicationTitle, firstLines(words), BoxIcon::Information);
}

}  // namespace velna
