#include "Program.h"
#include "support/FormatUnderTest.h"
#include "support/PrintQt.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

/// Names of files are bytes, of which not all are text.
using Bytes = std::string;

/// A word of the shell, each byte told by its number.
Bytes Quoted(const Bytes& word) {
    const char* digits = "0123456789abcdef";
    Bytes quoted = "$'";
    for (const char byte : word) {
        const auto number = static_cast<unsigned char>(byte);
        quoted += {'\\', 'x', digits[number / 16], digits[number % 16]};
    }
    return quoted + "'";
}

Bytes ReadFile(const Bytes& path) {
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    // As a whole: programs are among them, and byte by byte a sanitizer takes seconds for one.
    Bytes bytes(std::filesystem::file_size(path), '\0');
    EXPECT_TRUE(file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()))) << path;
    return bytes;
}

/// The programs, started in a folder of their own, so that a plain name means a file in it.
class Paths : public testing::Test {
protected:
    Paths() {
        CopyFreshDatabase(QString::fromStdString(Path("fresh.mdb")));
        // What an awkward name might be taken for.
        for (const char* decoy : {"x", "y", "other"}) {
            Copy("fresh.mdb", decoy);
        }
    }

    // The toolkit doesn't remove files whose names are no text.
    ~Paths() override { std::filesystem::remove_all(Path("")); }

    Bytes Path(const Bytes& name) const { return (folder_.path() + QLatin1Char('/')).toStdString() + name; }

    void Copy(const Bytes& from, const Bytes& to) const { std::filesystem::copy(Path(from), Path(to)); }

    /// What lies in the folder, by name.
    std::map<Bytes, Bytes> Files() const {
        std::map<Bytes, Bytes> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(Path(""))) {
            files[entry.path().native()] =
                entry.is_regular_file() ? ReadFile(entry.path().native()) : Bytes();
        }
        return files;
    }

    ProgramResult Run(const Bytes& program, const std::vector<Bytes>& arguments,
                      const Bytes& folder = {}) const {
        Bytes command = "cd " + Quoted(Path(folder)) + " && exec " + Quoted(program);
        for (const Bytes& argument : arguments) {
            command += " " + Quoted(argument);
        }
        return RunProgram(QStringLiteral("bash"), {QStringLiteral("-c"), QString::fromStdString(command)},
                          QString::fromStdString(Path("config")));
    }

    ProgramResult Import(const std::vector<Bytes>& more) const {
        std::vector<Bytes> arguments = {EXAMPLE_PORTFOLIO, "--yes"};
        arguments.insert(arguments.end(), more.begin(), more.end());
        return Run(IMPORT_PROGRAM, arguments);
    }

    int TenantsIn(const Bytes& name) const {
        return QueryDatabase(QString::fromStdString(Path(name)),
                             QStringLiteral("select count(*) from tenancy"))
            .toInt();
    }

    QTemporaryDir folder_;
};

class LongName : public Paths, public testing::WithParamInterface<int> {
protected:
    Bytes Name() const { return Bytes(static_cast<size_t>(GetParam()), 'x'); }
};

class AnyName : public Paths, public testing::WithParamInterface<Bytes> {};

const Bytes byteOrderMark = "\xEF\xBB\xBF";

/// Names that can't be told as text, and so could only be taken for another one.
class NoName : public Paths, public testing::WithParamInterface<Bytes> {
protected:
    void ExpectRefused(const std::vector<Bytes>& files, const std::function<ProgramResult()>& run) const {
        for (const Bytes& file : files) {
            if (!std::filesystem::exists(Path(file))) {
                Copy("fresh.mdb", file);
            }
        }
        const auto before = Files();
        const ProgramResult result = run();
        EXPECT_EQ(result.status, 2);
        EXPECT_TRUE(result.errors.contains("UTF-8")) << result.errors.constData();
        EXPECT_TRUE(Files() == before) << "a file was touched";
    }

    /// What is left of the name where its bytes are taken for text all the same.
    static Bytes Lookalike() { return QString::fromUtf8(GetParam().c_str()).toStdString(); }
};

}  // namespace

TEST_P(AnyName, OfADatabaseIsTheVeryFileThatIsFilled) {
    Copy("fresh.mdb", GetParam());
    auto expected = Files();
    const ProgramResult result = Import({"--database", GetParam()});
    EXPECT_EQ(result.status, 0) << result.errors.constData();
    EXPECT_EQ(TenantsIn(GetParam()), 30);
    auto found = Files();
    EXPECT_NE(found[Path(GetParam())], expected[Path(GetParam())]);
    expected[Path(GetParam())] = found[Path(GetParam())];
    EXPECT_TRUE(found == expected) << "another file was touched";
}

TEST_P(AnyName, OfABackupIsTheVeryFileThatIsMade) {
    auto expected = Files();
    const ProgramResult result = Import({"--database", "fresh.mdb", "--backup", GetParam()});
    EXPECT_EQ(result.status, 0) << result.errors.constData();
    EXPECT_EQ(TenantsIn(GetParam()), 0);
    auto found = Files();
    for (const Bytes& written : {Path("fresh.mdb"), Path(GetParam())}) {
        expected[written] = found[written];
    }
    EXPECT_TRUE(found == expected) << "another file was touched";
    EXPECT_EQ(Import({"--database", "fresh.mdb", "--backup", GetParam()}).status, 2) << "it is there already";
}

