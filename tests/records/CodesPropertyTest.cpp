#include "support/AddressSanitizer.h"
#include "support/CheckMany.h"
#include "support/RecordsTest.h"

namespace {

using records::TheCollections;

/// A second telling of how codes are made: one try after the other, each compared with every earlier record.
class PlainCodes {
public:
    explicit PlainCodes(qsizetype limit) : limit_(limit) {}

    void Add(const QString& name, const QString& preset) {
        codes.push_back(preset.isEmpty() ? CodeFor(name.left(limit_)) : preset);
    }

    std::vector<QString> codes;

private:
    bool IsTaken(const QString& candidate) const {
        return std::find(codes.begin(), codes.end(), candidate) != codes.end();
    }

    QString CodeFor(QString copy) const {
        for (int suffix = 0; IsTaken(copy);) {
            if (suffix != 0) {
                copy.chop(QString::number(suffix).size());
            }
            ++suffix;
            const QString number = QString::number(suffix);
            copy = copy.left(limit_ - number.size()) + number;
        }
        while (copy.startsWith(u' ')) {
            copy.remove(0, 1);
        }
        while (copy.endsWith(u' ')) {
            copy.chop(1);
        }
        return copy;
    }

    qsizetype limit_;
};

/// Names that are meant to get into each other's way: shared beginnings, names that look like numbered codes,
/// blanks at the places where names are cut.
QString DrawName() {
    static const std::array<QString, 14> names = {u"Kestrel Bank Cheque"_s,
                                                  u"Kestrel Bank of the Main Road"_s,
                                                  u"Kestrel B1"_s,
                                                  u"Kestrel 10"_s,
                                                  u"Kestrel 1"_s,
                                                  u"Kestrel "_s,
                                                  u""_s,
                                                  u"1"_s,
                                                  u" "_s,
                                                  u"ABCDEFGHI Z"_s,
                                                  u"ABCDEFGHI"_s,
                                                  u"  Bob"_s,
                                                  u"Bob"_s,
                                                  u"12345678901234567890123"_s};
    QString name = names.at(static_cast<std::size_t>(Draw(0, 13)));
    if (Chance(15)) {
        name = name.left(Draw(0, 21)) + QString::number(Draw(0, 120));
    }
    return name;
}

int DrawLength() {
    const int kind = Draw(1, 100);
    return kind == 1 ? Draw(120, 260) : Draw(0, kind <= 10 ? 130 : 30);
}

/// Lists in which a few names come again and again, so that numbers run past 10 and past 100.
std::vector<QString> DrawNames() {
    std::vector<QString> few(static_cast<std::size_t>(Draw(1, 6)));
    std::generate(few.begin(), few.end(), DrawName);
    std::vector<QString> names(static_cast<std::size_t>(DrawLength()));
    std::generate(names.begin(), names.end(), [&] {
        return few.at(static_cast<std::size_t>(Draw(0, static_cast<int>(few.size()) - 1)));
    });
    return names;
}

class CodesPropertyTest : public RecordsTest {};

TEST_F(CodesPropertyTest, AccountCodesAreThoseOfThePlainRule) {
    int longest = 0;
    CheckMany(CasesToTry(10'000, 10), [&] {
        TheCollections().bankAccounts = records::bankAccounts();
        PlainCodes plain(10);
        for (const QString& name : DrawNames()) {
            const QString preset = Chance(5) ? DrawName() : QString();
            AddAccount(name, preset);
            plain.Add(name, preset);
        }
        TheCollections().bankAccounts.GenerateCodes();
        for (std::size_t place = 0; place < plain.codes.size(); ++place) {
            const auto account = TheCollections().bankAccounts.Item(static_cast<int>(place) + 1);
            RC_ASSERT(account->Code.toStdString() == plain.codes[place].toStdString());
        }
        longest = std::max(longest, static_cast<int>(plain.codes.size()));
    });
    EXPECT_GT(longest, 150);
}

TEST_F(CodesPropertyTest, TenantCodesAreThoseOfThePlainRule) {
    CheckMany(2'000, [] {
        TheCollections().Tenants = records::Tenants();
        PlainCodes plain(20);
        for (const QString& name : DrawNames()) {
            AddTenant(name, {})->Code = Chance(5) ? DrawName() : QString();
            plain.Add(name, {});
        }
        TheCollections().Tenants.GenerateCodes();
        for (std::size_t place = 0; place < plain.codes.size(); ++place) {
            const auto tenant = TheCollections().Tenants.Item(static_cast<int>(place) + 1);
            RC_ASSERT(tenant->Code.toStdString() == plain.codes[place].toStdString());
        }
    });
}

}  // namespace
