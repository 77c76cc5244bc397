#include "shell/Arguments.h"

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <utility>

#include "common/Complaint.h"
#include "common/ReplacedFile.h"
#include "common/Version.h"
#include "shell/CommandOptions.h"
#include "shell/ExportKinds.h"

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
    Arguments arguments;
    arguments.wish = Arguments::Wish::Refused;
    arguments.problem = std::move(problem);
    return arguments;
}

std::string inQuotes(std::string_view word) {
    return "\"" + std::string(word) + "\"";
}

/// The words one by one.
class WordReader {
public:
    explicit WordReader(const std::vector<std::string>& words) : words_(words) {}

    Arguments read() {
        while (next_ < words_.size() && problem_.empty() && !answered()) takeWord(words_[next_++]);
        if (answered()) return arguments_;
        if (problem_.empty()) settle();
        return problem_.empty() ? arguments_ : refused(problem_);
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
        } else if (!option->repeatable && wasGiven(*option)) {
            problem_ = std::string(option->name) + " is given twice";
        } else if (!*option->argument) {
            option->take(arguments_, {});
        } else if (joined) {
            takeArgument(*option, word.substr(sign + 1));
        } else if (next_ == words_.size()) {
            problem_ = std::string(option->name) + " needs " + option->argument;
        } else {
            takeArgument(*option, words_[next_++]);
        }
        if (option) given_.push_back(option);
    }

    void takeArgument(const OptionRow& option, const std::string& word) {
        if (!option.take(arguments_, word))
            problem_ =
                std::string(option.name) + " takes " + option.argument + ", not " + inQuotes(word);
    }

    bool wasGiven(const OptionRow& option) const {
        return std::ranges::find(given_, &option) != given_.end();
    }

    /// All words are read: they must go together.
    void settle() {
        if (arguments_.wish == Wish::Export) return settleExport();
        if (!given_.empty()) {
            problem_ = std::string(given_.front()->name) + " makes no sense without --export";
        } else if (files_.size() > 1) {
            problem_ = "one file at a time, please";
        } else if (!files_.empty()) {
            arguments_.file = fullPath(files_.front());
        }
    }

    void settleExport() {
        ExportRequest& exports = arguments_.exports;
        exports.projects = files_;
        problem_ = kindProblem();
        if (!problem_.empty()) return;
        for (const OptionRow* option : given_) {
            if (fits(*option, exports.kind)) continue;
            problem_ = std::string(option->name) + " makes no sense for ." + kindName();
            return;
        }
        if (exports.kind == ExportKind::Plans && Plans::tickedNames(exports.plans).empty()) {
            problem_ = "plans need --plan " + std::string(optionNamed("--plan")->argument);
        } else if (exports.landscape && !exports.sheet.named) {
            problem_ = "--landscape makes no sense for a --paper of WxH";
        } else if (files_.empty()) {
            problem_ = "--export needs a project";
        }
    }

    /// Takes the kind from the ending, where it is not told. Both must not contradict each other.
    std::string kindProblem() {
        ExportRequest& exports = arguments_.exports;
        const std::string title = titleOf(exports.out);
        const auto point = title.rfind('.');
        const ExportKindRow* const kind =
            point == std::string::npos ? nullptr : kindOfEnding(title.substr(point + 1));
        const bool told = wasGiven(*optionNamed("--as"));
        if (!kind && !told)
            return inQuotes(exports.out) + " does not tell its kind; --as KIND does";
        if (kind && told && kind->kind != exports.kind)
            return "--as " + std::string(kindName()) + " contradicts the ending of " +
                   inQuotes(exports.out);
        if (kind) exports.kind = kind->kind;
        return {};
    }

    const char* kindName() const { return rowOf(arguments_.exports.kind).ending; }

    const std::vector<std::string>& words_;
    std::size_t next_ = 0;
    Arguments arguments_;
    std::string problem_;
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
           "       velna --help | --version\n";
}

std::string versionLine() {
    return std::string("Velna ") + versionText + "\n";
}

int answer(const Arguments& arguments) {
    if (arguments.wish == Arguments::Wish::Refused) {
        complain(arguments.problem);
        std::fputs(usageText().c_str(), stderr);
        std::fputs("velna --help tells more.\n", stderr);
        return 2;
    }
    const bool version = arguments.wish == Arguments::Wish::Version;
    const std::string text = version ? versionLine() : helpText();
    const bool written = std::fputs(text.c_str(), stdout) >= 0 && std::fflush(stdout) == 0;
    return written ? 0 : 1;
}

}  // namespace velna
