#pragma once

#include <array>
#include <string>
#include <vector>

#include "common/Palette.h"
#include "output/PrinterSurface.h"

namespace velna::test {

/// One thing that a printer was told.
struct PrinterCall {
    enum class Kind { Start, Line, Text, NewPage, EndDoc, KillDoc };

    Kind kind = Kind::Line;
    std::array<double, 4> at{};  ///< ends of a line; place of a text in the first two
    Rgb colour;
    std::string text;  ///< the job's name, or what was written
};

/// Paper of a given size that keeps the ordered list of what it was told.
class RecordingPrinter : public PrinterSurface {
public:
    RecordingPrinter(double width, double height) : width_(width), height_(height) {}

    void setScaleMode(int mode) override { scaleMode = mode; }
    double ScaleWidth() const override { return width_; }
    double ScaleHeight() const override { return height_; }
    void Line(double x1, double y1, double x2, double y2, Rgb colour) override {
        calls.push_back({PrinterCall::Kind::Line, {x1, y1, x2, y2}, colour, {}});
    }
    void Text(double x, double y, const std::string& text) override {
        calls.push_back({PrinterCall::Kind::Text, {x, y, 0, 0}, {}, text});
    }
    void StartDoc(const std::string& name, Progress*) override {
        calls.push_back({PrinterCall::Kind::Start, {}, {}, name});
    }
    void NewPage() override { calls.push_back({PrinterCall::Kind::NewPage, {}, {}, {}}); }
    Outcome EndDoc() override {
        calls.push_back({PrinterCall::Kind::EndDoc, {}, {}, {}});
        return failure.empty() ? Outcome() : Outcome::failed(failure);
    }
    void KillDoc() override { calls.push_back({PrinterCall::Kind::KillDoc, {}, {}, {}}); }
    std::string error() const override { return failure; }

    int count(PrinterCall::Kind kind) const {
        int found = 0;
        for (const PrinterCall& call : calls) found += call.kind == kind ? 1 : 0;
        return found;
    }
    int pages() const { return count(PrinterCall::Kind::NewPage); }
    int lines() const { return count(PrinterCall::Kind::Line); }

    /// The names of the jobs that were begun.
    std::vector<std::string> jobs() const {
        std::vector<std::string> names;
        for (const PrinterCall& call : calls)
            if (call.kind == PrinterCall::Kind::Start) names.push_back(call.text);
        return names;
    }

    std::vector<PrinterCall> calls;
    int scaleMode = 0;
    std::string failure;  ///< what the printer says went wrong

private:
    double width_;
    double height_;
};

}  // namespace velna::test
