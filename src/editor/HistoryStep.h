#pragma once

#include <exception>
#include <string>
#include <string_view>
#include <utility>

#include "common/MemoryEnds.h"
#include "editor/Main.h"

namespace velna {

/// While one stands, what is done to the aircraft belongs to one step of the history, which the
/// outermost names.
class HistoryStep {
public:
    /// Steps of the same `visit` become one, unless that is 0.
    HistoryStep(MainForm& form, std::string_view name, unsigned visit = 0)
        : form_(form), visit_(visit) {
        const bool outermost = !form.history.isOpen();
        std::string text(name);
        form.history.open(form.project);
        if (outermost) form.history.name(std::move(text));
    }
    /// What an exception leaves half done is no step.
    ~HistoryStep() {
        if (std::uncaught_exceptions() > exceptions_) {
            form_.history.leave();
            return;
        }
        form_.history.close(form_.project, visit_);
        asFarAsMemoryGoes([this] { form_.showHistory(); });
    }
    HistoryStep(const HistoryStep&) = delete;
    HistoryStep& operator=(const HistoryStep&) = delete;

private:
    MainForm& form_;
    unsigned visit_;
    int exceptions_ = std::uncaught_exceptions();
};

}  // namespace velna
