#include "shell/Settings.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <string_view>

#include "common/MemoryEnds.h"
#include "common/ReplacedFile.h"
#include "common/ValueReader.h"

namespace velna {
namespace {

constexpr const char* fileTitle = "settings.txt";
/// What has grown or was put in its place must not cost the start.
constexpr std::size_t mostBytes = 1 << 20;

/// A text may hold a line end (a file's name can), which would begin another entry.
std::string escaped(std::string_view text) {
    std::string line;
    for (const char letter : text) {
        if (letter == '\\') {
            line += "\\\\";
        } else if (letter == '\n') {
            line += "\\n";
        } else if (letter == '\r') {
            line += "\\r";
        } else {
            line += letter;
        }
    }
    return line;
}

std::string unescaped(std::string_view line) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (line[i] != '\\' || i + 1 == line.size()) {
            text += line[i];
            continue;
        }
        const char letter = line[++i];
        text += letter == 'n' ? '\n' : letter == 'r' ? '\r' : letter;
    }
    return text;
}

/// Nothing where the file cannot be read.
std::optional<std::map<std::string, std::vector<std::string>>> readEntries(
    const std::string& file) {
    std::map<std::string, std::vector<std::string>> entries;
    std::string bytes;
    try {
        bytes = readFileStart(file, mostBytes);
    } catch (const ReadFailure&) {
        return {};
    }
    for (ValueReader lines(bytes); !lines.atEnd();) {
        const std::string_view line = lines.line();
        const std::size_t sign = line.find('=');
        if (sign == std::string_view::npos || sign == 0) continue;
        entries[std::string(line.substr(0, sign))].push_back(unescaped(line.substr(sign + 1)));
    }
    return entries;
}

}  // namespace

void Settings::load(const std::string& folder) {
    folder_ = folder;
    entries_ = readEntries(folder_ + fileTitle).value_or(Entries());
}

std::vector<std::string> Settings::list(const std::string& key) const {
    const auto entry = entries_.find(key);
    return entry == entries_.end() ? std::vector<std::string>() : entry->second;
}

std::string Settings::text(const std::string& key) const {
    const auto entry = entries_.find(key);
    return entry == entries_.end() || entry->second.empty() ? std::string() : entry->second[0];
}

void Settings::readAgain(const std::string& key) {
    const Entries stored = readEntries(folder_ + fileTitle).value_or(Entries());
    if (const auto entry = stored.find(key); entry != stored.end()) entries_[key] = entry->second;
}

Outcome Settings::store(const std::string& key, const std::vector<std::string>& texts) {
    return failedIfMemoryEnds([&] { return write(key, texts); });
}

Outcome Settings::write(const std::string& key, const std::vector<std::string>& texts) {
    entries_[key] = texts;
    if (folder_.empty()) return {};
    std::error_code ignored;
    std::filesystem::create_directories(folder_, ignored);
    // What cannot be read this time must not be lost with it.
    Entries stored = readEntries(folder_ + fileTitle).value_or(entries_);
    stored[key] = texts;
    ReplacedFile file(folder_ + fileTitle);
    for (const auto& [name, values] : stored)
        for (const std::string& value : values) file.line(name + "=" + escaped(value));
    return file.commit() ? Outcome() : Outcome::failed(file.error());
}

}  // namespace velna
