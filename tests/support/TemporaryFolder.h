#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace velna::test {

/// A folder of its own for the files of one test, gone with it.
class TemporaryFolder {
public:
    TemporaryFolder() {
        std::string name = (std::filesystem::temp_directory_path() / "velna-test-XXXXXX").string();
        path_ = std::string(::mkdtemp(name.data())) + "/";
    }
    ~TemporaryFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    /// With its "/".
    const std::string& path() const { return path_; }
    std::string operator/(const std::string& name) const { return path_ + name; }

    /// How many files, folders and links lie in it.
    long long count() const {
        return std::distance(std::filesystem::directory_iterator(path_), {});
    }

private:
    std::string path_;
};

/// The bytes of a file, empty where there is none.
inline std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

}  // namespace velna::test
