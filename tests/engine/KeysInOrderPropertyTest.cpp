#include "EngineTest.h"

#include <QDate>
#include <QFile>

#include <rapidcheck/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace engine {

namespace {

/// Literals of SQLite in the order in which their rows are made.
using Made = std::vector<std::string>;

std::string Day(int number) {
    return "'" + QDate(2024, 2, 20).addDays(number).toString(Qt::ISODate).toStdString() + "'";
}

Made DaysOf(const std::vector<int>& numbers) {
    Made made;
    std::transform(numbers.begin(), numbers.end(), std::back_inserter(made), Day);
    return made;
}

/// Rows that lie in a file as it came, sorted by a row set.
class KeysInOrder : public EngineTest {
protected:
    KeysInOrder() {
        Run("create table sorted([day] datetime, [letters] text collate nocase, [blanks] text collate rtrim, "
            "[any], [place] long)");
    }

    void Run(const std::string& sql) { ASSERT_TRUE(RunElsewhere(path, sql.c_str())) << sql; }

    void Fill(const Made& made) {
        std::string sql = "begin; delete from sorted";
        for (size_t place = 0; place < made.size(); ++place) {
            const std::string& value = made[place];
            sql += "; insert into sorted values(" + value + ", " + value + ", " + value + ", " + value +
                   ", " + std::to_string(place) + ")";
        }
        Run(sql + "; commit");
    }

    QStringList PlacesOf(const std::string& statement) {
        const auto rows = Dynaset(statement.c_str());
        QStringList places;
        for (; !rows->Eof(); rows->MoveNext()) {
            places += ToText(rows->Fields(QStringLiteral("place")).Get());
        }
        return places;
    }

    void ExpectOrder(const Made& made) {
        Fill(made);
        for (const std::string order : {"day", "day desc", "letters", "letters desc", "blanks", "blanks desc",
                                        "any", "any desc", "day, letters desc", "letters desc, place desc"}) {
            const std::string statement = "select place from sorted where place >= 0 order by " + order;
            EXPECT_EQ(PlacesOf(statement), ReadRows(path, (statement + ", rowid").c_str()))
                << order << ": " << ::testing::PrintToString(made);
        }
    }
};

TEST_F(KeysInOrder, DaysThatRiseOrFallAreTakenAsTheyLie) {
    ExpectOrder({});
    ExpectOrder(DaysOf({1}));
    ExpectOrder(DaysOf({1, 2, 3, 10, 400}));
    ExpectOrder(DaysOf({400, 10, 3, 2, 1}));
}

TEST_F(KeysInOrder, ADayOutOfItsOrderIsSorted) {
    ExpectOrder(DaysOf({1, 2, 3, 0}));
    ExpectOrder(DaysOf({3, 2, 1, 4}));
    ExpectOrder(DaysOf({2, 1, 3}));
    ExpectOrder(DaysOf({1, 3, 2}));
}

TEST_F(KeysInOrder, EqualDaysComeInTheOrderOfTheirKeys) {
    ExpectOrder(DaysOf({1, 1}));
    ExpectOrder(DaysOf({1, 2, 2, 3}));
    ExpectOrder(DaysOf({3, 3, 2, 1, 1}));
}

TEST_F(KeysInOrder, LettersAndBlanksAreComparedAsTheFileSays) {
    ExpectOrder({"'B'", "'a'"});
    ExpectOrder({"'2024-01-01'", "'2024-01-01 '"});
    ExpectOrder({"'2024-01-01T10'", "'2024-01-01t09'"});
}

TEST_F(KeysInOrder, NumbersAndNullsComeBeforeTexts) {
    ExpectOrder({"'2024-01-01'", "10", "9"});
    ExpectOrder({"'10'", "'9'"});
    ExpectOrder({"'2024-01-01'", "null", "'2024-01-02'"});
    ExpectOrder({"x'39'", "'8'", "''"});
}

TEST_F(KeysInOrder, WideTextsAreComparedAsTheyAre) {
    database.reset();
    ASSERT_TRUE(QFile::resize(path, 0));
    Run("pragma encoding = 'UTF-16le'; create table sorted([day] datetime, [letters] text collate nocase, "
        "[blanks] text collate rtrim, [any], [place] long)");
    database = DBEngine::Instance().OpenDatabase(path);
    ExpectOrder(DaysOf({1, 2, 3}));
    ExpectOrder({"'\xC4\x80'", "'\xC3\xBF'"});
    ExpectOrder({"'2024'", "'2024-0'", "'2024-01'"});
}

RC_GTEST_FIXTURE_PROP(KeysInOrder, TheOrderIsThatOfAPlainSort, ()) {
    const auto day = rc::gen::map(rc::gen::inRange(0, 30), Day);
    const auto other =
        rc::gen::element<std::string>("null", "7", "-1.5", "''", "'7'", "'-'", "'2024-03'", "'2024-03-01 '",
                                      "'2024-03-01 10:00:00'", "'a'", "'B'", "x'32'", "'\xC3\xA9'");
    Made made = *rc::gen::container<Made>(rc::gen::weightedOneOf<std::string>({{15, day}, {1, other}}));
    switch (*rc::gen::inRange(0, 4)) {
        case 0:
            std::sort(made.begin(), made.end());
            break;
        case 1:
            std::sort(made.rbegin(), made.rend());
            break;
        case 2:
            std::sort(made.begin(), made.end());
            made.erase(std::unique(made.begin(), made.end()), made.end());
            break;
        default:
            break;
    }
    ExpectOrder(made);
    RC_ASSERT(!HasFailure());
}

}  // namespace

}  // namespace engine
