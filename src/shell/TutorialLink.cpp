#include "shell/TutorialLink.h"

#include "controls/base/Accessible.h"
#include "controls/base/ClickableAccessible.h"
#include "controls/base/Font.h"
#include "controls/base/HandCursor.h"
#include "platform/Launch.h"

namespace shell {

TutorialLink::TutorialLink(QWidget* parent)
    : QPushButton(QStringLiteral("Watch the Wrenfield Wizard tutorial video online."), parent) {
    controls::RegisterAccessible<TutorialLink, controls::ClickableAccessible>();
    setObjectName(QStringLiteral("lblTutorial"));
    setFont(controls::ControlFont());
    setStyleSheet(QStringLiteral(
        "QPushButton { color: #0000ff; background: transparent; border: 1px solid transparent; "
        "text-decoration: underline; text-align: left; } QPushButton:focus { border-color: #254fa7; }"));
    setCursor(controls::HandCursor());
    connect(this, &QPushButton::clicked, this, &TutorialLink::OpenTutorial);
}

void TutorialLink::OpenTutorial() {
    platform::OpenWebPage(QStringLiteral(WRENFIELD_WEB_SITE) + QStringLiteral("/FAQ/WrenfieldWizard.aspx"));
}

}  // namespace shell
