#include "engine/jet/FileUsers.h"

#include "engine/Error.h"
#include "engine/Waiting.h"
#include "platform/FileLock.h"

#include <QDir>
#include <QFileInfo>
#include <QSysInfo>

#include <algorithm>
#include <thread>

namespace engine::jet {

namespace {

using namespace std::chrono_literals;

constexpr int MostUsers = 255;
constexpr std::uint64_t FirstUserByte = 0x10000001;
constexpr LockFile::Range AllUsers{FirstUserByte, MostUsers};

// In the place of each user his computer's name and his own, each ended by a zero byte.
constexpr qint64 NameSize = 32;
constexpr qint64 PlaceSize = 2 * NameSize;
constexpr const char* UserName = "Admin";

constexpr auto BetweenTries = 10ms;

QByteArray NameBytes(const QString& name) {
    return name.toLatin1().left(NameSize - 1).leftJustified(NameSize, '\0');
}

// Whatever is in the file, it becomes part of a sentence.
QString NameIn(const QByteArray& place) {
    const qsizetype end = place.indexOf('\0');
    const QString text = QString::fromLatin1(end < 0 ? place : place.left(end)).trimmed();
    const bool isPlain = std::all_of(text.begin(), text.end(), [](QChar c) { return c.isPrint(); });
    return isPlain ? text : QString();
}

QString RealName(const QString& database) {
    const QString real = QFileInfo(database).canonicalFilePath();
    return real.isEmpty() ? database : real;
}

}  // namespace

QString FileUsers::LockFileFor(const QString& database) {
    const QFileInfo file(database);
    return file.dir().filePath(file.completeBaseName() + QStringLiteral(".ldb"));
}

FileUsers::FileUsers(const QString& database, std::chrono::milliseconds longestWait)
    : database_(RealName(database)), longestWait_(longestWait) {
}

FileUsers::~FileUsers() {
    if (file_ && file_->WasMade() && file_->TryLock(AllUsers) == LockFile::Answer::Granted) {
        file_->Remove();
    }
}

void FileUsers::Join() {
    if (state_ == State::Outside) {
        Wait([this] { return TryJoin(); });
    }
}

void FileUsers::BeAlone() {
    Wait([this] { return TryBeAlone(); });
}

template <class Try>
void FileUsers::Wait(const Try& isGranted) {
    const auto end = std::chrono::steady_clock::now() + longestWait_;
    while (!isGranted()) {
        if (std::chrono::steady_clock::now() >= end || !GoesOn()) {
            RaiseHeld();
        }
        std::this_thread::sleep_for(BetweenTries);
    }
}

bool FileUsers::TryJoin() {
    if (!Open(LockFile::Access::Reading)) {
        return true;
    }
    for (int place = 0; place < MostUsers; ++place) {
        const auto answer = file_->TryLock({FirstUserByte + static_cast<std::uint64_t>(place), 1});
        if (answer == LockFile::Answer::NoLocks) {
            return true;
        }
        if (answer == LockFile::Answer::Held) {
            continue;
        }
        if (HasGone()) {
            return false;
        }
        WriteNames(place);
        state_ = State::Joined;
        return true;
    }
    return false;
}

bool FileUsers::TryBeAlone() {
    Open(LockFile::Access::Writing);
    const auto answer = file_->TryLock(AllUsers);
    if (answer == LockFile::Answer::NoLocks) {
        throw Error(ErrorNumber::DiskError,
                    QStringLiteral("Disk error: nothing can be locked where '%1' lies, so nobody can know "
                                   "whether another program writes to it.")
                        .arg(database_));
    }
    if (answer == LockFile::Answer::Held || HasGone()) {
        return false;
    }
    WriteNames(0);
    state_ = State::Alone;
    return true;
}

// A place that was taken while only reading was allowed is given up: it would be in the way.
bool FileUsers::Open(LockFile::Access access) {
    if (file_ && access == LockFile::Access::Writing && !file_->IsWritable()) {
        file_.reset();
        state_ = State::Outside;
    }
    if (!file_) {
        file_ = LockFile::OpenOrMake(LockFileFor(database_), database_, MostUsers * PlaceSize, access);
    }
    return file_ != nullptr;
}

// Whoever had made the file has removed it when it had been opened here and wasn't locked yet. The next one
// to come would make another.
bool FileUsers::HasGone() {
    if (file_->IsStillThere()) {
        return false;
    }
    file_.reset();
    return true;
}

// For whoever wants to know why he has to wait; without them he does so too.
void FileUsers::WriteNames(int place) {
    const QByteArray names = NameBytes(QSysInfo::machineHostName()) + NameBytes(QLatin1String(UserName));
    file_->Write(place * PlaceSize, names);
}

QString FileUsers::Who() const {
    const auto holder = file_ ? file_->HolderOf(AllUsers) : std::nullopt;
    if (!holder || holder->first < FirstUserByte) {
        return {};
    }
    const auto place = static_cast<qint64>(holder->first - FirstUserByte);
    const QString computer = NameIn(file_->Read(place * PlaceSize, NameSize));
    if (!computer.isEmpty()) {
        return QStringLiteral(" on the computer %1").arg(computer);
    }
    const QString program = holder->process ? platform::ProgramOf(*holder->process) : QString();
    return program.isEmpty() ? QString()
                             : QStringLiteral(": %1, process %2").arg(program).arg(*holder->process);
}

void FileUsers::RaiseHeld() const {
    throw Error(ErrorNumber::Locked,
                QStringLiteral("Couldn't use '%1'; another program has it open%2.").arg(database_, Who()));
}

}  // namespace engine::jet
