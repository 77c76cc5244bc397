#include "shell/RecoveryWriter.h"

#include <utility>

#include "common/MemoryEnds.h"

namespace velna {

RecoveryWriter::RecoveryWriter(std::string folder, std::optional<RecoverySlot> slot)
    : folder_(std::move(folder)), slot_(std::move(slot)), thread_([this] { run(); }) {}

RecoveryWriter::~RecoveryWriter() {
    {
        const std::lock_guard lock(mutex_);
        ends_ = true;
    }
    changed_.notify_all();
    thread_.join();
}

void RecoveryWriter::keep(UnsavedWork work) {
    give(std::move(work));
}

void RecoveryWriter::drop() {
    give({});
}

void RecoveryWriter::give(Order order) {
    {
        const std::lock_guard lock(mutex_);
        next_ = std::move(order);
    }
    changed_.notify_all();
}

void RecoveryWriter::finish() {
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return !next_ && !busy_; });
}

std::optional<std::string> RecoveryWriter::failure() {
    const std::lock_guard lock(mutex_);
    return std::exchange(failure_, std::nullopt);
}

void RecoveryWriter::run() {
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return next_ || ends_; });
        if (!next_) return;
        busy_ = true;
        {
            const Order order = *std::exchange(next_, std::nullopt);
            lock.unlock();
            carryOut(order);
        }
        lock.lock();
        busy_ = false;
        changed_.notify_all();
    }
}

/// No memory is no reason to end a program that holds unsaved work: nothing is thrown.
void RecoveryWriter::carryOut(const Order& order) {
    std::string reason;
    const Outcome outcome = failedIfMemoryEnds([&] {
        Outcome done = order ? write(*order) : remove();
        reason = done.reason();
        return done;
    });
    if (!outcome.hasFailed()) return;
    // Without memory the reason is so short that it needs none.
    if (reason.empty()) reason = outcome.reason();
    const std::lock_guard lock(mutex_);
    failure_ = std::move(reason);
}

Outcome RecoveryWriter::remove() {
    if (slot_) slot_->remove();
    slot_.reset();
    return {};
}

Outcome RecoveryWriter::write(const UnsavedWork& work) {
    std::string reason;
    if (!slot_) slot_ = RecoverySlot::make(folder_, reason);
    if (!slot_) return Outcome::failed(reason);
    const Outcome written = RecoveryFile::write(work, slot_->file());
    if (!written.hasFailed()) return written;
    return Outcome::failed(slot_->file() + ": " + written.reason());
}

}  // namespace velna
