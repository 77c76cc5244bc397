#pragma once

#include <string>

#include "support/ShellFixture.h"

namespace velna::test {

/// A started program whose file dialogs are answered from a script.
class FileCommandsFixture : public ShellFixture {
protected:
    void SetUp() override {
        ShellFixture::SetUp();
        start();
    }
    std::string file(const std::string& title) const { return (folder / title).string(); }
    void answerFile(const std::string& path, int filterIndex) {
        dialogs.files.push_back({path, filterIndex});
    }
    void saveAs(const std::string& title, int filterIndex) {
        answerFile(file(title), filterIndex);
        program.toolbar.click(Toolbar::Key::Save);
    }
};

}  // namespace velna::test
