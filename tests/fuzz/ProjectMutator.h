#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "support/ProjectMutation.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t most);

namespace velna::fuzz {

/// Puts `text` into `data`; 0, and nothing put, where it is empty or has no room.
inline std::size_t put(const std::string& text, std::uint8_t* data, std::size_t most) {
    if (text.size() > most) return 0;
    std::copy(text.begin(), text.end(), data);
    return text.size();
}

/// Changes a project as `mutatedProject` does, but in one of `blindOnce` times, and where that
/// cannot be, by the fuzzer's own ways, which know of no lines.
inline std::size_t mutate(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed,
                          unsigned blindOnce) {
    std::mt19937 random(seed);
    if (random() % blindOnce != 0) {
        const std::string_view bytes(reinterpret_cast<const char*>(data), size);
        if (const auto length = put(mutatedProject(bytes, random), data, most); length > 0)
            return length;
    }
    return LLVMFuzzerMutate(data, size, most);
}

}  // namespace velna::fuzz
