#include "shell/PrintCommand.h"

#include <string>

#include "editor/Main.h"
#include "output/Plans.h"
#include "output/Progress.h"
#include "shell/Failure.h"
#include "shell/Ports.h"

namespace velna::PrintCommand {

void run() {
    Shell.dialogs->showPrintSelect();
    if (PrintSelect.cancel) return;
    PrinterSurface* printer = Shell.dialogs->askPrinter(Plans::tickedNames());
    std::string reason;
    if (printer) reason = Plans::printPlans(*printer, Main.drawAreaSize());
    // A plan may leave another fuselage current.
    Main.initVTopView();
    Main.updateFuselageInterface();
    if (!reason.empty() && reason != cancelledReason)
        reportFailure("The plans could not be printed.", reason);
}

}  // namespace velna::PrintCommand
