#include <atomic>
#include <new>
#include <stdexcept>
#include <string>
#include <system_error>
#include <thread>
#include <type_traits>

#include <gtest/gtest.h>

#include "common/TwoThreads.h"

namespace velna {
namespace {

constexpr std::size_t large = workForTwoThreads + 1;

/// The threads that ran the two, in the order of the arguments.
struct Ran {
    std::thread::id first;
    std::thread::id second;
};

Ran run(std::size_t work, unsigned cores) {
    Ran ran;
    inTwoThreads(
        work, [&] { ran.first = std::this_thread::get_id(); },
        [&] { ran.second = std::this_thread::get_id(); }, cores);
    return ran;
}

TEST(TwoThreads, LargeWorkIsSharedWithASecondThread) {
    const Ran ran = run(large, 2);
    EXPECT_EQ(ran.first, std::this_thread::get_id());
    EXPECT_NE(ran.second, std::this_thread::get_id());
    EXPECT_NE(ran.second, std::thread::id());
}

TEST(TwoThreads, SmallWorkAndOneCoreStayInTheCallersThread) {
    for (const Ran& ran : {run(workForTwoThreads, 2), run(large, 1), run(large, 0)}) {
        EXPECT_EQ(ran.first, std::this_thread::get_id());
        EXPECT_EQ(ran.second, std::this_thread::get_id());
    }
}

TEST(TwoThreads, BothRunAtTheSameTime) {
    std::atomic<int> meeting = 0;
    const auto meet = [&] {
        ++meeting;
        while (meeting < 2) std::this_thread::yield();
    };
    inTwoThreads(large, meet, meet, 2);
    EXPECT_EQ(meeting, 2);
}

/// What comes out of the two when each throws its text; an empty one throws nothing.
std::string thrown(const std::string& first, const std::string& second, unsigned cores) {
    const auto part = [](const std::string& text) {
        return [&text] {
            if (!text.empty()) throw std::runtime_error(text);
        };
    };
    try {
        inTwoThreads(large, part(first), part(second), cores);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "";
}

TEST(TwoThreads, WhatEitherThrowsArrivesTheFirstsBeforeTheSeconds) {
    for (const unsigned cores : {1U, 2U}) {
        EXPECT_EQ(thrown("one", "", cores), "one");
        EXPECT_EQ(thrown("", "two", cores), "two");
        EXPECT_EQ(thrown("one", "two", cores), "one");
        EXPECT_EQ(thrown("", "", cores), "");
    }
}

TEST(TwoThreads, MemoryThatIsNotThereInTheSecondArrivesAsInOneThread) {
    const auto nothing = [] {};
    const auto none = [] { throw std::bad_alloc(); };
    EXPECT_THROW(inTwoThreads(large, nothing, none, 2), std::bad_alloc);
    EXPECT_THROW(inTwoThreads(large, nothing, none, 1), std::bad_alloc);
}

TEST(TwoThreads, TheSecondHasEndedWhenTheFirstsFailureArrives) {
    std::atomic<bool> begun = false;
    std::atomic<bool> ended = false;
    const auto first = [&] {
        while (!begun) std::this_thread::yield();
        throw std::runtime_error("one");
    };
    const auto second = [&] {
        begun = true;
        for (int i = 0; i < 1000; ++i) std::this_thread::yield();
        ended = true;
    };
    EXPECT_THROW(inTwoThreads(large, first, second, 2), std::runtime_error);
    EXPECT_TRUE(ended);
}

/// A thread that the system does not start.
template <class Failure>
struct NoThread {
    NoThread() = default;
    template <class Work>
    explicit NoThread(Work) {
        if constexpr (std::is_same_v<Failure, std::bad_alloc>) throw std::bad_alloc();
        throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
    }
    bool joinable() const { return false; }
    void join() const { ADD_FAILURE() << "nothing to wait for"; }
};

TEST(TwoThreads, WithoutAThreadToBeHadBothRunInTheCallers) {
    std::string order;
    const auto first = [&] { order += '1'; };
    const auto second = [&] { order += '2'; };
    inTwoThreads<NoThread<std::system_error>>(large, first, second, 2);
    inTwoThreads<NoThread<std::bad_alloc>>(large, first, second, 2);
    EXPECT_EQ(order, "1212");
}

}  // namespace
}  // namespace velna
