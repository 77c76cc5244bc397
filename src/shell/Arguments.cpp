#include "shell/Arguments.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <utility>

#include "common/Complaint.h"
#include "common/Version.h"

namespace velna {

namespace {

/// Options that the toolkit reads itself, each with a word behind it. A desktop restarts a program
/// of the last log-in with `-session`.
constexpr std::string_view toolkitOptions[] = {
    "-session",      "-platform", "-platformtheme", "-platformpluginpath", "-style",
    "-stylesheet",   "-display",  "-geometry",      "-qwindowicon",        "-qwindowgeometry",
    "-qwindowtitle", "-plugin",   "-name",          "-fontengine",
};

bool isToolkitOption(std::string_view word) {
    if (word.starts_with("--")) word.remove_prefix(1);
    return std::ranges::find(toolkitOptions, word) != std::ranges::end(toolkitOptions);
}

bool isOption(std::string_view word) {
    return word.size() > 1 && word.front() == '-';
}

/// The file from the root of the file system: where the program works may change.
std::string fullPath(const std::string& file) {
    std::error_code failure;
    const std::filesystem::path path = std::filesystem::absolute(file, failure);
    return failure ? file : path.lexically_normal().native();
}

Arguments refused(std::string problem) {
    return {Arguments::Wish::Refused, {}, std::move(problem)};
}

}  // namespace

Arguments Arguments::read(const std::vector<std::string>& words) {
    Arguments arguments;
    bool filesOnly = false;
    for (std::size_t i = 0; i < words.size(); ++i) {
        const std::string& word = words[i];
        if (filesOnly || !isOption(word)) {
            if (word.empty()) return refused("a file without a name");
            if (!arguments.file.empty()) return refused("one file at a time, please");
            arguments.file = fullPath(word);
        } else if (word == "--") {
            filesOnly = true;
        } else if (word == "--version") {
            return {Wish::Version, {}, {}};
        } else if (word == "--help") {
            return {Wish::Help, {}, {}};
        } else if (isToolkitOption(word)) {
            ++i;
        } else {
            return refused("unknown option " + word);
        }
    }
    return arguments;
}

std::string usageText() {
    return "Usage: velna [FILE]\n"
           "       velna --help | --version\n"
           "\n"
           "Draws radio-controlled model aircraft. FILE is opened as the command Open does it:\n"
           "a project (.vln) takes the place of the default aircraft, an airfoil (.xy) or a\n"
           "picture goes onto its first wing.\n";
}

std::string versionLine() {
    return std::string("Velna ") + versionText + "\n";
}

int answer(const Arguments& arguments) {
    if (arguments.wish == Arguments::Wish::Refused) {
        complain(arguments.problem);
        std::fputs(usageText().c_str(), stderr);
        return 2;
    }
    const bool version = arguments.wish == Arguments::Wish::Version;
    const std::string text = version ? versionLine() : usageText();
    const bool written = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return written ? 0 : 1;
}

}  // namespace velna
