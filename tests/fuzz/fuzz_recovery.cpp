// Any bytes as a recovery file, as they are and with the right sum behind them: what can be read is
// written, read and written again. A file of which one byte has changed is refused.
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <string_view>

#include "FuzzModel.h"
#include "ProjectMutator.h"
#include "persistence/RecoveryFile.h"

namespace velna::fuzz {
namespace {

constexpr std::string_view tailHead = "# Sum ";
constexpr std::size_t tailSize = tailHead.size() + 16 + 2;

/// The bytes with a sum that is right behind them, in the place of any other.
/// Source: the FNV-1a hash of 64 bits by Fowler, Noll and Vo.
std::string sealed(std::string bytes) {
    const auto end = bytes.size() - std::min(bytes.size(), tailSize);
    if (std::string_view(bytes).substr(end).starts_with(tailHead)) bytes.resize(end);
    std::uint64_t sum = 0xcbf29ce484222325;
    for (const char c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001b3;
    std::string digits(16, '0');
    char text[16];
    const auto* const last = std::to_chars(text, text + sizeof text, sum, 16).ptr;
    digits.resize(16 - static_cast<std::size_t>(last - text));
    digits.append(text, static_cast<std::size_t>(last - text));
    return bytes.append(tailHead).append(digits).append("\r\n");
}

std::string written(const UnsavedWork& work) {
    const Outcome outcome = RecoveryFile::write(work, scratchFolder() + savedName);
    if (!outcome.isDone()) broken("not kept: " + outcome.reason());
    return takeScratchFiles()[savedName];
}

/// Whether `bytes` were taken for a recovery file, and what was in it.
bool taken(const std::string& bytes, UnsavedWork& work) {
    try {
        work = RecoveryFile::readBytes(bytes);
        return true;
    } catch (const ReadFailure& failure) {
        if (std::string_view(failure.what()).empty()) broken("refused without a word");
        return false;
    }
}

void expectRefusedWhereChanged(std::string bytes) {
    const std::size_t place = std::hash<std::string>{}(bytes) % bytes.size();
    bytes[place] = static_cast<char>(bytes[place] ^ 1);
    UnsavedWork work;
    if (taken(bytes, work)) broken("a damaged file is taken for a whole one");
}

void work(const std::string& bytes) {
    UnsavedWork first;
    if (!taken(bytes, first)) return;
    expectRefusedWhereChanged(bytes);
    if (!isSmall(first.project)) return;
    // An old record may promise more airfoil points than there are; the first reading settles that.
    UnsavedWork second;
    if (!taken(written(first), second)) broken("a kept file cannot be read");
    UnsavedWork third;
    const std::string again = written(second);
    if (!taken(again, third) || written(third) != again) broken("kept again it is another file");
    if (second.name != first.name ||
        second.project.projectDirectory != first.project.projectDirectory)
        broken("name or folder have changed");
}

/// Changes the project in the bytes as a project, or the rest by the fuzzer's own ways.
std::size_t mutateKept(std::uint8_t* data, std::size_t size, std::size_t most, unsigned seed) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    const std::size_t begin = bytes.find("# VELNA File");
    if (begin == bytes.npos || seed % 3 == 0) return LLVMFuzzerMutate(data, size, most);
    return begin + mutate(data + begin, size - begin, most - begin, seed, 4);
}

}  // namespace
}  // namespace velna::fuzz

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t most, unsigned seed) {
    return velna::fuzz::mutateKept(data, size, most, seed);
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(data, data + size);
    velna::fuzz::work(bytes);
    velna::fuzz::work(velna::fuzz::sealed(bytes));
    return 0;
}
