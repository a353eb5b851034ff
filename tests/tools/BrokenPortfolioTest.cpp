#include "Program.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace {

const char* const folder = BROKEN_PORTFOLIOS;

QString PathOf(const std::string& file) {
    return QLatin1String(folder) + QLatin1Char('/') + QString::fromStdString(file);
}

/// By file: the lines that the tool has to print, and no others. The list's columns are file, pointer, rule
/// and the value found.
const std::map<std::string, QByteArrayList>& ExpectedLines() {
    static const std::map<std::string, QByteArrayList> expected = [] {
        std::map<std::string, QByteArrayList> lines;
        for (const QByteArray& row : FileBytes(PathOf("expected.tsv")).trimmed().split('\n')) {
            const QByteArrayList columns = row.split('\t');
            const std::string file = columns.value(0).toStdString();
            QByteArray line = PathOf(file).toUtf8() + ": ";
            line += columns.value(1).isEmpty() ? QByteArray() : columns.value(1) + ": ";
            line += columns.value(2);
            line += columns.value(3).isEmpty() ? QByteArray() : " (found " + columns.value(3) + ')';
            lines[file].append(line);
        }
        return lines;
    }();
    return expected;
}

std::vector<std::string> FilesInFolder() {
    std::vector<std::string> files;
    for (const QString& file :
         QDir(QLatin1String(folder)).entryList({QStringLiteral("*.json")}, QDir::Files)) {
        files.push_back(file.toStdString());
    }
    return files;
}

class BrokenPortfolio : public testing::TestWithParam<std::string> {};

}  // namespace

TEST_P(BrokenPortfolio, IsRefusedWithAllItsFaults) {
    const QTemporaryDir directory;
    const QString database = directory.filePath(QStringLiteral("property.mdb"));
    CopyFreshDatabase(database);
    const QByteArray before = FileBytes(database);

    const ProgramResult result =
        RunImport({PathOf(GetParam()), QStringLiteral("--database"), database, QStringLiteral("--yes")});

    EXPECT_EQ(result.status, 2);
    EXPECT_TRUE(result.output.isEmpty());
    QByteArrayList printed = result.errors.trimmed().split('\n');
    EXPECT_TRUE(printed.takeLast().startsWith("wrenfield-import: the portfolio has faults"));
    QByteArrayList expected = ExpectedLines().at(GetParam());
    std::sort(printed.begin(), printed.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(printed.join('\n').toStdString(), expected.join('\n').toStdString());
    EXPECT_TRUE(FileBytes(database) == before);
    EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files), QStringList{QStringLiteral("property.mdb")});
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenPortfolio, testing::ValuesIn(FilesInFolder()),
                         [](const testing::TestParamInfo<std::string>& file) {
                             std::string name = file.param.substr(0, file.param.find('.'));
                             std::replace(name.begin(), name.end(), '-', '_');
                             return name;
                         });

TEST(BrokenPortfolios, EachFileHasItsExpectationAndTheOtherWayRound) {
    std::vector<std::string> expected;
    for (const auto& [file, lines] : ExpectedLines()) {
        expected.push_back(file);
    }
    std::vector<std::string> files = FilesInFolder();
    std::sort(files.begin(), files.end());
    EXPECT_EQ(files, expected);
    EXPECT_GE(files.size(), 70U);
}
