#include "shell/DroppedFiles.h"

#include <charconv>

#include "common/ValueReader.h"

namespace velna {

namespace {

constexpr std::string_view fileScheme = "file:";
constexpr std::string_view thisHost = "localhost";

/// The bytes that a coded address stands for; a "%" without two digits is itself.
std::string decoded(std::string_view text) {
    std::string bytes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        unsigned value = 0;
        const char* const digits = text.data() + i + 1;
        if (text[i] == '%' && i + 2 < text.size() &&
            std::from_chars(digits, digits + 2, value, 16).ptr == digits + 2) {
            bytes += static_cast<char>(value);
            i += 2;
        } else {
            bytes += text[i];
        }
    }
    return bytes;
}

DroppedItem itemOf(std::string_view address) {
    const DroppedItem elsewhere{std::string(address), false};
    if (!address.starts_with(fileScheme)) return elsewhere;
    std::string_view path = address.substr(fileScheme.size());
    if (path.starts_with("//")) {
        path.remove_prefix(2);
        if (path.starts_with(thisHost)) path.remove_prefix(thisHost.size());
    }
    const std::string name = decoded(path);
    // No name holds a zero byte: what stands before one is another file.
    if (!name.starts_with('/') || name.find('\0') != std::string::npos) return elsewhere;
    return {name, true};
}

}  // namespace

std::vector<DroppedItem> droppedItems(std::string_view uriList) {
    std::vector<DroppedItem> items;
    for (ValueReader lines(uriList); !lines.atEnd();) {
        const std::string_view line = lines.line();
        if (!line.empty() && line.front() != '#') items.push_back(itemOf(line));
    }
    return items;
}

}  // namespace velna
