#pragma once

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "editor/Main.h"
#include "preview/Flying.h"
#include "shell/Ports.h"
#include "shell/RecoveryWriter.h"

namespace velna {

/// Keeps what is not saved for the case that the program does not end properly, and gives it back
/// at the next start. It looks at the project between the user's gestures, never in one, and has a
/// thread of its own write a copy; nothing is written beside the project, and `savedProject` stays.
class Recovery {
public:
    using Clock = std::chrono::steady_clock;

    Recovery(MainForm& main, const Flying& flying, const ShellPorts& ports);

    /// From now on work is kept; the project as it stands is nothing to be lost.
    void begin();

    /// Asks about the work that programs have left which run no more, the newest first, and gives
    /// what is to be restored; nothing where there is none, or it is discarded or left for a later
    /// start. Damaged work is told of once, and put aside.
    std::optional<UnsavedWork> offer();

    /// The project as it stands is nothing to be lost: it is new, or just as a file has it.
    void settle();

    /// Has work that is not saved kept under the project's `name`, at most every five seconds. Does
    /// nothing in a drag or in a flight.
    void look(const std::string& name, Clock::time_point now = Clock::now());
    /// The same at once, before what may take long.
    void lookNow(const std::string& name);

    /// Tells, once a run, that work cannot be kept.
    void tell();

    /// A proper end: nothing is left for the next start, and nothing is kept any more.
    void end();

    /// Waits until what has been ordered stands on the disk.
    void finish();

private:
    std::string folder() const { return ports_.desktop->stateFolder(); }
    std::optional<UnsavedWork> restore(RecoverySlot slot, UnsavedWork work);
    void keepUnsaved(const std::string& name);
    void keep(Project project, const std::string& name);
    void noteFailure();
    void drop();

    MainForm& main_;
    const Flying& flying_;
    const ShellPorts& ports_;

    std::optional<Clock::time_point> looked_;
    Project settled_;                         ///< what is nothing to be lost
    std::optional<UnsavedWork> kept_;         ///< what stands on the disk, or is on its way
    std::unique_ptr<RecoveryWriter> writer_;  ///< from the first work on
    std::string failure_;                     ///< why the last work could not be kept
    bool told_ = false;
    bool on_ = false;  ///< between `begin` and `end`
};

}  // namespace velna
