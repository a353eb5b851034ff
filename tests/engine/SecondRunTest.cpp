#include "EngineTest.h"
#include "support/FaultyDisk.h"

#include <QMap>

#include <algorithm>
#include <functional>

namespace engine {

namespace {

/// Two failures of the disk in a row: the first one makes SQLite give up a group of writes, the second one
/// takes away some of the writes that run again. What is left must be what was meant for it.
class SecondRunTest : public EngineTest {
protected:
    void OpenAnew() {
        database.reset();
        ASSERT_TRUE(RunElsewhere(
            path,
            "delete from notes; delete from copies; insert into copies(text, number) values('old', 7)"));
        lost.clear();
        refused.clear();
        accepted.clear();
        database = DBEngine::Instance().OpenDatabase(path);
        database->OnLostWrite([this](const Error&, const QString& write) { lost += write; });
    }

    template <class Action>
    void Try(const QString& what, Action action) {
        if (ErrorOf(action) != 0) {
            refused += what;
        }
    }

    void Execute(const QString& statement) {
        Try(statement, [&] { database->Execute(statement); });
    }

    /// Ten times the number of each of these rows, and n2 goes. In between everything is brought to the disk,
    /// as a message box does: what has not been changed by then may have other keys afterwards, or be lost.
    void ChangeAll(const QStringList& names) {
        std::unique_ptr<Recordset> rows;
        Try(QStringLiteral("opening"),
            [&] { rows = Dynaset("select * from copies where number < 7 order by number"); });
        for (const QString& name : NotTold(names)) {
            if (!rows || rows->Eof()) {
                refused += QStringLiteral("change of %1, removal of %1").arg(name);
                continue;
            }
            const auto change = [&] {
                EXPECT_EQ(ToText(rows->Fields(0).Get()), name);
                if (name == QLatin1String("n2")) {
                    rows->Delete();
                    return;
                }
                rows->Edit();
                rows->Fields(1).Set(10 * name.mid(1).toDouble());
                rows->Update();
            };
            if (ErrorOf(change) != 0) {
                refused += QStringLiteral("change of %1, removal of %1").arg(name);
            } else {
                accepted += name;
            }
            if (name == QLatin1String("n3")) {
                database->Flush();
            }
            rows->MoveNext();
        }
    }

    /// The database looks for rows that are not in the file, though all losses were told.
    bool MissesRows() {
        std::vector<Error> differences;
        ErrorOf([&] { differences = database->CheckWritten(); });
        return !differences.empty();
    }

    /// Those of these rows whose insert has not been told to have failed.
    QStringList NotTold(const QStringList& names) const {
        QStringList left;
        for (const QString& name : names) {
            if (!IsTold(QStringLiteral("insert"), QLatin1Char('\'') + name)) {
                left += name;
            }
        }
        return left;
    }

    /// True if a report names both.
    bool IsTold(const QString& first, const QString& second) const {
        for (const QString& report : refused + lost) {
            if (report.contains(first) && report.contains(second)) {
                return true;
            }
        }
        return false;
    }

    QMap<QString, double> Numbers() {
        QMap<QString, double> numbers;
        for (const QString& row : ReadRows(path, "select text, number from copies order by rowid")) {
            const QString text = row.section(QLatin1Char('|'), 0, 0);
            EXPECT_FALSE(numbers.contains(text)) << text.toStdString() << " is there twice";
            numbers.insert(text, row.section(QLatin1Char('|'), 1).toDouble());
        }
        return numbers;
    }

