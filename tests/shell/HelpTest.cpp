#include "WizardForm.h"
#include "platform/Files.h"
#include "shell/Help.h"
#include "support/PrintQt.h"

namespace {

class HelpTest : public WizardForm {
protected:
    static QString HelpFileFor(const QString& programDirectory) {
        const QString before = platform::ProgramDirectory();
        platform::SetProgramDirectory(programDirectory);
        shell::InitialiseHelp(0);
        platform::SetProgramDirectory(before);
        return shell::CurrentHelpSetting().HelpFile;
    }
};

TEST_F(HelpTest, TheFormKeepsItsWindowAndTheHelpFileBesideTheProgram) {
    EXPECT_NE(form->winId(), 0U);
    EXPECT_EQ(shell::CurrentHelpSetting().WindowHandle, static_cast<quint32>(form->winId()));
    EXPECT_EQ(shell::CurrentHelpSetting().HelpFile,
              platform::ProgramDirectory() + QStringLiteral("/WrenfieldHelp.chm"));
}

TEST_F(HelpTest, ADirectoryThatEndsInASeparatorGetsNoSecondOne) {
    EXPECT_EQ(HelpFileFor(QStringLiteral("/opt/hearthbook")),
              QStringLiteral("/opt/hearthbook/WrenfieldHelp.chm"));
    EXPECT_EQ(HelpFileFor(QStringLiteral("/opt/hearthbook/ ")),
              QStringLiteral("/opt/hearthbook/WrenfieldHelp.chm"));
    EXPECT_EQ(HelpFileFor(QStringLiteral("/")), QStringLiteral("/WrenfieldHelp.chm"));
}

}  // namespace
