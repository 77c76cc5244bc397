#pragma once

#include <string>

#include "output/FiguresText.h"

namespace velna {

/// What `velna --info` is asked for.
struct InfoRequest {
    std::string project;  ///< as it was typed
    FiguresQuery query;
};

/// Tells a project's figures on standard output. Returns the status to end with: 0, or 1, told of
/// on standard error, where the project cannot be read or the figures cannot be written.
int tellFigures(const InfoRequest& request);

}  // namespace velna
