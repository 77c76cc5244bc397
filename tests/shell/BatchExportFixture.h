#pragma once

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/Progress.h"
#include "shell/BatchExport.h"
#include "shell/ExportKinds.h"
#include "shell/ExportTools.h"
#include "support/FakeImaging.h"
#include "support/RecordingPrinter.h"
#include "support/RecordingSurface.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

/// A printer that more than one command looks at.
class SharedPrinter : public RecordingPrinter {
public:
    SharedPrinter() : RecordingPrinter(190, 277) {}
};

/// Tools that keep what was asked of them.
class RecordingTools : public ExportTools {
public:
    class Picture : public DrawnPicture {
    public:
        Picture(RecordingTools& tools, SurfaceSize size)
            : tools_(tools), surface_(size.width, size.height) {}
        Surface& surface() override { return surface_; }
        bool encode(std::string& bytes, std::string& reason) override {
            tools_.linesDrawn = surface_.calls.size();
            reason = tools_.encodeFailure;
            bytes = std::string(1000, 'p');
            return reason.empty();
        }

    private:
        RecordingTools& tools_;
        RecordingSurface surface_;
    };

    Imaging& imaging() override { return pictures; }
    std::unique_ptr<DrawnPicture> picture(SurfaceSize size) override {
        return memory ? std::make_unique<Picture>(*this, size) : nullptr;
    }
    std::unique_ptr<PrinterSurface> printer(const std::string& file,
                                            const ExportRequest& /*request*/) override {
        printed.push_back(file);
        auto paper = std::make_unique<SharedPrinter>();
        paper->failure = printFailure;
        return paper;
    }
    Progress* watcher() override { return impatient ? &watch : nullptr; }
    void next(std::size_t number, std::size_t total, const std::string& project) override {
        told.push_back(std::to_string(number) + "/" + std::to_string(total) + " " + project);
    }
    void clear() override { ++cleared; }

    /// Ends the work after so many looks.
    struct Watch : Progress {
        bool step(long long /*done*/, long long /*total*/) override { return --patience > 0; }
        int patience = 0;
    };

    FakeImaging pictures;
    Watch watch;
    bool impatient = false;
    bool memory = true;
    std::string encodeFailure;
    std::string printFailure;
    std::vector<std::string> printed;
    std::vector<std::string> told;
    std::size_t linesDrawn = 0;
    int cleared = 0;
};

/// Exports by the command line, with what they said on standard error.
class BatchExport : public testing::Test {
protected:
    int run(const std::string& out, const std::string& kind,
            const std::vector<std::string>& projects) {
        request.out = out;
        request.kind = kindOfEnding(kind)->kind;
        request.projects = projects;
        testing::internal::CaptureStderr();
        const int status = exportProjects(request, tools);
        complaint = testing::internal::GetCapturedStderr();
        return status;
    }

    const std::string data = VELNA_TEST_DATA "/";
    const std::string current = data + "projects/current/";
    TemporaryFolder folder;
    RecordingTools tools;
    ExportRequest request;
    std::string complaint;
};

}  // namespace velna::test
