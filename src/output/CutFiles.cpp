#include "output/CutFiles.h"

#include <algorithm>
#include <memory>

#include "common/MemoryEnds.h"
#include "common/ReplacedFile.h"
#include "output/CutDrawing.h"

namespace velna {

namespace {

/// A file that stays in memory.
class HeldText : public TextSink {
public:
    std::string text() {
        flush();
        return std::move(text_);
    }

protected:
    void flush() override {
        text_ += buffer();
        buffer().clear();
    }

private:
    std::string text_;
};

void write(TextSink& file, const CutDrawing& drawing, CutFormat format) {
    format == CutFormat::dxf ? writeDxf(file, drawing) : writeSvg(file, drawing);
}

/// "set.dxf" and "wing 1 rib 003" give "set-wing-1-rib-003.dxf".
std::string partFile(const std::string& file, std::string part) {
    std::replace(part.begin(), part.end(), ' ', '-');
    const std::string title = titleOf(file);
    const std::size_t dot = title.rfind('.');
    const std::string ending = dot == std::string::npos || dot == 0 ? "" : title.substr(dot);
    return file.substr(0, file.size() - ending.size()) + '-' + part + ending;
}

Outcome saveEach(std::vector<CutPart> parts, CutFormat format, const std::string& file) {
    std::unique_ptr<ReplacedFile> first;
    for (CutPart& part : parts) {
        const std::string target = partFile(file, part.name);
        const std::string title = titleOf(target);
        std::vector<CutPart> one;
        one.push_back(std::move(part));
        HeldText held;
        write(held, layOut(std::move(one), title), format);
        if (first) {
            first->beside(target, held.text());
        } else {
            first = std::make_unique<ReplacedFile>(target);
            first->append(held.text());
        }
    }
    return first->commit() ? Outcome() : Outcome::failed(first->error());
}

/// Why a plan has no part.
Outcome nothingToCut(CutPlan plan, const std::vector<std::string>& words) {
    std::string reason = plan == CutPlan::wing   ? "The wing plan has no panel."
                         : plan == CutPlan::ribs ? "There is no rib to cut."
                                                 : "There is no section to cut.";
    if (!words.empty()) reason += '\n' + words.front();
    return Outcome::failed(reason);
}

Outcome save(const Project& project, CutPlan plan, CutFormat format, const RibWishes& wishes,
             const std::string& file, std::vector<std::string>& words, Progress* watcher) {
    CutParts made;
    Outcome outcome = cutParts(project, plan, wishes, {}, watcher, made);
    words.insert(words.end(), made.words.begin(), made.words.end());
    if (!outcome.isDone()) return outcome;
    if (made.parts.empty()) return nothingToCut(plan, made.words);
    if (wishes.each) return saveEach(std::move(made.parts), format, file);
    ReplacedFile written(file);
    write(written, layOut(std::move(made.parts), titleOf(file)), format);
    return written.commit() ? Outcome() : Outcome::failed(written.error());
}

}  // namespace

Outcome saveCutPlan(const Project& project, CutPlan plan, CutFormat format, const RibWishes& wishes,
                    const std::string& file, std::vector<std::string>& words, Progress* watcher) {
    return failedIfMemoryEnds(
        [&] { return save(project, plan, format, wishes, file, words, watcher); });
}

std::vector<std::string> cutPlanFiles(const Project& project, CutPlan plan, const RibWishes& wishes,
                                      const std::string& file) {
    CutParts made;
    std::vector<std::string> files;
    if (!cutParts(project, plan, wishes, {}, nullptr, made).isDone()) return files;
    if (!wishes.each && !made.parts.empty()) return {file};
    for (const CutPart& part : made.parts) files.push_back(partFile(file, part.name));
    return files;
}

}  // namespace velna
