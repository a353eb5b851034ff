#include "import/OtherImport.h"

#include "EndEvent.h"
#include "OrderText.h"
#include "support/FormatUnderTest.h"

#include <QCoreApplication>
#include <QProcess>
#include <QSysInfo>

namespace {

constexpr int LongestImport = 600'000;  // Milliseconds.

}  // namespace

/// This program once more, which finds what it is to do among its arguments.
class OtherImport::Process : public QProcess {
public:
    explicit Process(const ImportOrder& order) {
        setStandardOutputFile(nullDevice());
        setStandardErrorFile(order.errors.isEmpty() ? nullDevice() : order.errors);
        start(QCoreApplication::applicationFilePath(), ToArguments(order));
        if (!waitForStarted()) {
            qFatal("The import can't be started");
        }
    }
};

OtherImport::OtherImport(const ImportOrder& order) : process_(std::make_unique<Process>(order)) {
}

OtherImport::~OtherImport() {
    Kill();
}

bool OtherImport::HasEnded() {
    return process_->state() == QProcess::NotRunning || process_->waitForFinished(0);
}

void OtherImport::Kill() {
    process_->kill();
    ExitStatus();
}

int OtherImport::ExitStatus() {
    if (process_->state() != QProcess::NotRunning && !process_->waitForFinished(LongestImport)) {
        return -1;
    }
    return process_->exitStatus() == QProcess::NormalExit ? process_->exitCode() : -1;
}

// As Ctrl+C does. Not every test has a console to send it by.
const std::vector<int>& OtherImport::Requests() {
    static const std::vector<int> requests{EndEvent::Request};
    return requests;
}

void OtherImport::AskToEnd(int /*request*/) {
    SetEvent(EndEvent(process_->processId()).Get());
}

// Locks don't tell whose they are. The lock file of a Jet file tells of the computer.
QString OtherImport::NameInRefusals() const {
    return FormatUnderTest() == engine::FileFormat::Jet
               ? QStringLiteral("another program has it open on the computer ") + QSysInfo::machineHostName()
               : QStringLiteral("another import is filling the database");
}
