#include "shell/Arguments.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "common/Complaint.h"
#include "common/Version.h"
#include "shell/CommandOptions.h"
#include "shell/ExportFitting.h"

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

/// The words one by one.
class WordReader {
public:
    explicit WordReader(const std::vector<std::string>& words) : words_(words) {}

    Arguments read() {
        while (next_ < words_.size() && problem_.empty() && !answered()) takeWord(words_[next_++]);
        if (answered()) return arguments_;
        if (problem_.empty()) settle();
        if (problem_.empty()) return arguments_;
        Arguments refused;
        refused.wish = Wish::Refused;
        refused.problem = problem_;
        refused.usageHelps = usageHelps_;
        return refused;
    }

private:
    using Wish = Arguments::Wish;

    bool answered() const {
        return arguments_.wish == Wish::Version || arguments_.wish == Wish::Help;
    }

    void takeWord(const std::string& word) {
        if (filesOnly_ || !isOption(word)) {
            if (word.empty()) problem_ = "a file without a name";
            files_.push_back(word);
        } else if (word == "--") {
            filesOnly_ = true;
        } else if (isToolkitOption(word)) {
            ++next_;
        } else {
            takeOption(word);
        }
    }

    /// "--view side", or "--view=side".
    void takeOption(const std::string& word) {
        const auto sign = word.find('=');
        const OptionRow* const option = optionNamed(word.substr(0, sign));
        const bool joined = sign != std::string::npos;
        if (!option || (joined && !*option->argument)) {
            problem_ = "unknown option " + word;
            return;
        }
        if (!option->repeatable && wasGiven(*option)) {
            refuse(std::string(option->name) + " is given twice");
        } else if (!*option->argument || joined) {
            take(*option, joined ? word.substr(sign + 1) : std::string());
        } else if (next_ == words_.size()) {
            refuse(std::string(option->name) + " needs " + option->argument);
        } else {
            take(*option, words_[next_++]);
        }
        given_.push_back(option);
    }

    void take(const OptionRow& option, const std::string& word) {
        const Outcome taken = option.take(arguments_, option, word);
        if (taken.hasFailed()) refuse(taken.reason());
    }

    /// Who has got the call right and one word of it wrong need not read how calls are made.
    void refuse(std::string problem) {
        problem_ = std::move(problem);
        usageHelps_ = false;
    }

    bool wasGiven(const OptionRow& option) const {
        return std::ranges::find(given_, &option) != given_.end();
    }
    bool wasGiven(const char* name) const { return wasGiven(*optionNamed(name)); }

    /// All words are read: they must go together.
    void settle() {
        const bool exports = wasGiven("--export");
        const bool info = wasGiven("--info");
        if (exports && info) return refuse("--export and --info are two calls");
        for (const OptionRow* option : given_) {
            if (option->use == OptionUse::Export && !exports)
                return refuse(std::string(option->name) + " makes no sense without --export");
            if (option->use == OptionUse::Info && !info)
                return refuse(std::string(option->name) + " makes no sense without --info");
        }
        if (exports) {
            settleExport();
        } else if (files_.size() > 1) {
            problem_ = "one file at a time, please";
        } else if (info) {
            if (files_.empty()) return refuse("--info needs a project");
            arguments_.info.project = files_.front();
        } else if (!files_.empty()) {
            arguments_.file = fullPath(files_.front());
        }
    }

    void settleExport() {
        arguments_.exports.projects = files_;
        const Outcome fitting = fitTogether(arguments_.exports, given_);
        if (fitting.hasFailed()) return refuse(fitting.reason());
        if (files_.empty()) refuse("--export needs a project");
    }

    const std::vector<std::string>& words_;
    std::size_t next_ = 0;
    Arguments arguments_;
    std::string problem_;
    bool usageHelps_ = true;
    std::vector<std::string> files_;
    std::vector<const OptionRow*> given_;
    bool filesOnly_ = false;
};

}  // namespace

Arguments Arguments::read(const std::vector<std::string>& words) {
    return WordReader(words).read();
}

std::string usageText() {
    return "Usage: velna [FILE]\n"
           "       velna --export OUT [OPTION]... PROJECT...\n"
           "       velna --info [--json] [--mass G] [--speed KMH] PROJECT\n"
           "       velna --help | --version\n";
}

std::string versionLine() {
    return std::string("Velna ") + versionText + "\n";
}

int tellAtOnce(const std::string& text) {
    const bool written = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    if (!written) complain("standard output", std::generic_category().message(errno));
    return written ? 0 : 1;
}

int answer(const Arguments& arguments) {
    if (arguments.wish == Arguments::Wish::Refused) {
        complain(arguments.problem);
        if (arguments.usageHelps)
            std::fputs((usageText() + "velna --help tells more.\n").c_str(), stderr);
        return 2;
    }
    const bool version = arguments.wish == Arguments::Wish::Version;
    return tellAtOnce(version ? versionLine() : helpText());
}

}  // namespace velna
