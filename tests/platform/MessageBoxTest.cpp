#include "platform/MessageBox.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <stdexcept>

namespace {

using platform::MessageBoxRequest;

/// Shows on standard error where in the order of events it is, for the processes of the tests below.
class PrintingMessageBoxes : public platform::MessageBoxPort {
public:
    PrintingMessageBoxes() { platform::SetMessageBoxPort(this); }
    ~PrintingMessageBoxes() override { platform::SetMessageBoxPort(nullptr); }
    platform::Answer Show(const MessageBoxRequest& request) override {
        std::cerr << '[' << request.text.toStdString() << ']';
        return platform::Answer::Ok;
    }
};

TEST(MessageBox, HasAnOkButton) {
    RecordingMessageBoxes boxes;
    platform::ShowMessageBox(QStringLiteral("<b>plain</b>\ntext"), QStringLiteral("A title"));
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_EQ(boxes.requests[0],
              (MessageBoxRequest{QStringLiteral("<b>plain</b>\ntext"), QStringLiteral("A title"),
                                 platform::Buttons::Ok, platform::Icon::None}));
}

TEST(MessageBox, IsTitledWithTheApplicationByDefault) {
    RecordingMessageBoxes boxes;
    platform::ShowMessageBox(QStringLiteral("text"));
    platform::AskQuestion(QStringLiteral("text"));
    ASSERT_EQ(boxes.requests.size(), 2U);
    EXPECT_EQ(boxes.requests[0].title, QStringLiteral("Wrenfield Wizard"));
    EXPECT_EQ(boxes.requests[1].title, QStringLiteral("Wrenfield Wizard"));
}

TEST(Question, HasYesAndNoAndTheQuestionIcon) {
    RecordingMessageBoxes boxes;
    platform::AskQuestion(QStringLiteral("Sure?"), QStringLiteral("A title"));
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_EQ(boxes.requests[0], (MessageBoxRequest{QStringLiteral("Sure?"), QStringLiteral("A title"),
                                                    platform::Buttons::YesNo, platform::Icon::Question}));
}

TEST(Question, IsTrueOnYesOnly) {
    RecordingMessageBoxes boxes;
    boxes.answers = {platform::Answer::Yes, platform::Answer::No};
    EXPECT_TRUE(platform::AskQuestion(QStringLiteral("Sure?")));
    EXPECT_FALSE(platform::AskQuestion(QStringLiteral("Sure?")));
}

TEST(FirstPort, PrintsToStandardErrorAndAnswersNo) {
    ::testing::internal::CaptureStderr();
    platform::ShowMessageBox(QStringLiteral("Grüße"), QStringLiteral("Title"));
    const bool answer = platform::AskQuestion(QStringLiteral("Sure?"));
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Title: Grüße\nWrenfield Wizard: Sure?\n");
    EXPECT_FALSE(answer);
}

TEST(BeforeMessageBox, ActionsRunInTheirOrderBeforeEachBox) {
    EXPECT_EXIT(
        {
            const PrintingMessageBoxes boxes;
            platform::BeforeMessageBox([] { std::cerr << "one "; });
            platform::BeforeMessageBox([] { std::cerr << "two "; });
            platform::ShowMessageBox(QStringLiteral("box"));
            platform::AskQuestion(QStringLiteral("question"));
            std::_Exit(0);
        },
        ::testing::ExitedWithCode(0), "^one two \\[box\\]one two \\[question\\]$");
}

TEST(BeforeMessageBox, ABoxOfAnActionIsShownBeforeTheOtherOne) {
    EXPECT_EXIT(
        {
            const PrintingMessageBoxes boxes;
            platform::BeforeMessageBox([] { platform::ShowMessageBox(QStringLiteral("lost")); });
            platform::ShowMessageBox(QStringLiteral("box"));
            platform::ShowMessageBox(QStringLiteral("next"));
            std::_Exit(0);
        },
        ::testing::ExitedWithCode(0), "^\\[lost\\]\\[box\\]\\[lost\\]\\[next\\]$");
}

TEST(BeforeMessageBox, AnActionThatFailsHoldsBackNeitherTheOthersNorTheBox) {
    EXPECT_EXIT(
        {
            const PrintingMessageBoxes boxes;
            platform::BeforeMessageBox([] { throw std::runtime_error("no"); });
            platform::BeforeMessageBox([] { std::cerr << "two "; });
            platform::ShowMessageBox(QStringLiteral("box"));
            platform::ShowMessageBox(QStringLiteral("next"));
            std::_Exit(0);
        },
        ::testing::ExitedWithCode(0), "^two \\[box\\]two \\[next\\]$");
}

}  // namespace
