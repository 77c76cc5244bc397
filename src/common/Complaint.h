#pragma once

#include <string>

namespace velna {

/// Writes the line "velna: TEXT" on standard error, for whoever runs the program from a terminal.
void complain(const std::string& text);

/// The same with what went wrong and why: "velna: SUBJECT: REASON".
void complain(const std::string& subject, const std::string& reason);

}  // namespace velna
