#pragma once

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

#include "persistence/RecoveryFile.h"
#include "shell/RecoverySlot.h"

namespace velna {

/// Writes unsaved work to the program's own place in the folder of unsaved work, by a thread of its
/// own: who gives an order never waits for a disk. Of the orders that come while one is carried out
/// only the last counts.
class RecoveryWriter {
public:
    /// `folder` is where places are made; `slot` is the program's place, if it has one already.
    explicit RecoveryWriter(std::string folder, std::optional<RecoverySlot> slot = {});
    /// Carries out the last order. The work that then stands stays for the next start.
    ~RecoveryWriter();
    RecoveryWriter(const RecoveryWriter&) = delete;
    RecoveryWriter& operator=(const RecoveryWriter&) = delete;

    /// Orders `work` to be kept in the place of what is kept.
    void keep(UnsavedWork work);
    /// Orders what is kept to be removed: it is saved, or given up.
    void drop();
    /// Waits until the last order has been carried out.
    void finish();
    /// Why work could not be kept, once for each failure; nothing where it could.
    std::optional<std::string> failure();

private:
    /// The work to be kept, or none.
    using Order = std::optional<UnsavedWork>;

    void give(Order order);
    void run();
    void carryOut(const Order& order);
    Outcome write(const UnsavedWork& work);
    Outcome remove();

    const std::string folder_;
    std::optional<RecoverySlot> slot_;  // of the thread alone

    std::mutex mutex_;  // holds what follows together
    std::condition_variable changed_;
    std::optional<Order> next_;
    std::optional<std::string> failure_;
    bool busy_ = false;
    bool ends_ = false;

    std::thread thread_;  // the last: it works on all of these
};

}  // namespace velna
