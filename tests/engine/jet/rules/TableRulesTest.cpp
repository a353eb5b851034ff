#include "RulesFile.h"
#include "engine/jet/rules/TableRules.h"
#include "platform/Clock.h"

namespace engine::jet {
namespace {

NewTable Things() {
    NewTable table;
    table.name = QStringLiteral("things");
    table.columns = {ColumnOf("id", ColumnType::Long),         ColumnOf("name", ColumnType::Text, 50),
                     ColumnOf("amount", ColumnType::Currency), ColumnOf("notes", ColumnType::Memo),
                     ColumnOf("added", ColumnType::DateTime),  ColumnOf("yes", ColumnType::Boolean)};
    table.columns[0].countsUp = true;
    return table;
}

enum Place { Id, Name, Amount, Notes, Added, IsYes };

class JetTableRules : public ::testing::Test {
protected:
    // The rules that the file has now.
    TableRules& Rules(const PropertyBytes& properties) { return Rules(properties.Block()); }
    TableRules& Rules(const QByteArray& block) {
        file.SetProperties("things", block);
        const Catalogue catalogue(*file.pages);
        return rules.emplace(catalogue, catalogue.Find(QStringLiteral("things")), layout);
    }

    std::vector<Value> Row(std::initializer_list<std::pair<const char*, Value>> values) const {
        return RulesFile::RowOf(layout, values);
    }
    Failing New(std::initializer_list<std::pair<const char*, Value>> values) const {
        return FailureOf([&] { rules->CheckNew(Row(values)); });
    }
    Failing Changed(std::initializer_list<std::pair<const char*, Value>> values,
                    std::initializer_list<Place> assigned) const {
        std::vector<bool> isAssigned(6);
        for (const Place place : assigned) {
            isAssigned[place] = true;
        }
        return FailureOf([&] { rules->CheckChanged(Row(values), isAssigned); });
    }
    static bool Tells(const Failing& failing, std::initializer_list<const char*> words) {
        return std::all_of(words.begin(), words.end(), [&failing](const char* word) {
            return failing.sentence.contains(QLatin1String(word));
        });
    }

