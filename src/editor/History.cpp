#include "editor/History.h"

#include <algorithm>
#include <new>
#include <utility>

#include "model/MeshSections.h"

namespace velna {
namespace {

template <class T>
std::size_t bytesOf(const Array1<T>& array) {
    return static_cast<std::size_t>(array.upper() + 1) * sizeof(T);
}

std::size_t bytesOf(const SymWingSections& wing) {
    const auto points = static_cast<std::size_t>(std::max(wing.airfoilSize(), 0) + 1);
    return sizeof wing + points * sizeof(Point3D) + wing.airfoil_filename.capacity() +
           wing.texture_filename().capacity() + wing.qualified_texture_filename.capacity();
}

std::size_t bytesOf(const MeshSections& body) {
    std::size_t bytes = sizeof body + body.texture_filename.capacity() +
                        body.qualified_texture_filename.capacity() + bytesOf(body.sectionOrder);
    for (const auto* values : {&body.height, &body.width, &body.pos, &body.elevation,
                               &body.curvature, &body.curvature2, &body.bias_curve})
        bytes += bytesOf(*values);
    return bytes;
}

std::size_t bytesOf(const ElectroBox& box) {
    return sizeof box;
}

template <class T>
std::size_t bytesOf(const OwnedList<T>& list) {
    std::size_t bytes = static_cast<std::size_t>(list.size()) * sizeof(void*);
    for (int i = 1; i <= list.size(); ++i)
        if (!list.promised(i)) bytes += bytesOf(list(i));
    return bytes;
}

std::size_t bytesOf(const Project& project) {
    return sizeof project + bytesOf(project.Wings) + bytesOf(project.Stabilizer) +
           bytesOf(project.Fuselages) + bytesOf(project.Equipments) +
           project.ObjectList.rows.size() * sizeof(FuselageRow);
}

/// What was chosen after a step, but where the step has added or removed objects, or sections, what
/// was chosen before it: the other is not there any more.
Chosen chosenAfterUndo(const Project& undone, const Project& redone, const Chosen& before,
                       const Chosen& after) {
    Chosen chosen = before;
    if (undone.nbWings == redone.nbWings) chosen.wing = after.wing;
    if (undone.nbEquipments == redone.nbEquipments) chosen.equipment = after.equipment;
    if (undone.nbFuselages != redone.nbFuselages) return chosen;
    chosen.fuselage = after.fuselage;
    for (std::size_t i = 0; i < std::min(before.sections.size(), after.sections.size()); ++i) {
        const int k = static_cast<int>(i) + 1;
        if (after.sections[i] != 0 &&
            undone.Fuselages(k).nb_sections == redone.Fuselages(k).nb_sections)
            chosen.sections[i] = after.sections[i];
    }
    return chosen;
}

/// A choice of a list of `before` entries in the list of `now` that takes its place.
std::int16_t stillThere(std::int16_t choice, std::int16_t before, std::int16_t now) {
    return before == now ? choice
                         : std::clamp<std::int16_t>(choice, 1, std::max<std::int16_t>(now, 1));
}

/// Has `now` chosen what is chosen in `before`, as far as it is there. Takes no memory.
void keepChoices(const Project& before, Project& now) {
    now.currentWing = stillThere(before.currentWing, before.nbWings, now.nbWings);
    now.currentFuselage = stillThere(before.currentFuselage, before.nbFuselages, now.nbFuselages);
    now.currentEquipment =
        stillThere(before.currentEquipment, before.nbEquipments, now.nbEquipments);
    const int count = std::min(before.Fuselages.size(), now.Fuselages.size());
    for (int i = 1; i <= count; ++i) {
        if (before.Fuselages.promised(i) || now.Fuselages.promised(i)) continue;
        const MeshSections& other = before.Fuselages(i);
        MeshSections& body = now.Fuselages(i);
        body.sel_sec = stillThere(other.sel_sec, other.nb_sections, body.nb_sections);
    }
}

}  // namespace

Chosen Chosen::in(const Project& project) {
    Chosen chosen{project.currentWing, project.currentFuselage, project.currentEquipment, {}};
    const int count = project.Fuselages.size();
    chosen.sections.assign(static_cast<std::size_t>(count), 0);
    for (int i = 1; i <= count; ++i) {
        if (!project.Fuselages.promised(i))
            chosen.sections[static_cast<std::size_t>(i) - 1] = project.Fuselages(i).sel_sec;
    }
    return chosen;
}

void Chosen::putInto(Project& project) const {
    project.currentWing = wing;
    project.currentFuselage = fuselage;
    project.currentEquipment = equipment;
    const int count = std::min(project.Fuselages.size(), static_cast<int>(sections.size()));
    for (int i = 1; i <= count; ++i) {
        const std::int16_t section = sections[static_cast<std::size_t>(i) - 1];
        if (section != 0 && !project.Fuselages.promised(i)) project.Fuselages(i).sel_sec = section;
    }
}

void History::forget() {
    states_.clear();
    steps_.clear();
    at_ = 0;
    saved_.reset();
    bytes_ = 0;
}

void History::begin(const Project& project, bool saved) {
    forget();
    begun_ = true;
    try {
        states_.push_back({project, bytesOf(project)});
    } catch (const std::bad_alloc&) {
        return forget();
    }
    bytes_ = states_.front().bytes;
    if (saved) noteSaved();
}

void History::replace(const std::string& name, const Project& project, bool saved,
                      const FormerProject& former) {
    if (former.saved || states_.empty()) return begin(project, saved);
    forgetRedo();
    while (states_.size() > 1) dropOldest();
    saved_.reset();
    try {
        push(project, {name, before_, Chosen::in(project), 0, former.file});
    } catch (const std::bad_alloc&) {
        return begin(project, saved);
    }
    if (saved) noteSaved();
}

void History::open(const Project& project) {
    if (depth_ == 0) {
        // Where there was no memory for a state there may be some now.
        if (begun_ && states_.empty()) begin(project, false);
        before_ = Chosen::in(project);
        name_.clear();
    }
    ++depth_;
}

void History::close(const Project& project, unsigned visit) {
    if (depth_ == 0 || --depth_ > 0) return;
    if (states_.empty()) return begin(project, false);
    while (!states_.empty()) {
        try {
            return record(project, visit);
        } catch (const std::bad_alloc&) {
            at_ > 0 ? dropOldest() : forget();
        }
    }
}

void History::leave() {
    depth_ = std::max(depth_ - 1, 0);
}

void History::giveUp(Project& project) noexcept {
    depth_ = 0;
    if (states_.empty()) return;
    try {
        Project state = states_[at_].project;
        std::swap(project, state);
        keepChoices(state, project);
    } catch (const std::bad_alloc&) {
        std::swap(project, states_[at_].project);
        keepChoices(states_[at_].project, project);
        forget();
    }
}

/// Compares with the same objects chosen on both sides: a state's own choice is never shown, for
/// the steps beside it hold theirs.
void History::record(const Project& project, unsigned visit) {
    keepChoices(project, states_[at_].project);
    if (states_[at_].project == project) return;
    const Chosen now = Chosen::in(project);
    forgetRedo();
    const bool sameVisit = visit != 0 && at_ > 0 && steps_.back().visit == visit && saved_ != at_;
    if (sameVisit) return mergeInto(project, now);
    push(project, {name_, before_, now, visit, {}});
}

/// The step goes on; where it has come back to its start, it is none.
void History::mergeInto(const Project& project, const Chosen& now) {
    now.putInto(states_[at_ - 1].project);
    if (states_[at_ - 1].project == project) return dropLast();
    store(at_, project);
    steps_.back().after = now;
}

void History::store(std::size_t index, const Project& project) {
    State state{project, bytesOf(project)};
    bytes_ += state.bytes - states_[index].bytes;
    states_[index] = std::move(state);
}

void History::push(const Project& project, Step step) {
    states_.push_back({project, bytesOf(project)});
    try {
        steps_.push_back(std::move(step));
    } catch (const std::bad_alloc&) {
        states_.pop_back();
        throw;
    }
    bytes_ += states_.back().bytes;
    at_ = steps_.size();
    while (bytes_ > most_ && states_.size() > 1) dropOldest();
}

void History::dropLast() {
    bytes_ -= states_.back().bytes;
    states_.pop_back();
    steps_.pop_back();
    --at_;
}

void History::dropOldest() {
    bytes_ -= states_.front().bytes;
    states_.pop_front();
    steps_.pop_front();
    --at_;
    if (saved_ == 0U) {
        saved_.reset();
    } else if (saved_) {
        --*saved_;
    }
}

void History::forgetRedo() {
    while (steps_.size() > at_) {
        bytes_ -= states_.back().bytes;
        states_.pop_back();
        steps_.pop_back();
    }
    if (saved_ && *saved_ > at_) saved_.reset();
}

const std::string* History::undoName() const {
    return at_ > 0 ? &steps_[at_ - 1].name : nullptr;
}

const std::string* History::redoName() const {
    return at_ < steps_.size() ? &steps_[at_].name : nullptr;
}

void History::recordStray(const Project& project) {
    if (states_.empty()) return;
    open(project);
    name_ = "Change";
    close(project);
}

bool History::undo(Project& project, std::string& file) {
    if (isOpen()) return false;
    recordStray(project);
    if (at_ == 0) return false;
    Step& step = steps_[at_ - 1];
    Project state = states_[at_ - 1].project;
    chosenAfterUndo(state, states_[at_].project, step.before, step.after).putInto(state);
    project = std::move(state);
    if (step.otherFile) file.swap(*step.otherFile);
    --at_;
    return true;
}

bool History::redo(Project& project, std::string& file) {
    if (isOpen()) return false;
    recordStray(project);
    if (at_ == steps_.size()) return false;
    Step& step = steps_[at_];
    Project state = states_[at_ + 1].project;
    step.after.putInto(state);
    project = std::move(state);
    if (step.otherFile) file.swap(*step.otherFile);
    ++at_;
    return true;
}

void History::amend(const Project& project) {
    if (states_.empty()) return;
    try {
        store(at_, project);
    } catch (const std::bad_alloc&) {
        forget();
    }
}

}  // namespace velna
