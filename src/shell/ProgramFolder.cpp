#include "shell/ProgramFolder.h"

#include <filesystem>

#include "common/ReplacedFile.h"

namespace velna {

bool isInstalled(const std::string& programFolder) {
    const std::filesystem::path folder(programFolder);
    return folder.parent_path().parent_path().filename() == "libexec";
}

bool keepsFiles(const std::string& programFolder) {
    return !isInstalled(programFolder) && takesFiles(programFolder);
}

}  // namespace velna
