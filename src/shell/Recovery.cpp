#include "shell/Recovery.h"

#include <utility>

#include "common/MemoryEnds.h"
#include "common/ReplacedFile.h"
#include "common/ValueReader.h"
#include "model/MeshSections.h"

namespace velna {

namespace {

using namespace std::chrono_literals;

constexpr auto period = 5s;

/// Work that a program has left behind.
struct LeftWork {
    RecoverySlot slot;
    UnsavedWork work;
};

/// The aircraft without what is chosen in it: to choose another wing is no work.
Project withoutChoices(const Project& project) {
    Project plain = project;
    plain.currentWing = plain.currentFuselage = plain.currentEquipment = 1;
    for (int i = 1; i <= plain.Fuselages.size(); ++i)
        if (!plain.Fuselages.promised(i)) plain.Fuselages(i).sel_sec = 1;
    return plain;
}

/// Reads what is left in `folder`, newest first, and clears empty places away. What cannot be read
/// is put aside, and a line of `damaged` tells of it.
std::vector<LeftWork> leftIn(const std::string& folder, std::string& damaged) {
    std::vector<LeftWork> left;
    for (const int number : RecoverySlot::numbersIn(folder)) {
        auto slot = RecoverySlot::takeOver(folder, number);
        if (!slot) continue;
        if (!slot->holdsWork()) {
            slot->remove();
            continue;
        }
        try {
            UnsavedWork work = RecoveryFile::read(slot->file());
            left.push_back({std::move(*slot), std::move(work)});
        } catch (const ReadFailure& failure) {
            const std::string reason = failure.what();
            damaged += (damaged.empty() ? "" : "\n") + slot->putAside() + ": " + reason;
        }
    }
    return left;
}

std::string question(const LeftWork& left, std::size_t others) {
    const std::string name = left.work.name.empty() ? "a new project" : left.work.name;
    std::string text = "Velna did not end properly the last time.\n\nThe work on " + name +
                       " was not saved.\nIt is as of " + left.slot.time() + ".";
    if (others > 0) {
        text += "\nOlder work that was not saved: " + std::to_string(others) +
                (others == 1 ? " project." : " projects.");
    }
    return text;
}

}  // namespace

Recovery::Recovery(MainForm& main, const Flying& flying, const ShellPorts& ports)
    : main_(main), flying_(flying), ports_(ports) {}

void Recovery::begin() {
    on_ = true;
    settle();
}

std::optional<UnsavedWork> Recovery::offer() {
    std::string damaged;
    std::vector<LeftWork> all = leftIn(folder(), damaged);
    if (!damaged.empty()) {
        reportFailure(*ports_.dialogs,
                      "Work that was not saved cannot be restored. It is kept in:", damaged);
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
        switch (ports_.dialogs->askLeftWork(question(all[i], all.size() - i - 1))) {
            case LeftWorkAnswer::Restore:
                return restore(std::move(all[i].slot), std::move(all[i].work));
            case LeftWorkAnswer::Discard:
                all[i].slot.remove();
                break;
            case LeftWorkAnswer::Later:
                return {};
        }
    }
    return {};
}

/// The file stays until the work is saved: a second crash must not cost what the first one left.
std::optional<UnsavedWork> Recovery::restore(RecoverySlot slot, UnsavedWork work) {
    writer_ = std::make_unique<RecoveryWriter>(folder(), std::move(slot));
    kept_ = work;
    kept_->project = withoutChoices(work.project);
    return work;
}

void Recovery::settle() {
    settled_ = withoutChoices(main_.project);
    drop();
}

void Recovery::lookNow(const std::string& name) {
    looked_.reset();
    look(name);
}

void Recovery::look(const std::string& name, Clock::time_point now) {
    const bool due = !looked_ || now - *looked_ >= period;
    if (!on_ || !due || main_.anyBusy() || flying_.running()) return;
    looked_ = now;
    const Outcome kept = failedIfMemoryEnds([&] {
        keepUnsaved(name);
        return Outcome();
    });
    if (kept.hasFailed()) failure_ = kept.reason();
}

void Recovery::keepUnsaved(const std::string& name) {
    if (main_.savedProject) return settle();
    noteFailure();
    Project project = withoutChoices(main_.project);
    const bool stands = kept_ && kept_->name == name && kept_->project == project;
    if (project == settled_) {
        drop();
    } else if (!stands || !failure_.empty()) {
        keep(std::move(project), name);
    }
}

/// What could not be kept is tried again, with or without a change.
void Recovery::noteFailure() {
    if (writer_) failure_ = writer_->failure().value_or("");
}

void Recovery::keep(Project project, const std::string& name) {
    if (!writer_) writer_ = std::make_unique<RecoveryWriter>(folder());
    UnsavedWork work{std::move(project), name};
    writer_->keep(work);
    kept_ = std::move(work);
}

void Recovery::drop() {
    if (!kept_) return;
    kept_.reset();
    writer_->drop();
}

void Recovery::tell() {
    if (told_ || failure_.empty()) return;
    told_ = true;
    reportFailure(*ports_.dialogs,
                  "What is not saved cannot be kept for the case of a crash: save it now and then.",
                  failure_);
}

void Recovery::end() {
    on_ = false;
    drop();
    writer_.reset();
}

void Recovery::finish() {
    if (writer_) writer_->finish();
}

}  // namespace velna
