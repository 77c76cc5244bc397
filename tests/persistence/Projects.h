#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include "common/ValueReader.h"
#include "persistence/ProjectFile.h"
#include "preview/PictureCopies.h"
#include "support/FreshModel.h"
#include "support/TemporaryFolder.h"

namespace velna::test {

inline const std::string projectData = std::string(VELNA_TEST_DATA) + "/projects/";

inline nlohmann::json jsonOf(const std::string& path) {
    return nlohmann::json::parse(bytesOf(path));
}

/// The names, less `ending`, of the files in `folder` that end so, sorted.
inline std::vector<std::string> namesIn(const std::string& folder, const std::string& ending) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        const std::string name = entry.path().filename().string();
        if (name.ends_with(ending)) names.push_back(name.substr(0, name.size() - ending.size()));
    }
    std::sort(names.begin(), names.end());
    return names;
}

/// The lines of a project, without their ends.
inline std::vector<std::string> linesOf(const std::string& bytes) {
    std::vector<std::string> lines;
    ValueReader reader(bytes);
    while (!reader.atEnd()) lines.emplace_back(reader.line());
    return lines;
}

/// `lines` as the bytes of a file.
inline std::string joinedLines(const std::vector<std::string>& lines) {
    std::string bytes;
    for (const auto& line : lines) bytes += line + "\r\n";
    return bytes;
}

/// An imaging control that reads a picture where a file lies, and gives its name for its content.
class NamingImaging : public Imaging {
public:
    /// The pictures that were encoded.
    std::vector<std::string> saved;
    /// Whether every picture is there, wherever it is looked for.
    bool allThere = true;

    bool load(const std::string& file, std::string& reason) override {
        reason = "no such picture";
        file_ = file;
        return allThere || std::filesystem::is_regular_file(file);
    }
    int width() const override { return 64; }
    int height() const override { return 32; }
    void rotateQuarter() override {}
    void resize(int, int) override {}
    PictureBytes pixels() override { return {}; }
    bool encode(PictureFormat, std::string& bytes, std::string& reason) override {
        reason = "no form for it";
        bytes = file_;
        saved.push_back(file_);
        return encodes;
    }
    void showProgress(int) override {}
    void hideProgress() override {}
    void showError(const std::string&) override {}

    /// Whether pictures can be encoded.
    bool encodes = true;

private:
    std::string file_;
};

/// A test that starts from the default aircraft and has a folder for its files.
class ProjectTest : public FreshModel {
protected:
    TemporaryFolder folder;
    NamingImaging pictures;
    PictureStore store{&pictures, {}};

    /// Reads `bytes` as a project on top of a fresh default aircraft, and brings the manager's rows
    /// to the fuselages, as the Open command does; false where the read fails.
    static bool readBytes(const std::string& bytes) {
        resetModel();
        bool complete = false;
        try {
            complete = Plane::readProjectBytes(project, bytes);
        } catch (const ReadFailure&) {
        }
        ObjectList.update(Fuselages, nbFuselages);
        return complete;
    }

    /// The same from a file, with the message that comes of it.
    static std::string readFile(const std::string& path) {
        const std::string message = Plane::readProject(project, path).reason();
        ObjectList.update(Fuselages, nbFuselages);
        return message;
    }

    /// Saves the project to `path`; the reason of a failure.
    std::string save(const std::string& path) {
        return Plane::saveProject(project, path, store).reason();
    }

    /// The bytes that saving the model gives.
    std::string savedBytes() {
        const std::string path = folder / "saved.vln";
        EXPECT_EQ(save(path), "");
        return bytesOf(path);
    }
};

}  // namespace velna::test
