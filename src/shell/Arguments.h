#pragma once

#include <string>
#include <vector>

#include "shell/ExportRequest.h"
#include "shell/InfoCommand.h"

namespace velna {

/// What the command line asks for.
struct Arguments {
    enum class Wish {
        Run,      ///< the window, with `file` where one is named
        Export,   ///< files without a window, as `exports` tells
        Info,     ///< a project's figures on standard output, as `info` tells
        Version,  ///< the program's version on standard output
        Help,     ///< how it is called, on standard output
        Refused   ///< nothing: `problem` tells why
    };

    Wish wish = Wish::Run;
    std::string file;         ///< full path; empty for none
    std::string problem;      ///< the words that follow the program's name in its complaint
    bool usageHelps = true;   ///< of `Refused`: how the program is called follows them
    ExportRequest exports{};  ///< of `Export`
    InfoRequest info{};       ///< of `Info`

    /// Reads the words behind the program's name. Those that the toolkit or a desktop's log-in
    /// gives are passed over. Behind "--" each word is a file. The first word that ends the program
    /// at once (`Version`, `Help`) counts, and after it nothing.
    static Arguments read(const std::vector<std::string>& words);
};

/// How the program is called: a few lines, for a complaint.
std::string usageText();

/// The version as one line.
std::string versionLine();

/// Writes `text` on standard output. Returns the status to end with: 0, or 1, told of on standard
/// error, where it could not be written.
int tellAtOnce(const std::string& text);

/// Says on standard output or standard error what is asked for, and returns the status to end with:
/// 0, 1 where that could not be written, 2 for `Refused`.
int answer(const Arguments& arguments);

}  // namespace velna
