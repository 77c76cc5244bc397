#include <new>

#include <gtest/gtest.h>

#include "strikes/Writing.h"
#include "support/StruckCalls.h"

namespace velna::test {

namespace {

using Files = std::map<std::string, std::string>;

/// The names of files that are not as they were in `before`.
std::vector<std::string> changed(const Files& before, const Files& now) {
    std::vector<std::string> names;
    for (const auto& [name, bytes] : now) {
        const auto old = before.find(name);
        if (old == before.end() || old->second != bytes) names.push_back(name);
    }
    for (const auto& [name, _] : before)
        if (!now.contains(name)) names.push_back(name);
    return names;
}

/// Those of `names` that `reason` does not tell.
std::string untold(const std::vector<std::string>& names, const std::string& reason) {
    std::string missing;
    for (const std::string& name : names)
        if (reason.find(name) == std::string::npos) missing += " " + name;
    return missing;
}

}  // namespace

Judge::Judge(const Writing& writing) : writing_(writing), before_(state()) {
    std::string reason;
    calls_ = callsOf([&] { reason = writing.run(bench_); });
    EXPECT_EQ(reason, "");
    after_ = state();
}

std::string Judge::blame(const Refusal& refusal, int number, bool goesOn) {
    bench_.reset();
    std::string reason;
    {
        const StruckCalls struck(
            {goesOn ? std::set<int>{} : std::set{number}, goesOn ? number : 0, refusal.error});
        reason = writing_.run(bench_);
    }
    if (!refusal.harms && !reason.empty()) return "it cannot go on: " + reason;
    return blame(reason);
}

int Judge::blocks() {
    bench_.reset();
    return blocksOf([this] { writing_.run(bench_); });
}

std::string Judge::blameWithout(int blocks, RefusedMemory::From from) {
    bench_.reset();
    std::string reason;
    try {
        const RefusedMemory refused(blocks, from);
        reason = writing_.run(bench_);
    } catch (const std::bad_alloc&) {
        return "its outcome does not tell it";
    }
    // A picture that there is no memory for is one that cannot be read.
    if (reason.find("could not be put") != std::string::npos) return {};
    return blame(reason);
}

std::string Judge::blame(const std::string& reason) const {
    const State now = state();
    if (now != after_ && reason.empty()) return "it says nothing";
    if (const std::string left = untold(bench_.leftOver(), reason); !left.empty())
        return "it leaves" + left + " and tells: " + reason;
    if (now == after_ || now == before_) return {};
    if (now.titles != before_.titles) return "the titles are not those of the files";
    const std::string mixed = untold(changed(before_.files, now.files), reason);
    return mixed.empty() ? ""
                         : "new and old ones stand together," + mixed + "; it tells: " + reason;
}

}  // namespace velna::test
