#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string_view>

namespace velna::fuzz {

/// What a run takes of many works, and in which of their forms: all in their first form, or a few
/// by a hash, so that runs stay short and the same input always does the same.
class Choice {
public:
    static Choice everything() { return Choice(0, true); }
    static Choice byHash(std::string_view bytes) {
        return Choice(std::hash<std::string_view>{}(bytes), false);
    }

    /// Whether work number `work` is done: all, or one in six.
    bool takes(std::size_t work) const { return all_ || mixed(work) % 6 == 0; }
    /// A form of it, from 0 to below `forms`.
    std::size_t form(std::size_t work, std::size_t forms) const {
        return all_ ? 0 : static_cast<std::size_t>(mixed(work) / 6 % forms);
    }

private:
    Choice(std::uint64_t hash, bool all) : hash_(hash), all_(all) {}

    /// Source: the finaliser of SplitMix64 by Steele, Lea and Flood, 2014.
    std::uint64_t mixed(std::size_t work) const {
        std::uint64_t z = hash_ + (work + 1) * 0x9e3779b97f4a7c15;
        z = (z ^ (z >> 30)) * 0xbf58476d1ce4e5b9;
        z = (z ^ (z >> 27)) * 0x94d049bb133111eb;
        return z ^ (z >> 31);
    }

    std::uint64_t hash_;
    bool all_;
};

}  // namespace velna::fuzz