    QStringList lost;
    QStringList refused;
    QStringList accepted;  ///< Names of the rows that were changed, as far as anybody knew then.
};

/// The second failure is one of so many operations in a row: single writes are lost when their last try
/// fails, after those of the halves that they belong to.
class TwoFaultsTest : public SecondRunTest, public ::testing::WithParamInterface<int> {
protected:
    /// Writes on a disk with each pair of failures, and looks at what it has left. Each check says how many
    /// rows or statements were lost, and is given the words that say where.
    void Sweep(const std::function<void()>& write, const std::function<int(const std::string&)>& check) {
        database.reset();
        FaultyDisk disk;
        int losses = 0;
        int faults = 1;
        // All pairs, unless a slow build asks for fewer.
        const int stride = std::max(1, qEnvironmentVariableIntValue("WRENFIELD_PAIR_STRIDE"));
        for (int first = 1; faults > 0; ++first) {
            faults = 2;
            for (int second = 1 + first % stride; faults > 1; second += stride) {
                OpenAnew();
                disk.FailAt(first, FaultyDisk::Fault::Once);
                disk.FailAgainAfter(second, GetParam());
                write();
                const bool isMissed = MissesRows();
                database.reset();
                faults = disk.Faults();
                // When nothing is left of a group but to make sure of the end of a Jet file's journal, all of
                // it is told as lost, and is in the file.
                const bool mayBeThere = FormatUnderTest() == FileFormat::Jet && GetParam() == 15;
                disk.Repair();
                // As whoever opens it next does, this takes back what could not be taken back before.
                DBEngine::Instance().OpenDatabase(path).reset();
                const std::string where =
                    "operations " + std::to_string(first) + " and " + std::to_string(second) +
                    " after it: " + (refused + lost).join(QLatin1Char('\n')).toStdString();
                toldAndGone = toldAndThere = 0;
                losses += check(where);
                EXPECT_TRUE(toldAndThere == 0 || (mayBeThere && toldAndGone == 0)) << where;
                EXPECT_FALSE(isMissed) << where;
                EXPECT_EQ(Faults(), std::vector<std::string>()) << where;
            }
            EXPECT_TRUE(faults > 0 || first > 5);
        }
        EXPECT_TRUE(GetParam() == 1 || losses > 0) << "several failures in a row must have cost something";
    }

    /// A write that isn't in the file must have been told; what was told is counted.
    void NoteWrite(bool isGone, bool isTold, const std::string& where) {
        EXPECT_TRUE(!isGone || isTold) << where;
        toldAndGone += isTold && isGone ? 1 : 0;
        toldAndThere += isTold && !isGone ? 1 : 0;
    }

