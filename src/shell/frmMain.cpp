#include "shell/frmMain.h"

#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Palette.h"
#include "controls/ctlButton.h"
#include "controls/ctlPageHeading.h"
#include "database/Database.h"
#include "platform/Files.h"
#include "platform/Launch.h"
#include "platform/MessageBox.h"
#include "platform/Process.h"
#include "records/Collections.h"
#include "records/ImportSettings.h"
#include "shell/Help.h"
#include "shell/MainModule.h"
#include "shell/Pictures.h"
#include "shell/TutorialLink.h"
#include "shell/UI.h"
#include "shell/ctlFinish.h"
#include "shell/ctlPageIntro.h"
#include "shell/ctlPageType.h"

#include <QPainter>

namespace shell {

using controls::ctlButton;
using controls::ctlPageHeading;

namespace {

constexpr int innerWidth = 11970;
constexpr int innerHeight = 8895;
constexpr int lastTab = 6;
constexpr int margin = 240;

enum Tab { Introduction, BankAccounts, UserType, OwnersTab, PropertiesTab, TenantsTab, Finished };

}  // namespace

frmMain::frmMain(const QString& commandLine) : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint) {
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Wrenfield Wizard"));
    setWindowIcon(WizardIcon());
    setPalette(screens::PaperPalette());
    controls::InitialiseColours();
    records::InitialiseData();
    RestartRequested_ = commandLine.contains(QLatin1String("/restart"));
    AddHeading();
    AddPages();
    AddButtons();
    AddTutorialLink();
    resize(controls::ToPixels(innerWidth), controls::ToPixels(innerHeight));
}

void frmMain::AddHeading() {
    HeadingControl_ = new ctlPageHeading(
        {.Caption = QStringLiteral("Hearthbook Wrenfield Wizard"),
         .Tabs = QStringLiteral("Introduction|Bank Accounts|User Type|Owners|Properties|Tenants|Finished|"),
         .CloseButton = true},
        this);
    HeadingControl_->setObjectName(QStringLiteral("HeadingControl"));
    screens::PutAt(*HeadingControl_, {15, 15, 11895, 1095});
    connect(HeadingControl_, &ctlPageHeading::TabSelect, this, &frmMain::SelectTab);
    connect(HeadingControl_, &ctlPageHeading::CloseButtonClick, this, &frmMain::Close);
}

void frmMain::AddPages() {
    const auto add = [this](auto*& page, const QString& name) {
        page = new std::remove_reference_t<decltype(*page)>(this);
        page->setObjectName(name);
        page->hide();
        constexpr int top = 1410;
        screens::PutAt(*page, {margin, top, innerWidth - 2 * margin, 6500});
    };
    add(ctlPageIntro1_, QStringLiteral("ctlPageIntro1"));
    add(ctlPageAccounts1_, QStringLiteral("ctlPageAccounts1"));
    add(ctlPageType1_, QStringLiteral("ctlPageType1"));
    add(ctlPageOwner1_, QStringLiteral("ctlPageOwner1"));
    add(ctlSingleOwner1_, QStringLiteral("ctlSingleOwner1"));
    add(ctlPageProperty1_, QStringLiteral("ctlPageProperty1"));
    add(ctlPageTenant1_, QStringLiteral("ctlPageTenant1"));
    add(ctlFinish1_, QStringLiteral("ctlFinish1"));
}

void frmMain::AddButtons() {
    constexpr int buttonWidth = 1575;
    constexpr int buttonHeight = 375;
    // The largest button, and just as large as the picture on it, which is not stretched.
    constexpr int nextWidth = 2250;
    constexpr int gap = 120;
    constexpr int top = innerHeight - margin - buttonHeight;
    constexpr int finishLeft = innerWidth - margin - buttonWidth;
    constexpr int nextLeft = finishLeft - gap - nextWidth;
    constexpr int backLeft = nextLeft - gap - buttonWidth;
    AddButton(QStringLiteral("cmdHelp"), QStringLiteral("Help"), {margin, top, buttonWidth, buttonHeight},
              &frmMain::ShowHelp);
    AddButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"),
              {margin + buttonWidth + gap, top, buttonWidth, buttonHeight}, &frmMain::Cancel);
    cmdBack_ = AddButton(QStringLiteral("cmdBack"), QStringLiteral("Back"),
                         {backLeft, top, buttonWidth, buttonHeight}, &frmMain::GoBack);
    cmdNext_ = AddButton(QStringLiteral("cmdNext"), QStringLiteral("Next"),
                         {nextLeft, top, nextWidth, buttonHeight}, &frmMain::GoNext);
    cmdFinish_ = AddButton(QStringLiteral("cmdFinish"), QStringLiteral("Finish"),
                           {finishLeft, top, buttonWidth, buttonHeight}, &frmMain::Finish);
}

ctlButton* frmMain::AddButton(const QString& name, const QString& caption, const screens::Place& place,
                              void (frmMain::*action)()) {
    auto* button = new ctlButton({.Caption = caption}, this);
    button->setObjectName(name);
    screens::PutAt(*button, place);
    connect(button, &ctlButton::Click, this, action);
    return button;
}

