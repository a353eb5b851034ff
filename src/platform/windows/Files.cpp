#include "platform/Files.h"

#include "platform/FilesOfSystem.h"
#include "platform/windows/Handle.h"

#include <QCoreApplication>
#include <QDir>

#include <array>

namespace platform {

namespace {

bool IsDrive(const QString& name) {
    return name.size() >= 3 && name[0].isLetter() && name[1] == QLatin1Char(':') &&
           (name[2] == QLatin1Char('\\') || name[2] == QLatin1Char('/'));
}

bool IsOfNetwork(const QString& name) {
    return QDir::toNativeSeparators(name).startsWith(QLatin1String("\\\\"));
}

/// As the system understands it from the working folder on. Empty if it doesn't.
QString FromTheRoot(const QString& name) {
    std::array<wchar_t, 32768> buffer{};
    const DWORD size = GetFullPathNameW(name.toStdWString().c_str(), static_cast<DWORD>(buffer.size()),
                                        buffer.data(), nullptr);
    return size < buffer.size() ? QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(size))
                                : QString();
}

// Devices such as NUL are told by \\.\, and what is behind a colon is a second content of a file.
bool IsOfFile(const QString& absolute) {
    return !QDir::toNativeSeparators(absolute).startsWith(QLatin1String("\\\\.\\")) &&
           !absolute.sliced(qMin(qsizetype{2}, absolute.size())).contains(QLatin1Char(':'));
}

}  // namespace

QString FolderOfProgram() {
    return QCoreApplication::applicationDirPath();
}

std::optional<QString> AbsoluteName(const QString& name) {
    if (name.isEmpty() || !name.isValidUtf16() || name.contains(QChar::ReplacementCharacter) ||
        name.contains(QChar::Null)) {
        return std::nullopt;
    }
    const QString fromTheRoot = FromTheRoot(name);
    if (fromTheRoot.isEmpty() || !IsOfFile(fromTheRoot)) {
        return std::nullopt;
    }
    return IsDrive(name) || IsOfNetwork(name) ? name : fromTheRoot;
}

QString WhyNoName() {
    return QStringLiteral(
        "a file is told by a name without U+FFFD and without a colon in it, not by that of a device");
}

bool IsSameName(const QString& one, const QString& other) {
    return QDir::toNativeSeparators(one).compare(QDir::toNativeSeparators(other), Qt::CaseInsensitive) == 0;
}

bool AppendBytes(const QString& absoluteName, const QByteArray& bytes) {
    const Handle file(CreateFileW(WideName(absoluteName).c_str(), FILE_APPEND_DATA,
                                  FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_NORMAL, nullptr));
    DWORD written = 0;
    return file.IsOpen() && GetFileType(file.Get()) == FILE_TYPE_DISK &&
           WriteFile(file.Get(), bytes.constData(), static_cast<DWORD>(bytes.size()), &written, nullptr) !=
               0 &&
           written == static_cast<DWORD>(bytes.size());
}

}  // namespace platform
