#pragma once

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "common/FileLock.h"

namespace velna {

/// The place of one program in the folder of unsaved work: the file that its work is kept in, and
/// a lock beside it. The system frees the lock when the program ends, however it ends: so a work
/// whose lock is free is one that a program has left behind, whatever a clock says. Its end frees
/// the lock; work that stands then is there for the next start.
class RecoverySlot {
public:
    /// The numbers of all places in `folder` (with its "/"), the newest first: a new place takes a
    /// number above all others.
    static std::vector<int> numbersIn(const std::string& folder);

    /// A new place, locked; makes the folder where it is missing. Nothing with the system's reason
    /// where that cannot be.
    static std::optional<RecoverySlot> make(const std::string& folder, std::string& reason);

    /// Locks the place of a program that runs no more; nothing where it runs, or cannot be locked.
    static std::optional<RecoverySlot> takeOver(const std::string& folder, int number);

    /// The file of the work; it need not exist.
    std::string file() const;
    bool holdsWork() const;
    /// When the work was kept, by the clock of the time, "2026-11-22 14:02"; for people only.
    std::string time() const;

    /// Removes the work and the lock: nothing is left for the next start.
    void remove();
    /// Gives work that cannot be restored another name, under which no start finds it; the full
    /// path of that, or of the work where it cannot be renamed.
    std::string putAside();

private:
    RecoverySlot(std::string base, FileLock lock)
        : base_(std::move(base)), lock_(std::move(lock)) {}

    std::string base_;  // path of both files without their endings
    FileLock lock_;
};

}  // namespace velna