    int toldAndGone = 0;
    int toldAndThere = 0;
};

INSTANTIATE_TEST_SUITE_P(Operations, TwoFaultsTest, ::testing::Values(1, 5, 15));

// Every row carries its own name, and each change says in its value which row it is for.
TEST_P(TwoFaultsTest, NoPairOfFaultsBringsAChangeToARowThatItWasNotMadeFor) {
    const auto write = [&] {
        for (int row = 1; row <= 5; ++row) {
            Execute(QStringLiteral("insert into copies(text, number) values('n%1', %1)").arg(row));
        }
        ChangeAll({QStringLiteral("n1"), QStringLiteral("n2"), QStringLiteral("n3"), QStringLiteral("n4"),
                   QStringLiteral("n5")});
        Execute(QStringLiteral("insert into copies(text, number) values('n6', 6)"));
    };
    const auto check = [&](const std::string& where) {
        int losses = 0;
        const auto numbers = Numbers();
        EXPECT_EQ(numbers.value(QStringLiteral("old")), 7) << where;
        for (int row = 1; row <= 6; ++row) {
            const QString name = QStringLiteral("n%1").arg(row);
            const bool isThere = numbers.contains(name);
            const double number = numbers.value(name);
            const bool isInsertTold = IsTold(QStringLiteral("insert"), QLatin1Char('\'') + name);
            const bool isChangeTold = IsTold(QStringLiteral("change"), name);
            if (row == 2) {
                const bool isRemoved = accepted.contains(name) && !IsTold(QStringLiteral("removal"), name);
                EXPECT_EQ(!isThere, isRemoved || isInsertTold) << where;
            } else if (row == 6) {
                NoteWrite(!isThere, isInsertTold, where);
            } else if (isThere) {
                EXPECT_TRUE(number == row || number == 10 * row)
                    << where << ": " << name.toStdString() << " holds " << number;
                NoteWrite(number == row, isChangeTold, where);
            } else {
                EXPECT_TRUE(isInsertTold) << where;
                EXPECT_TRUE(!accepted.contains(name) || isChangeTold) << where;
            }
            losses += row != 2 && !isThere ? 1 : 0;
        }
        return losses;
    };
    Sweep(write, check);
}

// A copy is made of rows of the same group, after one of them has been changed; then the copied rows are
// changed in turn.
TEST_P(TwoFaultsTest, NoPairOfFaultsCopiesRowsOtherThanTheyWere) {
    bool isCopied = false;
    const auto write = [&] {
        for (int row = 1; row <= 4; ++row) {
            Execute(QStringLiteral("insert into notes(text) values('n%1')").arg(row));
        }
        const int changeOfN3 = ErrorOf([&] {
            const auto rows = Dynaset("select * from notes where text = 'n3'");
            rows->Edit();
            rows->Fields(0).Set(QStringLiteral("m3"));
            rows->Update();
        });
        Execute(
            QStringLiteral("insert into copies(text, number) select text, 1 from notes where text <> 'n2'"));
        isCopied = refused.isEmpty() && lost.isEmpty() && changeOfN3 == 0;
        if (isCopied) {
            ChangeAll({QStringLiteral("n1"), QStringLiteral("m3"), QStringLiteral("n4")});
        }
    };
    const auto check = [&](const std::string& where) {
        const QStringList notes = ReadRows(path, "select text from notes");
        auto numbers = Numbers();
        EXPECT_EQ(numbers.take(QStringLiteral("old")), 7) << where;
        const bool isCopyTold = IsTold(QStringLiteral("insert into copies"), QStringLiteral("select"));
        EXPECT_EQ(numbers.isEmpty(), isCopyTold) << where;
        EXPECT_FALSE(isCopied && numbers.contains(QStringLiteral("n3"))) << where;
        EXPECT_FALSE(numbers.contains(QStringLiteral("n2"))) << where;
        for (const QString& note : notes) {
            EXPECT_TRUE(numbers.isEmpty() || numbers.contains(note) || note == QLatin1String("n2"))
                << note.toStdString() << " is not copied; " << where;
        }
        for (auto copy = numbers.cbegin(); copy != numbers.cend(); ++copy) {
            EXPECT_TRUE(notes.contains(copy.key())) << copy.key().toStdString() << " " << where;
            const double wanted = 10 * copy.key().mid(1).toDouble();
            EXPECT_TRUE(copy.value() == 1 || copy.value() == wanted) << where;
            EXPECT_TRUE(copy.value() == wanted || !accepted.contains(copy.key()) ||
                        IsTold(QStringLiteral("change"), copy.key()) || wanted == 1)
                << where;
        }
        return isCopyTold ? 1 : 0;
    };
    Sweep(write, check);
}

// A fault that is over lets all writes go to the disk together again, not one by one.
TEST_F(SecondRunTest, TheWritesAreGroupedAnewByHalves) {
    database.reset();
    FaultyDisk disk;
    const auto operations = [&](int failAt) {
        OpenAnew();
        disk.FailAt(failAt, FaultyDisk::Fault::Once);
        for (int row = 0; row < 1000; ++row) {
            Execute(QStringLiteral("insert into copies(text, number) values('n%1', 1)").arg(row));
        }
        database.reset();
        EXPECT_TRUE(lost.isEmpty() && refused.isEmpty());
        return disk.Operations();
    };
    const int undisturbed = operations(0);
    EXPECT_LT(operations(undisturbed / 2), 3 * undisturbed);
    EXPECT_EQ(disk.Faults(), 1);
}

// Halves find the one write that can't be stored, and no other is lost for it.
TEST_F(SecondRunTest, OneWriteThatCannotBeStoredIsFoundAmongAThousandInAFewTries) {
    database.reset();
    FaultyDisk disk;
    OpenAnew();
    disk.FailOnBytes("unstorable");
    for (int row = 0; row < 1000; ++row) {
        const QString text = row == 700 ? QStringLiteral("unstorable") : QStringLiteral("n%1").arg(row);
        Execute(QStringLiteral("insert into copies(text, number) values('%1', 1)").arg(text));
    }
    database.reset();
    EXPECT_LT(disk.Syncs(), 200) << "two or three for each try, and a thousand are ten halves";
    disk.Repair();
    ASSERT_EQ(lost.size() + refused.size(), 1);
    EXPECT_TRUE(IsTold(QStringLiteral("insert"), QStringLiteral("unstorable")));
    EXPECT_EQ(Numbers().size(), 1000);
}

}  // namespace

}  // namespace engine
