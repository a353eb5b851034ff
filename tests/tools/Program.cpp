#include "Program.h"

#include "support/FormatUnderTest.h"
#include "support/JetReader.h"

#include <QFile>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

constexpr int LongestRun = 300000;  // Milliseconds; a sanitizer on a busy machine takes its time.

}  // namespace

ProgramResult RunProgram(const QString& program, const QStringList& arguments, const QString& configHome) {
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("XDG_CONFIG_HOME"), configHome);
    environment.insert(QStringLiteral("XDG_CONFIG_DIRS"), configHome);
    process.setProcessEnvironment(environment);
    process.setStandardInputFile(QProcess::nullDevice());
    process.start(program, arguments);
    ProgramResult result;
    if (process.waitForFinished(LongestRun) && process.exitStatus() == QProcess::NormalExit) {
        result.status = process.exitCode();
    }
    result.output = process.readAllStandardOutput();
    result.errors = process.readAllStandardError();
    return result;
}

ProgramResult RunImport(const QStringList& arguments, const QString& configHome) {
    return RunProgram(QStringLiteral(IMPORT_PROGRAM), arguments, configHome);
}

ProgramResult RunCreateDatabase(const QStringList& arguments) {
    const QStringList format{QStringLiteral("--format"), QLatin1String(NameOfFormat())};
    return RunProgram(QStringLiteral(CREATE_PROGRAM), format + arguments, QStringLiteral("/nonexistent"));
}

QByteArray QueryDatabase(const QString& file, const QString& query) {
    const QTemporaryDir directory;
    const QString readable = IsJetFile(file) ? directory.filePath(QStringLiteral("copy")) : file;
    if (readable != file) {
        CopyJetTables(file, readable);
    }
    const ProgramResult result =
        RunProgram(QStringLiteral("sqlite3"), {QStringLiteral("-readonly"), readable, query}, QString());
    EXPECT_EQ(result.status, 0) << result.errors.constData();
    return result.output.trimmed();
}

QByteArray FileBytes(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return file.readAll();
}

void WriteFile(const QString& path, const QByteArray& bytes) {
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    ASSERT_EQ(file.write(bytes), bytes.size());
}

void CopyFreshDatabase(const QString& path) {
    static const QTemporaryDir directory;
    const QString original = directory.filePath(QStringLiteral("fresh.mdb"));
    if (!QFile::exists(original)) {
        ASSERT_EQ(RunCreateDatabase({original}).status, 0);
    }
    ASSERT_TRUE(QFile::copy(original, path));
}

QString ExamplePortfolio() {
    return QStringLiteral(EXAMPLE_PORTFOLIO);
}
