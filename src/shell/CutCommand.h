#pragma once

#include <string>
#include <vector>

#include "model/Project.h"
#include "shell/Ports.h"
#include "shell/Settings.h"

namespace velna {

/// The kinds of Save that are for machines that cut.
struct CutCommand {
    const Project& project;
    Settings& settings;
    const ShellPorts& ports;

    /// Their captions and patterns, behind those of the other kinds.
    static std::string filter();

    /// Saves kind `kind`, from 0, after the question what ribs and sections shall be like, which is
    /// remembered. What could not be made as it was wished is told in one message.
    void save(int kind, const std::string& file);

private:
    bool mayReplace(const std::vector<std::string>& files) const;
};

/// The first few of many lines, and how many more there are.
std::string firstLines(const std::vector<std::string>& lines);

}  // namespace velna
