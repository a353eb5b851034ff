#include "engine/sqlite/SideFiles.h"

#include "engine/Error.h"
#include "platform/FileStatus.h"

#include <QFile>
#include <QtEndian>

#include <algorithm>
#include <chrono>
#include <optional>
#include <thread>

namespace engine::sqlite {

namespace {

using namespace std::chrono_literals;

/// What is wrong with a file, or nothing.
using Objection = std::optional<QString>;

// Where things lie in a journal and in a log, as SQLite's file format tells.
const QByteArray JournalMagic("\xd9\xd5\x05\xf9\x20\xa1\x63\xd7", 8);
constexpr qint64 JournalHeaderSize = 28;
constexpr qint64 RecordOverhead = 8;           // The number of the page before it, its checksum behind it.
constexpr quint32 AllThatFollow = 0xFFFFFFFF;  // The count of a journal that is not synced.
constexpr qint64 OtherJournalsTail = 16;       // Behind a name: its length, its checksum, the magic.
constexpr qint64 LongestName = 4096;
constexpr qint64 LogHeaderSize = 32;
constexpr quint32 LogMagic = 0x377F0682;  // The last bit may be set as well.
constexpr quint32 LogVersion = 3007000;

// A journal that another program is just writing may change under the look.
constexpr int Looks = 3;
constexpr auto BetweenLooks = 50ms;

quint32 NumberAt(const QByteArray& bytes, qsizetype place) {
    return qFromBigEndian<quint32>(bytes.constData() + place);
}

// What a page or a sector may have.
bool IsSize(qint64 size) {
    return size >= 512 && size <= 65536 && (size & (size - 1)) == 0;
}

QByteArray BytesAt(QFile& file, qint64 offset, qint64 count) {
    return offset >= 0 && file.seek(offset) ? file.read(count) : QByteArray();
}

// The name of another journal stands at the very end, whatever stands before it.
Objection NamesAnother(QFile& journal) {
    const qint64 size = journal.size();
    const QByteArray tail = BytesAt(journal, size - OtherJournalsTail, OtherJournalsTail);
    if (tail.size() < OtherJournalsTail || !tail.endsWith(JournalMagic)) {
        return std::nullopt;
    }
    const qint64 length = std::min<qint64>(NumberAt(tail, 0), LongestName);
    const QByteArray name = BytesAt(journal, size - OtherJournalsTail - length, length);
    return QStringLiteral("it names another journal, '%1', as no program of Hearthbook's does")
        .arg(QString::fromUtf8(name));
}

Objection LacksSense(QFile& journal) {
    qint64 sector = 0;
    qint64 page = 0;
    qint64 offset = 0;
    for (;;) {
        const QByteArray header = BytesAt(journal, offset, JournalHeaderSize);
        if (header.size() < JournalHeaderSize || !header.startsWith(JournalMagic)) {
            break;
        }
        if (offset == 0) {
            sector = NumberAt(header, 20);
            page = NumberAt(header, 24);
            if (!IsSize(sector) || !IsSize(page)) {
                return QStringLiteral("it speaks of pages of %1 and sectors of %2 bytes")
                    .arg(page)
                    .arg(sector);
            }
        }
        const quint32 records = NumberAt(header, 8);
        if (records == AllThatFollow) {
            break;
        }
        const qint64 end = offset + sector + records * (page + RecordOverhead);
        // Asked for anew: who writes it makes it longer before the count tells.
        if (end > journal.size()) {
            return QStringLiteral("it speaks of %1 pages and ends before them").arg(records);
        }
        offset = (end + sector - 1) / sector * sector;
    }
    return offset > 0 || sector > 0 ? std::nullopt : Objection(QStringLiteral("it is no journal"));
}

// What begins with zeros is finished with, or was never begun: SQLite doesn't play it back.
bool IsDone(const QByteArray& start) {
    return std::all_of(start.begin(), start.end(), [](char byte) { return byte == 0; });
}

Objection ObjectionToJournal(QFile& journal) {
    if (Objection another = NamesAnother(journal)) {
        return another;
    }
    const QByteArray start = BytesAt(journal, 0, JournalMagic.size() + 4);
    return IsDone(start) ? std::nullopt : LacksSense(journal);
}

Objection ObjectionToLog(QFile& log) {
    const QByteArray header = BytesAt(log, 0, LogHeaderSize);
    const bool isLog = header.size() == LogHeaderSize && (NumberAt(header, 0) | 1U) == (LogMagic | 1U) &&
                       NumberAt(header, 4) == LogVersion && IsSize(NumberAt(header, 8));
    return header.isEmpty() || isLog ? std::nullopt : Objection(QStringLiteral("it is no log"));
}

// The index of a log is made anew by whoever comes first; only its beginning says what it is.
Objection ObjectionToIndex(QFile& index) {
    const QByteArray start = BytesAt(index, 0, 4);
    const bool isIndex = start.size() == 4 && qFromUnaligned<quint32>(start.constData()) == LogVersion;
    return IsDone(start) || isIndex ? std::nullopt : Objection(QStringLiteral("it is no index of a log"));
}

Objection ObjectionToKind(const QString& path) {
    const std::optional<platform::NamedThing> found = platform::WhatHasName(path);
    if (!found) {
        return std::nullopt;
    }
    switch (found->kind) {
        case platform::FileKind::Regular:
            // SQLite would write over the one and remove the other.
            return found->hasOtherNames ? Objection(QStringLiteral("it has another name as well"))
                                        : std::nullopt;
        case platform::FileKind::Link:
            return QStringLiteral("it is a link");
        case platform::FileKind::Folder:
            return QStringLiteral("it is a folder");
        case platform::FileKind::Pipe:
            return QStringLiteral("it is a pipe");
        case platform::FileKind::Other:
            break;
    }
    return QStringLiteral("it is not a regular file");
}

Objection ObjectionTo(const QString& path, Objection (*look)(QFile&)) {
    if (Objection kind = ObjectionToKind(path)) {
        return kind;
    }
    QFile file(path);
    if (!file.exists()) {
        return std::nullopt;
    }
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
        return QStringLiteral("it can't be read");
    }
    return look(file);
}

void Check(const char* name, Objection (*look)(QFile&)) {
    const QString path = QString::fromUtf8(name);
    Objection objection = ObjectionTo(path, look);
    for (int again = 1; objection && again < Looks; ++again) {
        std::this_thread::sleep_for(BetweenLooks);
        objection = ObjectionTo(path, look);
    }
    if (objection) {
        throw Error(ErrorNumber::DatabaseDamaged,
                    QStringLiteral("The database can't be used with the file '%1' beside it: %2.")
                        .arg(path, *objection));
    }
}

}  // namespace

void CheckSideFiles(sqlite3* handle) {
    const char* database = sqlite3_db_filename(handle, "main");
    const QByteArray log = sqlite3_filename_wal(database);
    Check(sqlite3_filename_journal(database), ObjectionToJournal);
    Check(log.constData(), ObjectionToLog);
    Check((log.chopped(3) + "shm").constData(), ObjectionToIndex);
}

}  // namespace engine::sqlite
