#include "shell/DialogFolders.h"

#include <filesystem>

#include "common/Complaint.h"

namespace velna {
namespace {

const char* key(FilePurpose purpose) {
    switch (purpose) {
        case FilePurpose::Project:
            return "folder-project";
        case FilePurpose::Airfoil:
            return "folder-airfoil";
        case FilePurpose::Texture:
            return "folder-texture";
        case FilePurpose::Export:
            return "folder-export";
        case FilePurpose::Background:
            return "folder-background";
    }
    return "";
}

}  // namespace

std::string DialogFolders::of(FilePurpose purpose) const {
    std::string folder = settings.text(key(purpose));
    std::error_code ignored;
    return std::filesystem::is_directory(folder, ignored) ? folder : std::string();
}

void DialogFolders::remember(FilePurpose purpose, const std::string& folder) {
    if (settings.text(key(purpose)) == folder) return;
    const Outcome stored = settings.store(key(purpose), {folder});
    if (stored.hasFailed())
        complain("the folder of the dialog could not be remembered", stored.reason());
}

}  // namespace velna
