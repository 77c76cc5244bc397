#include "support/Holds.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cctype>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <stdexcept>
#include <system_error>
#include <utility>

#include <unistd.h>

#if defined(__SANITIZE_ADDRESS__)
#define VELNA_SEES_LEAKS 1
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define VELNA_SEES_LEAKS 1
#endif
#endif
#ifdef VELNA_SEES_LEAKS
#include <sanitizer/lsan_interface.h>
#endif

#include "support/Unzip.h"

namespace velna::fuzz {
namespace {

template <class Number>
Number numberAt(std::string_view bytes, std::size_t place) {
    if (place > bytes.size() || bytes.size() - place < sizeof(Number))
        broken("a file ends in the midst of a number");
    Number number{};
    std::memcpy(&number, bytes.data() + place, sizeof(Number));
    return number;
}

constexpr std::size_t stlHead = 84;
constexpr std::size_t stlRecord = 50;
constexpr std::size_t stlCorners = 12;  // bytes of the normal before them

void expectFiniteStl(const std::string& name, std::string_view bytes) {
    const std::size_t count = numberAt<std::uint32_t>(bytes, stlHead - sizeof(std::uint32_t));
    if (bytes.size() != stlHead + count * stlRecord) broken(name + " has another length than told");
    for (std::size_t triangle = 0; triangle < count; ++triangle) {
        for (std::size_t n = 0; n < 12; ++n) {
            const std::size_t place = stlHead + triangle * stlRecord + n * sizeof(float);
            if (!std::isfinite(numberAt<float>(bytes, place)))
                broken(name + " has a number that is not finite");
        }
    }
}

/// Its numbers and places of points are whole words; no place comes near what a float has for an
/// infinity. It is expected to have no pictures.
void expectFiniteGlb(const std::string& name, std::string_view bytes) {
    constexpr std::size_t chunks = 12;
    constexpr std::size_t chunkHead = 8;
    constexpr std::uint32_t infinity = 0x7f800000;
    const std::size_t described = numberAt<std::uint32_t>(bytes, chunks);
    const std::string_view description = bytes.substr(chunks + chunkHead, described);
    if (const auto word = unfiniteWord(description); !word.empty())
        broken(name + " says " + std::string(word));
    for (std::size_t place = chunks + chunkHead + described + chunkHead; place < bytes.size();
         place += sizeof(std::uint32_t)) {
        if ((numberAt<std::uint32_t>(bytes, place) & infinity) == infinity)
            broken(name + " has a number that is not finite");
    }
}

/// Whatever is packed in it.
void expectFiniteZip(const std::string& name, std::string_view bytes) {
    try {
        for (const auto& [entry, text] : test::unzipped(bytes))
            expectFinite(name + "/" + entry, text);
    } catch (const std::runtime_error& flaw) {
        broken(name + ": " + flaw.what());
    }
}

/// Gone with the program, unless that crashes.
struct ScratchFolder {
    ScratchFolder() { std::filesystem::create_directories(path); }
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    static std::string place() {
        const bool memory = std::filesystem::is_directory("/dev/shm");
        const auto parent =
            memory ? std::filesystem::path("/dev/shm") : std::filesystem::temp_directory_path();
        return parent / ("velna-fuzz-" + std::to_string(::getpid()) + "/");
    }

    std::string path = place();
};

}  // namespace

const std::string& scratchFolder() {
    static const ScratchFolder folder;
    return folder.path;
}

std::map<std::string, std::string> takeScratchFiles() {
    std::map<std::string, std::string> files;
    for (const auto& entry : std::filesystem::directory_iterator(scratchFolder())) {
        std::ifstream file(entry.path(), std::ios::binary);
        files[entry.path().filename()] = {std::istreambuf_iterator<char>(file), {}};
    }
    for (const auto& [name, bytes] : files) std::filesystem::remove(scratchFolder() + name);
    return files;
}

void broken(const std::string& what) {
    std::cerr << "broken: " << what << '\n';
    std::abort();
}

std::string_view unfiniteWord(std::string_view bytes) {
    const auto isLetter = [](char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; };
    const auto isWordPart = [&](char c) {
        return isLetter(c) || c == '_' || c == '"' || ('0' <= c && c <= '9');
    };
    for (const auto* at = bytes.begin(); at != bytes.end();) {
        at = std::find_if(at, bytes.end(), isWordPart);
        const auto* const end = std::find_if_not(at, bytes.end(), isWordPart);
        std::string word(at, end);
        std::transform(word.begin(), word.end(), word.begin(),
                       [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
        if (word == "nan" || word == "inf" || word == "infinity") return {at, end};
        at = end;
    }
    return {};
}

void expectFinite(const std::string& name, std::string_view bytes) {
    if (name.ends_with(".stl")) return expectFiniteStl(name, bytes);
    if (name.ends_with(".glb")) return expectFiniteGlb(name, bytes);
    if (name.ends_with(".3mf")) return expectFiniteZip(name, bytes);
    std::string text(bytes);
    // Their numbers stand in quotes themselves.
    if (name.ends_with(".svg") || name.ends_with(".model")) std::ranges::replace(text, '"', ' ');
    if (const auto word = unfiniteWord(text); !word.empty())
        broken(name + " says " + std::string(word));
}

void expectClosedStl(const std::string& name, std::string_view bytes) {
    using Corner = std::array<std::uint32_t, 3>;
    std::map<std::pair<Corner, Corner>, long long> uses;
    for (std::size_t record = stlHead; record < bytes.size(); record += stlRecord) {
        std::array<Corner, 3> corners{};
        for (std::size_t n = 0; n < corners.size(); ++n)
            corners[n] = numberAt<Corner>(bytes, record + stlCorners + n * sizeof(Corner));
        for (std::size_t n = 0; n < corners.size(); ++n) {
            const Corner& from = corners[n];
            const Corner& to = corners[(n + 1) % corners.size()];
            uses[std::minmax(from, to)] += from < to ? 1 : -1;
        }
    }
    for (const auto& [edge, balance] : uses)
        if (balance != 0) broken(name + " has an open edge");
}

void expectWord(const std::string& what, const Outcome& outcome) {
    if (outcome.isDone()) return;
    if (outcome.isCancelled()) broken(what + " is cancelled by nobody");
    if (outcome.reason().empty()) broken(what + " fails without a word");
    if (!unfiniteWord(outcome.reason()).empty()) broken(what + " says: " + outcome.reason());
}

void expectNoLeak() {
#ifdef VELNA_SEES_LEAKS
    static int calls = 0;
    if (calls++ % 50 == 0 && __lsan_do_recoverable_leak_check() != 0) broken("memory is lost");
#endif
}

void expectFixedPoint(const std::function<std::string()>& save,
                      const std::function<bool(const std::string&)>& read) {
    const std::string first = save();
    if (!read(first)) broken("a saved project cannot be read:\n" + first);
    // An old record may promise more airfoil points than there are; the first reading settles that.
    const std::string second = save();
    if (second == first) return;
    if (!read(second) || save() != second)
        broken("a project changes from one saving to the next:\n" + second);
}

}  // namespace velna::fuzz
