// The exports of a call again and again in one process, as the words of the command line tell them:
// reading and writing alone, once all that a start brings is behind. Prints the median in seconds.

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <vector>

#include "shell/Arguments.h"
#include "shell/qt/CommandLine.h"

int main(int argc, char** argv) {
    constexpr int rounds = 9;
    const auto arguments = velna::Arguments::read({argv + 1, argv + argc});
    if (arguments.wish != velna::Arguments::Wish::Export) return velna::answer(arguments);
    if (const int status = velna::runWithoutWindow(arguments)) return status;
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        const auto start = std::chrono::steady_clock::now();
        if (const int status = velna::runWithoutWindow(arguments)) return status;
        times.push_back(
            std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
    }
    std::ranges::sort(times);
    std::printf("%.9f\n", times[rounds / 2]);
    return 0;
}
