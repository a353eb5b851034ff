#include "shell/frmMain.h"

#include "controls/base/Accessible.h"
#include "controls/base/Canvas.h"
#include "controls/base/Display.h"
#include "controls/base/Palette.h"
#include "controls/ctlButton.h"
#include "controls/ctlPageHeading.h"
#include "database/CurrentDatabase.h"
#include "platform/Files.h"
#include "platform/Launch.h"
#include "platform/MessageBox.h"
#include "platform/Process.h"
#include "records/Collections.h"
#include "screens/Paper.h"
#include "shell/Help.h"
#include "shell/MainModule.h"
#include "shell/TutorialLink.h"
#include "shell/UI.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>

namespace shell {

using controls::ctlButton;
using controls::ctlPageHeading;

namespace {

constexpr int InnerWidth = 11970;
constexpr int InnerHeight = 8895;
constexpr int Margin = 240;
constexpr int TopOfButtons = InnerHeight - Margin - screens::ButtonHeight;
/// Between what belongs to a page and the wizard's own buttons.
constexpr int TopOfLine = TopOfButtons - 330;
constexpr qint16 FirstTab = 0;

/// A window to assistive programs; a plain widget is no more than a part of one to them.
class FormAccessible : public QAccessibleWidget {
public:
    explicit FormAccessible(frmMain* form) : QAccessibleWidget(form, QAccessible::Window) {}
};

}  // namespace

frmMain::frmMain(const QString& commandLine, std::vector<PageKind> kinds)
    : QWidget(nullptr, Qt::Window | Qt::FramelessWindowHint) {
    controls::RegisterAccessible<frmMain, FormAccessible>();
    for (PageKind& kind : kinds) {
        qint16 tab = FirstTab;
        if (!pages_.empty()) {
            tab = pages_.back().tab;
            if (pages_.back().kind.tab != kind.tab) {
                ++tab;
            }
        }
        pages_.push_back({.kind = std::move(kind), .tab = tab});
    }
    setObjectName(QStringLiteral("frmMain"));
    setWindowTitle(QStringLiteral("Wrenfield Wizard"));
    setPalette(screens::PaperPalette());
    InitialiseHelp(static_cast<quint32>(winId()));
    controls::InitialiseColours();
    records::InitialiseData(records::TheCollections());
    RestartRequested_ = commandLine.contains(QLatin1String("/restart"));
    AddHeading();
    AddPages();
    AddButtons();
    AddTutorialLink();
    resize(controls::ToPixels(InnerWidth), controls::ToPixels(InnerHeight));
}

void frmMain::AddHeading() {
    QStringList tabs;
    for (const FormPage& page : pages_) {
        if (page.tab == tabs.size()) {
            tabs.append(page.kind.tab);
        }
    }
    HeadingControl_ = new ctlPageHeading({.Caption = QStringLiteral("Hearthbook Wrenfield Wizard"),
                                          .Tabs = tabs.join(u'|') + u'|',
                                          .CloseButton = true},
                                         this);
    HeadingControl_->setObjectName(QStringLiteral("HeadingControl"));
    screens::PutAt(*HeadingControl_, {15, 15, 11895, 1095});
    connect(HeadingControl_, &ctlPageHeading::TabSelect, this, &frmMain::SelectTab);
    connect(HeadingControl_, &ctlPageHeading::CloseButtonClick, this, &frmMain::Close);
}

void frmMain::AddPages() {
    for (FormPage& page : pages_) {
        constexpr int Top = 1410;
        page.widget = page.kind.Make(this);
        page.widget->setObjectName(page.kind.name);
        page.widget->setAccessibleName(page.kind.tab);
        page.widget->hide();
        screens::PutAt(*page.widget, {Margin, Top, InnerWidth - 2 * Margin, 6500});
    }
}

void frmMain::AddButtons() {
    using screens::ButtonHeight;
    using screens::ButtonWidth;
    // The largest button, and just as large as the picture on it, which is not stretched.
    constexpr int NextWidth = 2250;
    constexpr int Gap = 120;
    // Cancel asks no question. So it is kept away from the buttons that are pressed often, those of the pages
    // too, which stand on the left.
    constexpr int GapOfCancel = 600;
    constexpr int Top = TopOfButtons;
    constexpr int CancelLeft = InnerWidth - Margin - ButtonWidth;
    constexpr int FinishLeft = CancelLeft - GapOfCancel - ButtonWidth;
    constexpr int NextLeft = FinishLeft - Gap - NextWidth;
    constexpr int BackLeft = NextLeft - Gap - ButtonWidth;
    AddButton(QStringLiteral("cmdHelp"), QStringLiteral("Help"), {Margin, Top, ButtonWidth, ButtonHeight},
              &frmMain::ShowHelp);
    cmdBack_ = AddButton(QStringLiteral("cmdBack"), QStringLiteral("Back"),
                         {BackLeft, Top, ButtonWidth, ButtonHeight}, &frmMain::GoBack);
    cmdNext_ = AddButton(QStringLiteral("cmdNext"), QStringLiteral("Next"),
                         {NextLeft, Top, NextWidth, ButtonHeight}, &frmMain::GoNext);
    cmdFinish_ = AddButton(QStringLiteral("cmdFinish"), QStringLiteral("Finish"),
                           {FinishLeft, Top, ButtonWidth, ButtonHeight}, &frmMain::Finish);
    AddButton(QStringLiteral("cmdCancel"), QStringLiteral("Cancel"),
              {CancelLeft, Top, ButtonWidth, ButtonHeight}, &frmMain::Cancel);
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
    screens::PutAt(*link, {Margin, TopOfLine - 450, 4350, 330});
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
    for (qint16 tab = FirstTab; tab <= LastTab(); ++tab) {
        HeadingControl_->ChangeTabEnabled(tab, tab == FirstTab);
    }
    cmdBack_->SetEnabled(false);
    cmdFinish_->SetEnabled(false);
    ShowPage();
    FocusFirstField();
}

void frmMain::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    HeadingControl_->Move(15, 15, controls::ToTwips(width()) - 30, HeadingControl_->Height());
}

