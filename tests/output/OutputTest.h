#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "common/Progress.h"
#include "output/Exports.h"
#include "output/Plans.h"
#include "preview/PictureCopies.h"
#include "support/InHand.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

/// Pictures by their file's name, none of which is really decoded: an encoded picture is a line
/// that tells its source, size and turn.
class NamedPictures : public Imaging {
public:
    bool load(const std::string& file, std::string& reason) override;
    int width() const override { return width_; }
    int height() const override { return height_; }
    void rotateQuarter() override;
    void resize(int width, int height) override;
    PictureBytes pixels() override { return {}; }
    bool encode(PictureFormat format, std::string& bytes, std::string& reason) override;
    void showProgress(int) override {}
    void hideProgress() override {}
    void showError(const std::string&) override {}

    std::vector<std::string> loaded;
    /// Whether pictures can be encoded.
    bool encodes = true;

private:
    std::string title_;
    int width_ = 0;
    int height_ = 0;
    int turns_ = 0;
};

/// A watcher that cancels at its `cancelAt`th question, or never.
class ScriptedProgress : public Progress {
public:
    bool step(long long done, long long total) override;

    int cancelAt = 0;
    int questions = 0;
    long long lastDone = 0;
    long long lastTotal = 0;
};

/// An export as it stands in a row of tests: the project in hand into a file; the reason of a
/// failure.
using Export = Outcome (*)(const Project& project, const std::string& file, Progress* watcher);

/// A test of what leaves the program: the default aircraft with its solids, a folder to write to,
/// no watcher, and nothing ticked in the Print dialog.
class OutputTest : public ::testing::Test {
protected:
    OutputTest();

    /// The aircraft `name` of the test data as it stands after its project was opened, its pictures
    /// taken in by the 3D picture.
    void load(const std::string& name);

    /// The model with all fuselages shown and all solids built, as the command exports it.
    Outcome exportWhole(const std::string& file);
    /// One job, and nothing else ticked, as the command prints it.
    Outcome printJob(PlanJob job, PrinterSurface& printer, SurfaceSize area = {});
    /// What is ticked, as the command prints it.
    Outcome printPlans(PrinterSurface& printer);

    TemporaryFolder folder;
    NamedPictures pictures;
    PictureStore store{&pictures, {}};
    Progress* progress = nullptr;
    PrintSelectRecord PrintSelect;
};

/// The expected bytes of an export in the test data.
std::string expectedExport(const std::string& name);

}  // namespace velna::test
