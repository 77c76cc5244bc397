#include "shell/PrintAdditions.h"

#include "common/Complaint.h"

namespace velna {

void recallPrintAdditions(const Settings& settings, PrintSelectRecord& record) {
    for (const PrintAddition& addition : printAdditions)
        if (!settings.list(addition.key).empty())
            record.*addition.field = settings.flag(addition.key);
}

void keepPrintAdditions(Settings& settings, const PrintSelectRecord& record) {
    for (const PrintAddition& addition : printAdditions) {
        const bool on = record.*addition.field;
        if (settings.flag(addition.key) == on) continue;
        const Outcome stored = settings.storeFlag(addition.key, on);
        if (stored.hasFailed()) complain("the print form could not be remembered", stored.reason());
    }
}

}  // namespace velna
