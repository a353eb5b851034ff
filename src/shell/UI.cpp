#include "shell/UI.h"

#include "controls/base/Canvas.h"
#include "controls/base/Palette.h"
#include "database/CurrentDatabase.h"
#include "platform/CommandLine.h"
#include "platform/Locale.h"
#include "platform/Process.h"
#include "shell/Pictures.h"
#include "shell/ScreenMessageBoxes.h"
#include "shell/frmMain.h"

#include <QAbstractEventDispatcher>
#include <QApplication>

#include <utility>

namespace shell {

namespace {

/// Nothing can go on from a failure that an event's handler lets out, so the process ends there, in order.
class WizardApplication : public QApplication {
public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override {
        try {
            return QApplication::notify(receiver, event);
        } catch (...) {
            platform::EndByFailure();
        }
    }
};

}  // namespace

int Main(int argc, char** argv, std::vector<PageKind> kinds) {
    // Before the toolkit takes options of its own out of it, together with what stands behind them.
    const QString commandLine = platform::Arguments(argc, argv).join(QLatin1Char(' '));
    WizardApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("wrenfield-wizard"));
    QApplication::setDesktopFileName(QStringLiteral("wrenfield-wizard"));
    // Of every window, a box before the form shows included.
    QApplication::setWindowIcon(WizardIcon());
    // All texts are English and all places reckoned from the left, whichever way the desktop writes.
    QApplication::setLayoutDirection(Qt::LeftToRight);
    platform::LoadSystemLocale();
    ScreenMessageBoxes boxes;
    platform::SetMessageBoxPort(&boxes);
    // What was written reaches the disk before the wizard waits for the user.
    QObject::connect(QAbstractEventDispatcher::instance(), &QAbstractEventDispatcher::aboutToBlock,
                     &application, [] { database::FlushWrites(); });
    try {
        controls::InitialiseColours();
        frmMain form(commandLine, std::move(kinds));
        form.show();
        return QApplication::exec();
    } catch (...) {
        // Further up there are no boxes any more, and no toolkit to show them.
        platform::EndByFailure();
    }
}

void PaintMainForm(controls::Canvas& form) {
    form.Line(0, 0, form.Width(), form.Height(), controls::White, controls::LineForm::FilledBox);
    form.Line(0, 0, form.Width() - 15, form.Height() - 15, controls::ThePalette().Frame,
              controls::LineForm::Outline);
}

}  // namespace shell