TEST_P(AnyName, OfAFreshDatabaseIsTheVeryFileThatIsMade) {
    auto expected = Files();
    // A name that begins like an option isn't taken for a file, unless its folder is told.
    const Bytes name = GetParam().starts_with('-') ? "./" + GetParam() : GetParam();
    const ProgramResult result = Run(CREATE_PROGRAM, {"--format", NameOfFormat(), name});
    EXPECT_EQ(result.status, 0) << result.errors.constData();
    expected[Path(GetParam())] = expected[Path("fresh.mdb")];
    EXPECT_EQ(Files().size(), expected.size());
    EXPECT_TRUE(Files() == expected) << "another file was touched";
    EXPECT_EQ(Run(CREATE_PROGRAM, {"--format", NameOfFormat(), name}).status, 2) << "it is there already";
}

TEST_P(AnyName, OfAPortfolioIsTheVeryFileThatIsRead) {
    std::filesystem::copy(EXAMPLE_PORTFOLIO, Path(GetParam()));
    const ProgramResult result = Run(IMPORT_PROGRAM, {"--yes", "--database", "fresh.mdb", "--", GetParam()});
    EXPECT_EQ(result.status, 0) << result.errors.constData();
    EXPECT_EQ(TenantsIn("fresh.mdb"), 30);
}

INSTANTIATE_TEST_SUITE_P(Names, AnyName,
                         testing::Values("file:x", "file:x?mode=memory", ":x:", ":memory:", "-x", "x?mode=ro",
                                         "x#y", "x%79", "x\ny", "x'\"y", " x ", "x\\y", "~",
                                         byteOrderMark + "x", "K\xC5\x8Dwhai"));

TEST_P(NoName, IsRefusedForADatabase) {
    ExpectRefused({GetParam(), Lookalike()}, [this] { return Import({"--database", GetParam()}); });
}

TEST_P(NoName, IsRefusedForABackup) {
    ExpectRefused({}, [this] { return Import({"--database", "fresh.mdb", "--backup", GetParam()}); });
}

TEST_P(NoName, IsRefusedForAFreshDatabase) {
    ExpectRefused({}, [this] { return Run(CREATE_PROGRAM, {GetParam()}); });
}

TEST_P(NoName, IsRefusedForAPortfolio) {
    std::filesystem::copy(EXAMPLE_PORTFOLIO, Path(GetParam()));
    ExpectRefused({}, [this] {
        return Run(IMPORT_PROGRAM, {"--yes", "--database", "fresh.mdb", "--", GetParam()});
    });
}

TEST_P(NoName, IsRefusedForTheFolderThatAPlainNameIsToldFrom) {
    for (const Bytes& folder : {GetParam(), Lookalike()}) {
        std::filesystem::create_directories(Path(folder));
    }
    ExpectRefused({GetParam() + "/inner.mdb", Lookalike() + "/inner.mdb"}, [this] {
        return Run(IMPORT_PROGRAM, {"--yes", "--database", "inner.mdb", "--", EXAMPLE_PORTFOLIO}, GetParam());
    });
    ExpectRefused({}, [this] { return Run(CREATE_PROGRAM, {"another.mdb"}, GetParam()); });
}

TEST_P(NoName, IsRefusedForTheFolderOfTheProgram) {
    for (const Bytes& folder : {GetParam(), Lookalike()}) {
        std::filesystem::create_directories(Path(folder));
    }
    std::filesystem::copy(IMPORT_PROGRAM, Path(GetParam() + "/program"));
    ExpectRefused({GetParam() + "/property.mdb", Lookalike() + "/property.mdb"}, [this] {
        return Run(Path(GetParam() + "/program"), {"--yes", EXAMPLE_PORTFOLIO});
    });
}

TEST_P(NoName, IsRefusedAtTheEndOfALink) {
    std::filesystem::create_symlink(Path(GetParam()), Path("link"));
    ExpectRefused({GetParam(), Lookalike()}, [this] { return Import({"--database", "link"}); });
}

INSTANTIATE_TEST_SUITE_P(Names, NoName,
                         testing::Values("x\xFF", "\xFF", "caf\xE9.mdb", "x\xED\xA0\x80", "x\xC0\xAF"));

TEST_P(LongName, OfADatabaseIsRefusedBeforeAnythingIsDone) {
    Copy("fresh.mdb", Name());
    const auto before = Files();
    for (const char* mode : {"--yes", "--dry-run"}) {
        const ProgramResult result = Run(IMPORT_PROGRAM, {EXAMPLE_PORTFOLIO, "--database", Name(), mode});
        EXPECT_EQ(result.status, 2);
        EXPECT_LT(result.errors.count('\n'), 10) << result.errors.constData();
        EXPECT_TRUE(result.errors.contains("nothing was changed"));
        EXPECT_TRUE(Files() == before) << "a file was touched";
    }
}

// 248 is the first one that is too long with "-journal" behind it, 256 is too long by itself.
INSTANTIATE_TEST_SUITE_P(Lengths, LongName, testing::Values(248, 255));
