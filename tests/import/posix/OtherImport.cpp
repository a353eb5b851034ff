#include "import/OtherImport.h"

#include "platform/Process.h"

#include <QFile>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <optional>

/// Split off from this one, which is quicker than a start.
class OtherImport::Process {
public:
    explicit Process(const ImportOrder& order) : number_(fork()) {
        if (number_ == 0) {
            const QString errors = order.errors.isEmpty() ? QStringLiteral("/dev/null") : order.errors;
            dup2(open("/dev/null", O_WRONLY), STDOUT_FILENO);
            dup2(open(QFile::encodeName(errors).constData(), O_WRONLY | O_CREAT, 0600), STDERR_FILENO);
            platform::RunProcess([&order] { return CarryOut(order); });
        }
    }

    bool HasEnded(int options = WNOHANG) {
        int status = 0;
        if (!status_ && waitpid(number_, &status, options) == number_) {
            status_ = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
        }
        return status_.has_value();
    }
    int Status() const { return *status_; }
    int Number() const { return number_; }
    void Send(int signal) {
        if (!HasEnded()) {
            kill(number_, signal);
        }
    }

private:
    pid_t number_;
    std::optional<int> status_;
};

OtherImport::OtherImport(const ImportOrder& order) : process_(std::make_unique<Process>(order)) {
}

OtherImport::~OtherImport() {
    Kill();
}

bool OtherImport::HasEnded() {
    return process_->HasEnded();
}

void OtherImport::Kill() {
    process_->Send(SIGKILL);
    ExitStatus();
}

int OtherImport::ExitStatus() {
    process_->HasEnded(0);
    return process_->Status();
}

const std::vector<int>& OtherImport::Requests() {
    static const std::vector<int> requests{SIGINT, SIGTERM, SIGHUP};
    return requests;
}

void OtherImport::AskToEnd(int request) {
    process_->Send(request);
}

QString OtherImport::NameInRefusals() const {
    return QStringLiteral("import_test, process %1").arg(process_->Number());
}
