#include "shell/ExportFitting.h"

#include <algorithm>
#include <string>

#include "common/ReplacedFile.h"
#include "shell/CommandOptions.h"
#include "shell/ExportKinds.h"

namespace velna {

namespace {

bool has(const std::vector<const OptionRow*>& given, const char* name) {
    return std::ranges::find(given, optionNamed(name)) != given.end();
}

std::string inQuotes(const std::string& word) {
    return '"' + word + '"';
}

std::string ending(const ExportRequest& request) {
    return std::string(".") + rowOf(request.kind).ending;
}

/// Takes the kind from OUT's ending, where it is not told. Both must not contradict each other.
Outcome takeKind(ExportRequest& request, bool told) {
    const std::string title = titleOf(request.out);
    const auto point = title.rfind('.');
    const ExportKindRow* const kind =
        point == std::string::npos ? nullptr : kindOfEnding(title.substr(point + 1));
    if (!kind && !told)
        return Outcome::failed(inQuotes(request.out) + " does not tell its kind; --as KIND does");
    if (kind && told && kind->kind != request.kind) {
        return Outcome::failed("--as " + ending(request).substr(1) + " contradicts the ending of " +
                               inQuotes(request.out));
    }
    if (kind) request.kind = kind->kind;
    return {};
}

Outcome takePlans(ExportRequest& request) {
    for (const PlanName& plan : request.planNames) {
        const bool onPaper = request.kind == ExportKind::Plans;
        if (!onPaper && !plan.cut) {
            return Outcome::failed("--plan " + std::string(plan.name) + " makes no sense for " +
                                   ending(request));
        }
        if (!onPaper && request.cut)
            return Outcome::failed("one --plan is enough for " + ending(request));
        if (onPaper) {
            request.plans.*plan.tick = true;
        } else {
            request.cut = plan.cut;
        }
    }
    if (request.kind == ExportKind::Plans && request.planNames.empty())
        return Outcome::failed(std::string("plans need --plan ") + optionNamed("--plan")->argument);
    return {};
}

/// What the wish draws, in the bits of `OptionRow::drawn`.
unsigned drawn(const ExportRequest& request) {
    if (request.cut) return Drawn::cutting;
    if (solidFormatOf(ending(request))) return Drawn::solid;
    if (request.kind != ExportKind::Plans) return Drawn::view;
    unsigned all = 0;
    for (const PlanName& plan : request.planNames) all |= plan.cut ? Drawn::cutting : Drawn::pages;
    return all;
}

Outcome refuseFor(const OptionRow& option, const ExportRequest& request) {
    const std::string name = option.name;
    if (!fits(option, request.kind))
        return Outcome::failed(name + " makes no sense for " + ending(request));
    if ((option.drawn & drawn(request)) != 0) return {};
    return Outcome::failed((option.drawn & Drawn::cutting) != 0
                               ? name + " needs --plan wing or --plan ribs"
                               : name + " makes no sense with such a --plan");
}

}  // namespace

Outcome fitTogether(ExportRequest& request, const std::vector<const OptionRow*>& given) {
    Outcome outcome = takeKind(request, has(given, "--as"));
    if (!outcome.isDone()) return outcome;
    for (const OptionRow* option : given)
        if (!fits(*option, request.kind)) return refuseFor(*option, request);
    outcome = takePlans(request);
    if (!outcome.isDone()) return outcome;
    for (const OptionRow* option : given) {
        outcome = refuseFor(*option, request);
        if (!outcome.isDone()) return outcome;
    }
    if (has(given, "--stations") && has(given, "--spacing"))
        return Outcome::failed("--stations and --spacing contradict each other");
    if (request.landscape && !request.paper.named)
        return Outcome::failed("--landscape makes no sense for a --paper of WxH");
    return {};
}

}  // namespace velna