    RulesFile file{{Things()}};
    TableLayout layout = file.Open("things")->Layout();
    std::optional<TableRules> rules;
};

const Value Text = QStringLiteral("text");

TEST_F(JetTableRules, ATableWithoutPropertiesTakesAnything) {
    const Catalogue catalogue(*file.pages);
    rules.emplace(catalogue, catalogue.Find(QStringLiteral("things")), layout);
    EXPECT_EQ(New({}).number, 0);
    EXPECT_EQ(Changed({{"name", QString()}}, {Name}).number, 0);
    std::vector<Value> row(6);
    rules->FillDefaults(row, std::vector<bool>(6));
    EXPECT_EQ(row, std::vector<Value>(6));
    EXPECT_EQ(FailureOf([&] { rules->RequireUnderstood(); }).number, 0);
}

TEST_F(JetTableRules, ARequiredColumnRefusesNulls) {
    Rules(PropertyBytes().OfColumn("Name", "Required", true).OfColumn("amount", "Required", false));
    const Failing failing = New({});
    EXPECT_EQ(failing.number, ErrorNumber::NullNotAllowed);
    EXPECT_TRUE(Tells(failing, {"things.name", "Null"})) << failing.sentence.toStdString();
    EXPECT_EQ(New({{"name", QString()}}).number, 0);
    EXPECT_EQ(Changed({}, {Name}).number, ErrorNumber::NullNotAllowed);
    EXPECT_EQ(Changed({}, {Amount}).number, 0);
}

TEST_F(JetTableRules, AnEmptyTextIsRefusedWhereItIsNotAllowed) {
    Rules(PropertyBytes()
              .OfColumn("name", "AllowZeroLength", false)
              .OfColumn("notes", "AllowZeroLength", false)
              .OfColumn("amount", "AllowZeroLength", false));
    const Failing failing = New({{"name", QString()}});
    EXPECT_EQ(failing.number, 3315);
    EXPECT_TRUE(Tells(failing, {"things.name"})) << failing.sentence.toStdString();
    EXPECT_EQ(New({{"notes", QStringLiteral("")}}).number, ErrorNumber::EmptyTextNotAllowed);
    EXPECT_EQ(New({}).number, 0);
    EXPECT_EQ(New({{"name", QStringLiteral(" ")}}).number, 0);
    EXPECT_EQ(Changed({{"name", QString()}}, {Name}).number, ErrorNumber::EmptyTextNotAllowed);
    EXPECT_EQ(Changed({{"name", QString()}}, {Notes}).number, 0);
    // What a number can't hold is refused as such, elsewhere.
    EXPECT_EQ(New({{"amount", QString()}}).number, 0);
}

TEST_F(JetTableRules, EmptyTextsAreAllowedWhereNothingIsSaid) {
    Rules(PropertyBytes().OfColumn("name", "AllowZeroLength", true).OfColumn("notes", "Required", false));
    EXPECT_EQ(New({{"name", QString()}, {"notes", QString()}}).number, 0);
}

TEST_F(JetTableRules, AutomaticNumbersAndYesOrNoAreNeitherRequiredNorHaveADefault) {
    Rules(PropertyBytes()
              .OfColumn("id", "Required", true)
              .OfColumn("id", "DefaultValue", QStringLiteral("7"))
              .OfColumn("yes", "Required", true)
              .OfColumn("yes", "DefaultValue", QStringLiteral("Yes")));
    EXPECT_EQ(New({}).number, 0);
    std::vector<Value> row(6);
    rules->FillDefaults(row, std::vector<bool>(6));
    EXPECT_EQ(row, std::vector<Value>(6));
}

TEST_F(JetTableRules, ARuleOfAColumnIsRefusedInItsWordsOrInOurs) {
    Rules(PropertyBytes()
              .OfColumn("amount", "ValidationRule", QStringLiteral(">=0"))
              .OfColumn("name", "ValidationRule", QStringLiteral("Like \"A*\""))
              .OfColumn("name", "ValidationText", QStringLiteral("Names begin with A.")));
    const Failing ours = New({{"amount", qint64{-5}}});
    EXPECT_EQ(ours.number, 3317);
    EXPECT_TRUE(Tells(ours, {"things.amount", "-5", ">=0"})) << ours.sentence.toStdString();
    const Failing its = New({{"name", QStringLiteral("B")}});
    EXPECT_EQ(its.number, 3316);
    EXPECT_EQ(its.sentence, QStringLiteral("Names begin with A."));
    EXPECT_EQ(New({{"name", QStringLiteral("a")}, {"amount", qint64{5}}}).number, 0);
    EXPECT_EQ(New({}).number, 0);
    EXPECT_EQ(Changed({{"amount", qint64{-5}}}, {Amount}).number, ErrorNumber::RuleBroken);
}

TEST_F(JetTableRules, ARowThatBreaksAColumnsRuleMayStaySoInOtherColumns) {
    Rules(PropertyBytes().OfColumn("amount", "ValidationRule", QStringLiteral(">=0")));
    EXPECT_EQ(Changed({{"amount", qint64{-5}}, {"name", Text}}, {Name}).number, 0);
}

TEST_F(JetTableRules, TheTablesRuleIsAskedWhateverIsAssigned) {
    Rules(PropertyBytes().OfTable("ValidationRule", QStringLiteral("[amount]>=0 Or [name] Is Null")));
    const Failing failing = New({{"amount", qint64{-5}}, {"name", Text}});
    EXPECT_EQ(failing.number, ErrorNumber::RuleBroken);
    EXPECT_TRUE(Tells(failing, {"'things'", "[amount]>=0"})) << failing.sentence.toStdString();
    EXPECT_EQ(New({{"amount", qint64{-5}}}).number, 0);
    EXPECT_EQ(Changed({{"amount", qint64{-5}}, {"name", Text}}, {Notes}).number, ErrorNumber::RuleBroken);
    Rules(PropertyBytes()
              .OfTable("ValidationRule", QStringLiteral("[amount]>=0"))
              .OfTable("ValidationText", QStringLiteral("Never below.")));
    EXPECT_EQ(New({{"amount", qint64{-5}}}).number, ErrorNumber::RuleBrokenInWords);
    EXPECT_EQ(New({{"amount", qint64{-5}}}).sentence, QStringLiteral("Never below."));
}

TEST_F(JetTableRules, ColumnsAreCheckedInTheirOrderAndBeforeTheTable) {
    Rules(PropertyBytes()
              .OfTable("ValidationRule", QStringLiteral("[amount]>100"))
              .OfColumn("notes", "Required", true)
              .OfColumn("amount", "ValidationRule", QStringLiteral(">0"))
              .OfColumn("name", "AllowZeroLength", false)
              .OfColumn("name", "ValidationRule", QStringLiteral("Len(name)>2")));
    EXPECT_EQ(New({{"name", QString()}, {"amount", qint64{0}}}).number, ErrorNumber::EmptyTextNotAllowed);
    EXPECT_TRUE(Tells(New({{"name", QStringLiteral("a")}}), {"things.name"}));
    EXPECT_TRUE(Tells(New({{"name", Text}, {"amount", qint64{0}}}), {"things.amount"}));
    EXPECT_EQ(New({{"name", Text}, {"amount", qint64{1}}}).number, ErrorNumber::NullNotAllowed);
    EXPECT_TRUE(Tells(New({{"name", Text}, {"amount", qint64{1}}, {"notes", Text}}), {"'things'"}));
}

TEST_F(JetTableRules, DefaultsFillWhatNobodyGave) {
    Rules(PropertyBytes()
              .OfColumn("name", "DefaultValue", QStringLiteral("\"House\""))
              .OfColumn("amount", "DefaultValue", QStringLiteral("=0"))
              .OfColumn("added", "DefaultValue", QStringLiteral("Date()"))
              .OfColumn("notes", "DefaultValue", QStringLiteral(" ")));
    platform::PinToday(QDate(2026, 3, 14));
    std::vector<Value> row(6);
    rules->FillDefaults(row, {false, false, true, false, false, false});
    platform::PinToday({});
    EXPECT_EQ(row, Row({{"name", QStringLiteral("House")}, {"added", FromDate(QDate(2026, 3, 14))}}));
}

TEST_F(JetTableRules, ADefaultThatIsNotUnderstoodRefusesOnlyARowThatNeedsIt) {
    Rules(PropertyBytes()
              .OfColumn("name", "DefaultValue", QStringLiteral("GenUniqueID()"))
              .OfColumn("amount", "DefaultValue", QStringLiteral("1")));
    std::vector<Value> row(6);
    const Failing failing = FailureOf([&] { rules->FillDefaults(row, std::vector<bool>(6)); });
    EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
    EXPECT_TRUE(Tells(failing, {"things.name", "GenUniqueID()"})) << failing.sentence.toStdString();
    std::vector<std::optional<Value>> known(6);
    known[Amount] = Currency::FromScaled(10000);
    EXPECT_EQ(rules->KnownDefaults(), known);
    std::vector<bool> isGiven(6);
    isGiven[Amount] = true;
    EXPECT_EQ(FailureOf([&] { rules->FillDefaults(row, isGiven); }).number, ErrorNumber::InvalidOperation);
    isGiven[Name] = true;
    EXPECT_EQ(FailureOf([&] { rules->FillDefaults(row, isGiven); }).number, 0);
    EXPECT_EQ(FailureOf([&] { rules->RequireUnderstood(); }).number, 0);
}

TEST_F(JetTableRules, ARuleThatIsNotUnderstoodRefusesWhatItWouldBeAskedFor) {
    Rules(PropertyBytes().OfColumn("amount", "ValidationRule", QStringLiteral("CLng(1)>2")));
    EXPECT_EQ(New({}).number, ErrorNumber::InvalidOperation);
    EXPECT_EQ(Changed({}, {Amount}).number, ErrorNumber::InvalidOperation);
    EXPECT_EQ(Changed({}, {Name}).number, 0);
    const Failing failing = FailureOf([&] { rules->RequireUnderstood(); });
    EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
    EXPECT_TRUE(Tells(failing, {"things.amount", "CLng(1)>2"})) << failing.sentence.toStdString();
    Rules(PropertyBytes().OfTable("ValidationRule", QStringLiteral("f([Amount])>2")));
    EXPECT_EQ(New({}).number, ErrorNumber::InvalidOperation);
    EXPECT_EQ(Changed({}, {Amount}).number, ErrorNumber::InvalidOperation);
    EXPECT_EQ(Changed({}, {Name}).number, 0);
    EXPECT_TRUE(Tells(FailureOf([&] { rules->RequireUnderstood(); }), {"'things'", "f([Amount])>2"}));
}

TEST_F(JetTableRules, PropertiesThatCannotBeReadRefuseEveryWrite) {
    for (const QByteArray& block :
         {QByteArray("KKD\0", 4), PropertyBytes().Block() + "x",
          PropertyBytes().Add(1, QStringLiteral("name"), "ValidationRule", 4, {}).Block()}) {
        Rules(block);
        for (const Failing& failing :
             {New({}), Changed({}, {Name}), FailureOf([&] { rules->RequireReadable(); }),
              FailureOf([&] { rules->RequireUnderstood(); })}) {
            EXPECT_EQ(failing.number, ErrorNumber::InvalidOperation);
            EXPECT_TRUE(Tells(failing, {"'things'", "properties"})) << failing.sentence.toStdString();
        }
    }
}

// The block lies on pages of its own, which are none of it any more.
TEST_F(JetTableRules, ADamagedBlockRefusesWritesAndNotTheOpening) {
    Rules(PropertyBytes().OfColumn("name", "DefaultValue", QString(4000, QLatin1Char('x'))));
    const auto objects = file.Open("MSysObjects");
    const int column = objects->Layout().FindColumn(QStringLiteral("LvProp")).value();
    const StoredRow row = objects->Rows().Read(file.EntryOf("things").row);
    const RowPlace place = ReadRowPlace(row.BytesOf(column), 4);
    file.pages->Change(place.page).fill(0);
    const Catalogue catalogue(*file.pages);
    rules.emplace(catalogue, catalogue.Find(QStringLiteral("things")), layout);
    EXPECT_TRUE(Tells(New({}), {"'things'", "damaged"})) << New({}).sentence.toStdString();
}

}  // namespace
}  // namespace engine::jet