void frmMain::AddTutorialLink() {
    auto* link = new TutorialLink(this);
    screens::PutAt(*link, {margin, 7815, 4350, 330});
}

void frmMain::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    ActivateOnce();
}

void frmMain::ActivateOnce() {
    if (ActivatedOnce_) {
        return;
    }
    ActivatedOnce_ = true;
    if (!database::StartDatabase()) {
        platform::ShowMessageBox(QStringLiteral(
            "Unable to start hearthbook database.  Make sure Hearthbook has been installed and run at "
            "least once."));
        platform::EndProcess(1);
    }
    for (qint16 tab = 0; tab <= lastTab; ++tab) {
        HeadingControl_->ChangeTabEnabled(tab, tab == Introduction);
    }
    cmdBack_->SetEnabled(false);
    cmdFinish_->SetEnabled(false);
    ShowPage();
    // The first page asks for nothing: Enter goes on.
    cmdNext_->setFocus();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    HeadingControl_->Move(15, 15, controls::ToTwips(width()) - 30, HeadingControl_->Height());
}

void frmMain::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    controls::PaintedCanvas canvas(&painter, width(), height());
    PaintMainForm(canvas);
}

void frmMain::closeEvent(QCloseEvent* /*event*/) {
    Close();
}

void frmMain::ShowPage() {
    const int index = HeadingControl_->CurrentTabIndex();
    const bool isLandlord = records::CurrentSettings().IsLandlord;
    // The page that shows comes up once and in its place; one that is on show already isn't touched.
    ctlPageIntro1_->setVisible(index == Introduction);
    ctlPageAccounts1_->setVisible(index == BankAccounts);
    ctlPageType1_->setVisible(index == UserType);
    ctlPageOwner1_->setVisible(index == OwnersTab && !isLandlord);
    ctlSingleOwner1_->setVisible(index == OwnersTab && isLandlord);
    ctlPageProperty1_->setVisible(index == PropertiesTab);
    ctlPageTenant1_->setVisible(index == TenantsTab);
    ctlFinish1_->setVisible(index == Finished);
    switch (index) {
        case BankAccounts:
            ctlPageAccounts1_->Initialise();
            break;
        case OwnersTab:
            if (isLandlord) {
                ctlSingleOwner1_->Initialise();
            } else {
                ctlPageOwner1_->Initialise();
            }
            break;
        case PropertiesTab:
            ctlPageProperty1_->Initialise();
            break;
        case TenantsTab:
            ctlPageTenant1_->Initialise();
            break;
        case Finished:
            ctlFinish1_->Initialise();
            break;
        default:
            break;
    }
}

bool frmMain::IsPageValid(int tabIndex) {
    switch (tabIndex) {
        case BankAccounts:
            return ctlPageAccounts1_->IsValid();
        case UserType:
            return ctlPageType1_->IsValid();
        case OwnersTab:
            return records::CurrentSettings().IsLandlord ? ctlSingleOwner1_->IsValid()
                                                         : ctlPageOwner1_->IsValid();
        case PropertiesTab:
            return ctlPageProperty1_->IsValid();
        case TenantsTab:
            return ctlPageTenant1_->IsValid();
        default:
            return true;
    }
}

void frmMain::EnableButtons() {
    const int index = HeadingControl_->CurrentTabIndex();
    cmdBack_->SetEnabled(index > 0);
    cmdNext_->SetEnabled(index != lastTab);
    cmdFinish_->SetEnabled(index == lastTab);
    // A button that can't be clicked any more must not keep the keyboard. Finish doesn't get it by itself:
    // one more Enter would delete what is in the database.
    if (const auto* focused = qobject_cast<ctlButton*>(focusWidget()); focused && !focused->Enabled()) {
        (cmdNext_->Enabled() ? cmdNext_ : cmdBack_)->setFocus();
    }
}

void frmMain::GoNext() {
    if (!IsPageValid(HeadingControl_->CurrentTabIndex())) {
        return;
    }
    HeadingControl_->ChangeTab(static_cast<qint16>(HeadingControl_->CurrentTabIndex() + 1));
    HeadingControl_->ChangeTabEnabled(HeadingControl_->CurrentTabIndex(), true);
    EnableButtons();
    ShowPage();
}

void frmMain::GoBack() {
    HeadingControl_->ChangeTab(static_cast<qint16>(HeadingControl_->CurrentTabIndex() - 1));
    EnableButtons();
    ShowPage();
}

void frmMain::SelectTab() {
    ShowPage();
    EnableButtons();
}

void frmMain::ShowHelp() {
    ShowHelpForPage(HeadingControl_->CurrentTabIndex());
}

void frmMain::RestartApplication() const {
    const QString companion =
        platform::WithPlatformSeparators(platform::ProgramDirectory() + QStringLiteral("\\Hearthbook.exe"));
    if (RestartRequested_ && platform::FileExists(companion)) {
        platform::StartProgram(companion);
    }
}

void frmMain::Cancel() {
    RestartApplication();
    platform::EndProcess(0);
}

void frmMain::Finish() {
    RunImport(RestartRequested_);
    RestartApplication();
    platform::EndProcess(0);
}

void frmMain::Close() {
    // Also with "/restart": who closes the wizard wants nothing else to open.
    platform::EndProcess(0);
}

}  // namespace shell
