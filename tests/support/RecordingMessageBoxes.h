#pragma once

#include "platform/MessageBox.h"

#include <deque>
#include <vector>

/// Stands in for the message boxes while it lives: notes each request, and answers questions with the
/// prepared answers in their order (No when none is left, as a user who just presses Enter).
class RecordingMessageBoxes : public platform::MessageBoxPort {
public:
    RecordingMessageBoxes() { platform::SetMessageBoxPort(this); }
    ~RecordingMessageBoxes() override { platform::SetMessageBoxPort(nullptr); }

    platform::Answer Show(const platform::MessageBoxRequest& request) override {
        requests.push_back(request);
        if (request.buttons == platform::Buttons::Ok) {
            return platform::Answer::Ok;
        }
        if (answers.empty()) {
            return platform::Answer::No;
        }
        const platform::Answer answer = answers.front();
        answers.pop_front();
        return answer;
    }

    std::vector<platform::MessageBoxRequest> requests;
    std::deque<platform::Answer> answers;
};
