// Runs stored scenarios and scenes again, and writes, compares or accepts what the program gives.

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <vector>

#include "Replay.h"
#include "common/ReplacedFile.h"

namespace velna::test {
namespace {

constexpr const char* usage =
    "usage: velna_replay IN.json OUT.json [--lines] | velna_replay --check [FILE.json...] | "
    "velna_replay --accept [FILE.json...]";

enum ExitStatus { same = 0, different = 1, notDone = 2 };

struct Arguments {
    std::vector<std::string> files;
    bool lines = false;
    bool check = false;
    bool accept = false;
    bool understood = true;
};

Arguments read(const std::vector<std::string>& words) {
    Arguments read;
    for (const std::string& word : words) {
        if (word == "--lines")
            read.lines = true;
        else if (word == "--check")
            read.check = true;
        else if (word == "--accept")
            read.accept = true;
        else if (word.starts_with("-") || word.empty())
            read.understood = false;
        else
            read.files.push_back(word);
    }
    if (read.check || read.accept)
        read.understood = read.understood && !read.lines && read.check != read.accept;
    else
        read.understood = read.understood && read.files.size() == 2;
    return read;
}

/// What is stored with the tests, but for the tables that are no scene.
std::vector<std::string> storedFiles() {
    const std::filesystem::path data(VELNA_TEST_DATA);
    std::vector<std::string> files{data / "views" / "views.json"};
    for (const auto& entry : std::filesystem::directory_iterator(data / "scene"))
        if (entry.path().extension() == ".json" && entry.path().filename() != "cases.json")
            files.push_back(entry.path());
    std::ranges::sort(files);
    return files;
}

/// One line, and without the reader's own prefix.
std::string inWords(std::string reason) {
    for (auto at = reason.find("[json.exception."); at != std::string::npos;
         at = reason.find("[json.exception."))
        reason.erase(at, reason.find("] ", at) + 2 - at);
    std::ranges::replace_if(
        reason, [](char c) { return static_cast<unsigned char>(c) < ' '; }, ' ');
    return reason;
}

/// Runs `work` on the file; what stops it is told in one line.
template <class Work>
int on(const std::string& file, Work work) {
    try {
        return work();
    } catch (const std::exception& wrong) {
        std::cerr << "velna_replay: " << file << ": " << inWords(wrong.what()) << "\n";
        return notDone;
    }
}

void print(const std::string& file, const std::vector<std::string>& differences) {
    for (const std::string& line : differences) std::cout << file << ": " << line << "\n";
}

int write(const Arguments& arguments) {
    const std::string& in = arguments.files[0];
    Document result;
    const int read = on(in, [&] {
        result = replayed(readDocument(in), folderOf(in), arguments.lines);
        return same;
    });
    if (read != same) return read;
    return on(arguments.files[1], [&] {
        writeDocument(arguments.files[1], result);
        return same;
    });
}

int check(const std::string& file) {
    return on(file, [&] {
        const std::vector<std::string> found = differencesIn(readDocument(file), folderOf(file));
        print(file, found);
        return found.empty() ? same : different;
    });
}

int accept(const std::string& file) {
    return on(file, [&] {
        const Document document = readDocument(file);
        const Document result = accepted(document, folderOf(file));
        if (result == document) return same;
        print(file, differencesIn(document, folderOf(file), true));
        writeDocument(file, result);
        return same;
    });
}

int run(const std::vector<std::string>& words) {
    const Arguments arguments = read(words);
    if (!arguments.understood) {
        std::cerr << usage << "\n";
        return notDone;
    }
    if (!arguments.check && !arguments.accept) return write(arguments);
    // Nobody looks at what a server accepts.
    if (arguments.accept && std::getenv("CI")) {
        std::cerr << "velna_replay: nothing is accepted where CI is set\n";
        return notDone;
    }
    int status = same;
    for (const std::string& file : arguments.files.empty() ? storedFiles() : arguments.files)
        status = std::max(status, arguments.check ? check(file) : accept(file));
    return status;
}

}  // namespace
}  // namespace velna::test

int main(int count, char** words) {
    return velna::test::run({words + 1, words + count});
}
