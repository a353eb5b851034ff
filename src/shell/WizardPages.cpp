#include "shell/WizardPages.h"

#include "records/Collections.h"
#include "records/ImportSettings.h"
#include "screens/ListPages.h"
#include "screens/ctlSingleOwner.h"
#include "shell/ctlFinish.h"
#include "shell/ctlPageIntro.h"
#include "shell/ctlPageType.h"

#include <type_traits>

namespace shell {

namespace {

constexpr std::optional<int> Contents;

bool IsForAll() {
    return true;
}

bool IsForLandlords() {
    return records::CurrentSettings().IsLandlord;
}

bool IsForManagers() {
    return !IsForLandlords();
}

/// Each page gets of the collections what it works with.
template <typename Page>
QWidget* MakePage(QWidget* parent) {
    records::Collections& all = records::TheCollections();
    if constexpr (std::is_constructible_v<Page, QWidget*, records::Collections&>) {
        return new Page(parent, all);
    } else if constexpr (std::is_constructible_v<Page, QWidget*, records::Owners&>) {
        return new Page(parent, all.Owners);
    } else {
        return new Page(parent);
    }
}

/// A page has Initialise, IsValid and FirstField if there is something to fill in, to check or to enter.
template <typename Page>
PageKind KindOf(const QString& tab, const QString& name, std::optional<int> helpTopic,
                bool (*isMeant)() = IsForAll) {
    PageKind kind{.tab = tab,
                  .name = name,
                  .helpTopic = helpTopic,
                  .IsMeant = isMeant,
                  .Make = MakePage<Page>,
                  .Initialise = [](QWidget& /*page*/) {},
                  .IsValid = [](QWidget& /*page*/) { return true; },
                  .FirstField = [](const QWidget& /*page*/) -> QWidget* { return nullptr; }};
    if constexpr (requires(Page page) { page.Initialise(); }) {
        kind.Initialise = [](QWidget& page) { static_cast<Page&>(page).Initialise(); };
    }
    if constexpr (requires(Page page) { page.IsValid(); }) {
        kind.IsValid = [](QWidget& page) { return static_cast<Page&>(page).IsValid(); };
    }
    if constexpr (requires(const Page page) { page.FirstField(); }) {
        kind.FirstField = [](const QWidget& page) { return static_cast<const Page&>(page).FirstField(); };
    }
    return kind;
}

}  // namespace

const std::vector<PageKind>& Pages() {
    using namespace screens;
    // Topic 2 of the help is not in use.
    static const std::vector<PageKind> pages{
        KindOf<ctlPageIntro>(QStringLiteral("Introduction"), QStringLiteral("ctlPageIntro1"), Contents),
        KindOf<ctlPageAccounts>(QStringLiteral("Bank Accounts"), QStringLiteral("ctlPageAccounts1"), 1),
        KindOf<ctlPageType>(QStringLiteral("User Type"), QStringLiteral("ctlPageType1"), 6),
        KindOf<ctlPageOwner>(QStringLiteral("Owners"), QStringLiteral("ctlPageOwner1"), 3, IsForManagers),
        KindOf<ctlSingleOwner>(QStringLiteral("Owners"), QStringLiteral("ctlSingleOwner1"), 3,
                               IsForLandlords),
        KindOf<ctlPageProperty>(QStringLiteral("Properties"), QStringLiteral("ctlPageProperty1"), 4),
        KindOf<ctlPageTenant>(QStringLiteral("Tenants"), QStringLiteral("ctlPageTenant1"), 5),
        KindOf<ctlFinish>(QStringLiteral("Finished"), QStringLiteral("ctlFinish1"), Contents)};
    return pages;
}

}  // namespace shell
