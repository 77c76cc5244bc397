#include "strikes/Victim.h"

#include <array>
#include <csignal>
#include <stdexcept>
#include <thread>
#include <utility>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace velna::test {

namespace {

/// Where nobody kills it, it ends by itself.
constexpr unsigned longestLife = 60;  // seconds

[[noreturn]] void live(const std::function<void(int)>& work, int last, int tells) {
    ::alarm(longestLife);
    for (int number = 1; number <= last; ++number) {
        work(number);
        if (::write(tells, &number, sizeof number) != sizeof number) break;
    }
    while (true) ::pause();
}

}  // namespace

Victim::Victim(const std::function<void(int number)>& work, int last) {
    std::array<int, 2> pipe{};
    if (::pipe2(pipe.data(), O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
    process_ = ::fork();
    if (process_ < 0) throw std::runtime_error("no process");
    if (process_ == 0) live(work, last, pipe[1]);
    ::close(pipe[1]);
    told_ = pipe[0];
}

Victim::~Victim() {
    if (process_ > 0) killAfter(0, {});
    ::close(told_);
}

bool Victim::hears(int& number) const {
    return ::read(told_, &number, sizeof number) == sizeof number;
}

int Victim::killAfter(int number, std::chrono::nanoseconds wait) {
    int done = 0;
    while (done < number && hears(done)) {
    }
    std::this_thread::sleep_for(wait);
    const pid_t process = std::exchange(process_, -1);
    ::kill(process, SIGKILL);
    ::waitpid(process, nullptr, 0);
    // What it has said before it fell.
    while (hears(done)) {
    }
    return done;
}

}  // namespace velna::test
