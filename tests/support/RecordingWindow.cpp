#include "support/RecordingWindow.h"

#include <gtest/gtest.h>

#include "model/Plane.h"

namespace velna::test {
namespace {

/// The next answer, or `otherwise` and a failed test where none is written down.
template <class Answer>
Answer nextAnswer(std::deque<Answer>& answers, const std::string& question, Answer otherwise) {
    if (answers.empty()) {
        ADD_FAILURE() << "a question without an answer: " << question;
        return otherwise;
    }
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

}  // namespace

void RecordingWindow::openPopup(float /*x*/, float /*y*/) {
    popupOpen = true;
}

void RecordingWindow::renderScene(bool rebuild) {
    ++renders;
    if (!rebuild) return;
    ++rebuilds;
    Plane::createAllSolids();
}

bool RecordingWindow::askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) {
    prompts.push_back("question");
    lastQuestion = text;
    lastIcon = icon;
    lastDefaultYes = defaultYes;
    return nextAnswer(yesNoAnswers, text, false);
}

std::string RecordingWindow::askPictureFile() {
    prompts.push_back("LoadBitmap dialog");
    return nextAnswer(pictureFiles, "a picture file", std::string{});
}

std::optional<std::string> RecordingWindow::askText(const std::string& question,
                                                    const std::string& title,
                                                    const std::string& preset) {
    prompts.push_back("SizeBitmap input box");
    lastQuestion = title + ": " + question;
    lastPreset = preset;
    return nextAnswer(textAnswers, question, std::optional<std::string>{});
}

}  // namespace velna::test
