#pragma once

#include <string>
#include <utility>

namespace velna {

/// What came of an operation that can fail. A default one is done.
class [[nodiscard]] Outcome {
public:
    Outcome() = default;
    /// `reason` is told to the user: one or more whole sentences, or what the system says.
    static Outcome failed(std::string reason) { return Outcome(Kind::Failed, std::move(reason)); }
    /// The user has ended it. It is no failure: no message follows it.
    static Outcome cancelled() { return Outcome(Kind::Cancelled, {}); }

    bool isDone() const { return kind_ == Kind::Done; }
    bool isCancelled() const { return kind_ == Kind::Cancelled; }
    bool hasFailed() const { return kind_ == Kind::Failed; }
    /// Why it failed; empty when it did not.
    const std::string& reason() const { return reason_; }

    friend bool operator==(const Outcome&, const Outcome&) = default;

private:
    enum class Kind { Done, Cancelled, Failed };

    Outcome(Kind kind, std::string reason) : kind_(kind), reason_(std::move(reason)) {}

    Kind kind_ = Kind::Done;
    std::string reason_;
};

}  // namespace velna