void frmMain::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    controls::PaintedCanvas canvas(&painter, width(), height());
    PaintMainForm(canvas);
    canvas.Line(15, TopOfLine, controls::ToTwips(width()) - 30, TopOfLine, controls::ThePalette().Frame,
                controls::LineForm::Line);
    if (!ActivatedOnce_) {
        // Behind this event: what is painted in it is on the screen then, behind all boxes.
        QMetaObject::invokeMethod(this, &frmMain::ActivateOnce, Qt::QueuedConnection);
    }
}

void frmMain::closeEvent(QCloseEvent* /*event*/) {
    Close();
}

void frmMain::mousePressEvent(QMouseEvent* /*event*/) {
    // A press that no control takes leaves the control that has the focus: an open calendar closes.
    setFocus(Qt::MouseFocusReason);
}

const frmMain::FormPage& frmMain::CurrentPage() const {
    return *std::find_if(pages_.begin(), pages_.end(), [this](const FormPage& page) {
        return page.tab == HeadingControl_->CurrentTabIndex() && page.kind.IsMeant();
    });
}

qint16 frmMain::LastTab() const {
    return pages_.back().tab;
}

void frmMain::ShowPage() {
    const FormPage& current = CurrentPage();
    // The page that shows comes up once and in its place; one that is on show already isn't touched.
    for (const FormPage& page : pages_) {
        page.widget->setVisible(&page == &current);
    }
    current.kind.Initialise(*current.widget);
}

void frmMain::EnableButtons() {
    const int index = HeadingControl_->CurrentTabIndex();
    cmdBack_->SetEnabled(index > FirstTab);
    cmdNext_->SetEnabled(index != LastTab());
    cmdFinish_->SetEnabled(index == LastTab());
}

void frmMain::FocusFirstField() {
    const FormPage& current = CurrentPage();
    if (QWidget* field = current.kind.FirstField(*current.widget)) {
        field->setFocus();
        return;
    }
    // Where nothing is to be entered, Enter goes on. Finish doesn't get the keyboard by itself: one more
    // Enter would delete what is in the database.
    (cmdNext_->Enabled() ? cmdNext_ : cmdBack_)->setFocus();
}

void frmMain::GoNext() {
    if (const FormPage& current = CurrentPage(); !current.kind.IsValid(*current.widget)) {
        // What a page asks for before it lets the user go is what it begins with.
        FocusFirstField();
        return;
    }
    HeadingControl_->ChangeTab(static_cast<qint16>(HeadingControl_->CurrentTabIndex() + 1));
    HeadingControl_->ChangeTabEnabled(HeadingControl_->CurrentTabIndex(), true);
    EnableButtons();
    ShowPage();
    FocusFirstField();
}

void frmMain::GoBack() {
    HeadingControl_->ChangeTab(static_cast<qint16>(HeadingControl_->CurrentTabIndex() - 1));
    EnableButtons();
    ShowPage();
    FocusFirstField();
}

void frmMain::SelectTab() {
    ShowPage();
    EnableButtons();
    FocusFirstField();
}

void frmMain::ShowHelp() {
    if (const std::optional<int> topic = CurrentPage().kind.helpTopic) {
        ShowHelpTopic(*topic);
    } else {
        ShowHelpContents();
    }
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
