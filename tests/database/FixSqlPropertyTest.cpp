#include "database/FixSql.h"
#include "platform/Failure.h"
#include "support/NaiveFixSql.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace {

QString AnyStatement() {
    const auto pieces = *rc::gen::container<std::vector<std::string>>(
        rc::gen::element<std::string>("'", "'", "'", "'", "true", "false", "tru", "e", "fals", " and", " AND",
                                      "  an", "d", " or ", " ord", " OR", "=", "<", ">", "like ", "liKE", "k",
                                      " ", "  ", "a", "bc", "O'Brien", "\xC3\xA9", "\xF0\x9F\x8F\xA0"));
    QString statement =
        *rc::gen::element<QString>(QString(), QStringLiteral("a = "), QStringLiteral("select "));
    for (const std::string& piece : pieces) {
        statement += QString::fromStdString(piece);
    }
    return statement;
}

std::optional<QString> FixSqlOrNothing(QString statement) {
    try {
        return database::FixSql(statement);
    } catch (const platform::Failure&) {
        return std::nullopt;
    }
}

RC_GTEST_PROP(FixSqlProperty, IsWhatTheSlowRuleGives, ()) {
    const QString statement = AnyStatement();
    RC_LOG() << statement.toStdString();
    const auto fixed = FixSqlOrNothing(statement);
    RC_CLASSIFY(!fixed.has_value(), "fails");
    RC_CLASSIFY(fixed.has_value() && fixed->size() > statement.size(), "doubled");
    RC_ASSERT(fixed == NaiveFixSql(statement));
}

RC_GTEST_PROP(FixSqlProperty, AnEvenNumberOfApostrophesStays, ()) {
    const QString statement = AnyStatement();
    RC_PRE(statement.count(QLatin1Char('\'')) % 2 == 0);
    const auto fixed = FixSqlOrNothing(statement);
    RC_ASSERT(fixed.has_value());
    RC_ASSERT(fixed->count(QLatin1Char('\'')) == statement.count(QLatin1Char('\'')));
}

}  // namespace
