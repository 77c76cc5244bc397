#include "shell/CuttingSettings.h"

#include <vector>

#include "common/Complaint.h"
#include "common/NumberText.h"
#include "shell/Settings.h"

namespace velna {

namespace {

constexpr const char* wishesKey = "ribs";
constexpr const char* correctionKey = "printer-correction";

void keep(Settings& settings, const char* key, const std::vector<std::string>& texts) {
    const Outcome stored = settings.store(key, texts);
    if (stored.hasFailed()) complain("the wishes could not be remembered", stored.reason());
}

std::vector<std::string> textsOf(const RibWishes& wishes) {
    std::vector<std::string> texts;
    for (const RibWishText& wish : ribWishTexts(wishes))
        texts.push_back(wish.name + ' ' + wish.text);
    return texts;
}

}  // namespace

RibWishes recallRibWishes(const Settings& settings) {
    RibWishes wishes;
    for (const std::string& entry : settings.list(wishesKey)) {
        const std::size_t blank = entry.find(' ');
        if (blank == std::string::npos) continue;
        // What another version has written may be no wish of this one.
        (void)takeRibWish(wishes, entry.substr(0, blank), entry.substr(blank + 1));
    }
    return wishes;
}

void keepRibWishes(Settings& settings, const RibWishes& wishes) {
    const std::vector<std::string> texts = textsOf(wishes);
    if (texts != textsOf(recallRibWishes(settings))) keep(settings, wishesKey, texts);
}

PrinterCorrection recallCorrection(const Settings& settings) {
    PrinterCorrection correction;
    const std::vector<std::string> texts = settings.list(correctionKey);
    if (texts.size() == 2) (void)readCorrection(texts[0], texts[1], correction);
    return correction;
}

void keepCorrection(Settings& settings, const PrinterCorrection& correction) {
    if (correction != recallCorrection(settings))
        keep(settings, correctionKey, {numberText(correction.x), numberText(correction.y)});
}

}  // namespace velna
