#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "model/Project.h"

namespace velna {

/// What was chosen in a project: no change of the aircraft, but a step brings back what it was
/// about.
struct Chosen {
    std::int16_t wing = 1;
    std::int16_t fuselage = 1;
    std::int16_t equipment = 1;
    std::vector<std::int16_t> sections;  ///< `sel_sec` by fuselage from 0; 0 for a promised one

    static Chosen in(const Project& aircraft);
    /// Makes it what is chosen in `aircraft`, which has as many objects as the project that it is
    /// from.
    void putInto(Project& aircraft) const;

    friend bool operator==(const Chosen&, const Chosen&) = default;
};

/// What is known of an aircraft that another one replaces.
struct FormerProject {
    bool saved = true;
    std::string file;  ///< of its last save or open; empty where it has none
};

/// The states of the project that the user can go back to, each a whole copy, with the name of the
/// step between each two. A gesture becomes a step only when the aircraft differs at its end: what
/// was chosen, and whether it was saved, make none. The oldest states go when all together hold
/// more bytes than allowed.
class History {
public:
    static constexpr std::size_t usualMost = std::size_t{256} << 20;

    explicit History(std::size_t mostBytes = usualMost) : most_(mostBytes) {}

    /// Begins anew: there is nothing to go back to from `aircraft`.
    void begin(const Project& aircraft, bool saved);
    /// Another aircraft takes the place of the one in hand: begins anew, but one that was not saved
    /// can be brought back, as the step `name`, with the name of its file.
    void replace(const std::string& name, const Project& aircraft, bool saved,
                 const FormerProject& former);

    /// A gesture begins; the first of nested ones counts. `aircraft` is as it stands before.
    void open(const Project& aircraft);
    /// Names the gesture under way.
    void name(std::string text) { name_ = std::move(text); }
    const std::string& gestureName() const { return name_; }
    /// The gesture ends: where `aircraft` differs from the last state, that is a step. Steps of the
    /// same `visit`, unless that is 0, become one, as long as nothing else comes between. Where
    /// there is no memory for it, the oldest states go; where that does not do, the history begins
    /// anew with the next gesture.
    void close(const Project& aircraft, unsigned visit = 0);
    /// The gesture ends in its middle, with no step made of it: `giveUp` follows.
    void leave();
    /// Gives every gesture under way up: puts the last state into `aircraft`, where the history has
    /// one, with what is chosen as far as it is there. It needs no memory: where there is none, the
    /// history gives that state away, and begins anew with the next gesture.
    void giveUp(Project& aircraft) noexcept;
    bool isOpen() const { return depth_ > 0; }
    /// A number for `close` that was never given before.
    unsigned newVisit() { return ++lastVisit_; }

    /// The step that `undo` takes back, or `redo` makes again; null where there is none.
    const std::string* undoName() const;
    const std::string* redoName() const;
    /// Puts the state before the last step, or after the next one, into `aircraft`; false, with
    /// nothing changed, where there is none or a gesture is under way. What `aircraft` holds beyond
    /// the last state becomes a step of its own first, so that nothing is lost.
    /// `file` is the project's; it is another one across the border to another aircraft.
    bool undo(Project& aircraft, std::string& file);
    bool redo(Project& aircraft, std::string& file);

    /// The state in hand is the one that was saved last.
    bool atSaved() const { return saved_ == at_; }
    /// The state in hand has been saved.
    void noteSaved() { saved_ = at_; }
    /// What a command has changed in the state in hand beside the user's work: it is no step.
    void amend(const Project& aircraft);

    std::size_t stepCount() const { return steps_.size(); }
    /// How many steps can be undone.
    std::size_t position() const { return at_; }
    /// About how many bytes the states hold.
    std::size_t bytes() const { return bytes_; }

private:
    struct State {
        Project project;
        std::size_t bytes = 0;
    };
    /// Between state i and state i + 1.
    struct Step {
        std::string name;
        Chosen before;
        Chosen after;
        unsigned visit = 0;
        /// The file of the aircraft on the other side of the step, where that is another one.
        std::optional<std::string> otherFile;
    };

    void record(const Project& aircraft, unsigned visit);
    void push(const Project& aircraft, Step step);
    void mergeInto(const Project& aircraft, const Chosen& now);
    void dropLast();
    void dropOldest();
    void forgetRedo();
    void forget();
    void store(std::size_t index, const Project& aircraft);
    void recordStray(const Project& aircraft);

    std::size_t most_;
    std::deque<State> states_;  // none before `begin`, and where there was no memory
    std::deque<Step> steps_;
    std::size_t at_ = 0;                // the state in hand
    std::optional<std::size_t> saved_;  // the state that was saved
    std::size_t bytes_ = 0;
    bool begun_ = false;
    int depth_ = 0;
    std::string name_;
    Chosen before_;
    unsigned lastVisit_ = 0;
};

}  // namespace velna
