#pragma once

#include <chrono>
#include <functional>

#include <sys/types.h>

namespace velna::test {

/// A process of its own that does something for the number 1, then for 2 and so on, until it is
/// killed; after the last number it waits for that.
class Victim {
public:
    Victim(const std::function<void(int number)>& work, int last);
    ~Victim();
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;

    /// Kills it so long after it has done number `number`; gives the last number that it has done
    /// for certain.
    int killAfter(int number, std::chrono::nanoseconds wait);

private:
    bool hears(int& number) const;

    pid_t process_ = -1;
    int told_ = -1;
};

}  // namespace velna::test
