#include "support/RecordingWindow.h"

#include <gtest/gtest.h>

#include "support/InHand.h"

namespace velna::test {
namespace {

/// The next answer, or `otherwise` where none is written down.
template <class Answer>
Answer nextAnswer(std::deque<Answer>& answers, Answer otherwise,
                  const std::function<void()>& unanswered) {
    if (answers.empty()) {
        unanswered();
        return otherwise;
    }
    Answer answer = answers.front();
    answers.pop_front();
    return answer;
}

}  // namespace

void RecordingWindow::miss(const std::string& question) {
    if (onUnanswered)
        onUnanswered(question);
    else
        ADD_FAILURE() << "a question without an answer: " << question;
}

void RecordingWindow::openPopup(float /*x*/, float /*y*/) {
    popupOpen = true;
}

void RecordingWindow::renderScene(bool rebuild) {
    ++renders;
    if (holds == 0) ++unheldRenders;
    if (!rebuild) return;
    ++rebuilds;
    solids.createAll(project);
}

bool RecordingWindow::askYesNo(const std::string& text, BoxIcon icon, bool defaultYes) {
    prompts.push_back("question");
    lastQuestion = text;
    lastIcon = icon;
    lastDefaultYes = defaultYes;
    return nextAnswer(yesNoAnswers, false, [&] { miss(text); });
}

std::string RecordingWindow::askPictureFile() {
    prompts.push_back("LoadBitmap dialog");
    return nextAnswer(pictureFiles, std::string{}, [&] { miss("a picture file"); });
}

std::optional<std::string> RecordingWindow::askText(const std::string& question,
                                                    const std::string& title,
                                                    const std::string& preset) {
    prompts.push_back("SizeBitmap input box");
    lastQuestion = title + ": " + question;
    lastPreset = preset;
    return nextAnswer(textAnswers, std::optional<std::string>{}, [&] { miss(question); });
}

}  // namespace velna::test
