#include "shell/CutCommand.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "common/ReplacedFile.h"
#include "output/CutFiles.h"
#include "shell/CuttingSettings.h"

namespace velna {

namespace {

struct CutKind {
    const char* caption;
    CutPlan plan;
    CutFormat format;
};

constexpr CutKind cutKinds[] = {
    {"Wing Plan DXF (*.dxf)|*.dxf", CutPlan::wing, CutFormat::dxf},
    {"Wing Plan SVG (*.svg)|*.svg", CutPlan::wing, CutFormat::svg},
    {"Ribs DXF (*.dxf)|*.dxf", CutPlan::ribs, CutFormat::dxf},
    {"Ribs SVG (*.svg)|*.svg", CutPlan::ribs, CutFormat::svg},
    {"Fuselage Sections DXF (*.dxf)|*.dxf", CutPlan::sections, CutFormat::dxf},
    {"Fuselage Sections SVG (*.svg)|*.svg", CutPlan::sections, CutFormat::svg},
};

/// As many as a message box shows at once.
constexpr std::size_t mostLines = 12;

}  // namespace

std::string CutCommand::filter() {
    std::string filter;
    for (const CutKind& kind : cutKinds) filter += std::string("|") + kind.caption;
    return filter;
}

bool CutCommand::mayReplace(const std::vector<std::string>& files) const {
    std::vector<std::string> there;
    for (const std::string& file : files)
        if (std::error_code ignored; std::filesystem::exists(file, ignored)) there.push_back(file);
    return there.empty() ||
           ports.dialogs->askYesNo(
               "These files will be replaced:\n" + firstLines(there) + "\nDo you want to proceed ?",
               BoxIcon::Exclamation, false);
}

void CutCommand::save(int kind, const std::string& file) {
    const CutKind& cut = cutKinds[std::clamp(kind, 0, static_cast<int>(std::size(cutKinds)) - 1)];
    RibWishes wishes = recallRibWishes(settings);
    if (!ports.dialogs->askRibWishes(wishes, project.units)) return;
    keepRibWishes(settings, wishes);
    // The one file has been asked about already.
    if (wishes.each && !mayReplace(cutPlanFiles(project, cut.plan, wishes, file))) return;
    std::vector<std::string> words;
    const Outcome outcome =
        saveCutPlan(project, cut.plan, cut.format, wishes, file, words, ports.progress);
    if (outcome.hasFailed()) {
        reportFailure(*ports.dialogs, titleOf(file) + " could not be saved.", outcome.reason());
    } else if (outcome.isDone() && !words.empty()) {
        ports.dialogs->message(applicationTitle, firstLines(words), BoxIcon::Information);
    }
}

std::string firstLines(const std::vector<std::string>& lines) {
    std::string text;
    const std::size_t shown = lines.size() > mostLines ? mostLines - 1 : lines.size();
    for (std::size_t n = 0; n < shown; ++n) text += (n == 0 ? "" : "\n") + lines[n];
    if (shown < lines.size()) text += "\nand " + std::to_string(lines.size() - shown) + " more";
    return text;
}

}  // namespace velna
