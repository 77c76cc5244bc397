#include "shell/RecentFiles.h"

#include "common/Complaint.h"

namespace velna {

std::vector<std::string> RecentFiles::list() const {
    std::vector<std::string> files = settings.list(SettingKey::recent);
    if (files.size() > most) files.resize(most);
    return files;
}

void RecentFiles::add(const std::string& file) {
    // Another running program may have put some there meanwhile.
    settings.readAgain(SettingKey::recent);
    std::vector<std::string> files = list();
    std::erase(files, file);
    files.insert(files.begin(), file);
    if (files.size() > most) files.resize(most);
    store(files);
}

void RecentFiles::clear() {
    store({});
}

void RecentFiles::store(const std::vector<std::string>& files) {
    const Outcome stored = settings.store(SettingKey::recent, files);
    if (stored.hasFailed()) complain("the recent files could not be remembered", stored.reason());
}

}  // namespace velna
