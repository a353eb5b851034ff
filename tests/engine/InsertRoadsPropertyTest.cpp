#include "EngineTest.h"

#include <rapidcheck/gtest.h>

namespace engine {

namespace {

std::vector<ColumnDefinition> AllShortTypes() {
    return {{QStringLiteral("yes"), dbBoolean},     {QStringLiteral("byte"), dbByte},
            {QStringLiteral("short"), dbInteger},   {QStringLiteral("long"), dbLong},
            {QStringLiteral("money"), dbCurrency},  {QStringLiteral("single"), dbSingle},
            {QStringLiteral("number"), dbDouble},   {QStringLiteral("date"), dbDate},
            {QStringLiteral("letters"), dbText, 3}, {QStringLiteral("name"), dbText, 20}};
}

std::vector<ColumnDefinition> WithKey() {
    std::vector<ColumnDefinition> columns = AllShortTypes();
    columns.push_back({QStringLiteral("key"), dbLong});
    return columns;
}

/// Two tables that differ in a key that only one has. Its inserts could be refused, so that each runs as a
/// statement of its own; those of the other wait for one another.
class TwoRoads {
public:
    TwoRoads() {
        DBEngine::Instance().CreateDatabase(
            path_, FormatUnderTest(),
            {{QStringLiteral("waiting"), AllShortTypes(), {}},
             {QStringLiteral("alone"),
              WithKey(),
              {{QStringLiteral("alone_key"), {QStringLiteral("key")}, true}}}});
        database_ = DBEngine::Instance().OpenDatabase(path_);
    }

    void Clear() {
        database_->Execute(QStringLiteral("delete from waiting"));
        database_->Execute(QStringLiteral("delete from alone"));
    }

    /// The same literals for the first columns, from a first one on. Returns both error numbers.
    std::pair<int, int> Insert(std::size_t first, const QStringList& literals) {
        QStringList names;
        for (qsizetype place = 0; place < literals.size(); ++place) {
            names += AllShortTypes()[(first + static_cast<std::size_t>(place)) % AllShortTypes().size()].name;
        }
        ++key_;
        const QString columns = names.join(QLatin1Char(','));
        const QString values = literals.join(QLatin1Char(','));
        return {
            ErrorOf(QStringLiteral("insert into waiting(%1) values(%2)").arg(columns, values)),
            ErrorOf(
                QStringLiteral("insert into alone(%1,[key]) values(%2,%3)").arg(columns, values).arg(key_))};
    }

    std::pair<QStringList, QStringList> Rows() { return {RowsOf("waiting"), RowsOf("alone")}; }

private:
    int ErrorOf(const QString& statement) {
        try {
            database_->Execute(statement);
        } catch (const Error& error) {
            return error.Number();
        }
        return 0;
    }

    QStringList RowsOf(const char* table) {
        const auto rows = database_->OpenRecordset(
            QStringLiteral("select yes,byte,short,long,money,single,number,date,letters,name from %1")
                .arg(QLatin1String(table)),
            dbOpenForwardOnly, dbReadOnly);
        QStringList all;
        for (; !rows->Eof(); rows->MoveNext()) {
            QStringList values;
            for (int place = 0; place < 10; ++place) {
                const Value value = rows->Fields(place).Get();
                values += IsNull(value) ? QStringLiteral("NULL") : ToText(value);
            }
            all += values.join(QLatin1Char('|'));
        }
        return all;
    }

    QTemporaryDir directory_;
    QString path_ = directory_.filePath(QStringLiteral("roads.mdb"));
    std::unique_ptr<Database> database_;
    int key_ = 0;
};

rc::Gen<QString> SomeLiteral() {
    const auto oneOf = [](std::initializer_list<const char16_t*> texts) {
        std::vector<QString> all;
        for (const char16_t* text : texts) {
            all.push_back(QString::fromUtf16(text));
        }
        return rc::gen::elementOf(all);
    };
    return rc::gen::oneOf(
        oneOf({u"0", u"-1", u"1", u"255", u"256", u"32767", u"-32768", u"32768", u"2147483647", u"2147483648",
               u"922337203685477", u"922337203685478", u"9223372036854775807"}),
        oneOf({u"0.5", u"1.5", u"123.45", u"-0.00005", u"1234567.8901", u"70368744177.6641", u"1e300"}),
        oneOf({u"'a'", u"''", u"'ab'", u"'abc'", u"'abcd'", u"'12'", u"'1.5'", u"'\u00E9'",
               u"'\u00E9\u00E9b'", u"'\u0416\u0416\u0416\u0416'", u"'it''s'", u"'A  '", u"'2026-03-15'",
               u"'a text of 23 characters'"}),
        oneOf({u"#03/15/2026#", u"#12/30/1899#", u"#01/01/0100#", u"#12/31/9999#", u"#02/29/2024#"}),
        oneOf({u"null", u"true", u"false"}));
}

// Rows of literals may go past SQLite where they wait, and are then what they are by its statements, value by
// value; what a column refuses is refused on both roads.
RC_GTEST_PROP(InsertRoadsProperty, RowsThatWaitHoldWhatTheyHoldAlone, ()) {
    static TwoRoads roads;
    roads.Clear();
    const auto rows = *rc::gen::container<std::vector<std::pair<std::size_t, std::vector<QString>>>>(
        rc::gen::pair(rc::gen::inRange<std::size_t>(0, 10),
                      rc::gen::suchThat(
                          rc::gen::container<std::vector<QString>>(SomeLiteral()),
                          [](const auto& literals) { return !literals.empty() && literals.size() <= 10; })));
    for (const auto& [first, literals] : rows) {
        const auto [waiting, alone] = roads.Insert(first, QStringList(literals.begin(), literals.end()));
        RC_ASSERT(waiting == alone);
    }
    const auto [waiting, alone] = roads.Rows();
    RC_ASSERT(waiting == alone);
}

// Most literals don't suit most columns. Here each column gets what suits it, many rows in a row.
TEST(InsertRoads, ManyRowsThatDifferInLittleKeepTheirOwnValues) {
    TwoRoads roads;
    for (int row = 0; row < 100; ++row) {
        const QString name = row % 3 == 0 ? QStringLiteral("'n%1'").arg(row) : QStringLiteral("'\u0416same'");
        const QString money = row % 40 < 20 ? QStringLiteral("1") : QStringLiteral("%1.25").arg(row % 5);
        const QString date = QStringLiteral("#03/%1/2026#").arg(1 + row % 28, 2, 10, QLatin1Char('0'));
        EXPECT_EQ(roads.Insert(0, {QStringLiteral("%1").arg(row % 2), QStringLiteral("%1").arg(row),
                                   QStringLiteral("-%1").arg(row), QStringLiteral("%1").arg(100000 * row),
                                   money, QStringLiteral("0.5"), QStringLiteral("%1.5").arg(row % 7), date,
                                   row % 2 == 0 ? QStringLiteral("'ab'") : QStringLiteral("'abc'"), name}),
                  std::make_pair(0, 0));
    }
    const auto [waiting, alone] = roads.Rows();
    EXPECT_EQ(waiting.size(), 100);
    EXPECT_EQ(waiting, alone);
}

}  // namespace

}  // namespace engine
