#include "DialogTest.h"
#include "screens/ListPages.h"
#include "support/HeapInUse.h"

#include <QPixmapCache>

namespace {

/// What is opened and closed over and over must give everything back: an evening of entering hundreds of
/// tenants is one life of the wizard.
class MemoryTest : public RecordsTest {
protected:
    /// Bytes in each round; a dialog that is kept has more than ten times as much. Some are left to the
    /// toolkit, whose cache of pictures, which has a limit of its own, is switched off here.
    static constexpr int MayKeep = 1000;

    MemoryTest() { QPixmapCache::setCacheLimit(0); }
    ~MemoryTest() override { QPixmapCache::setCacheLimit(cacheLimit_); }

    template <typename Work>
    static void ExpectNothingKept(Work work) {
        constexpr int Times = 100;
        const auto repeat = [&work] {
            for (int time = 0; time < Times; ++time) {
                work();
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                QCoreApplication::processEvents();
            }
        };
        // The first round fills the caches of the toolkit.
        repeat();
        const std::int64_t before = HeapInUse();
        repeat();
        EXPECT_LT(HeapInUse() - before, Times * MayKeep) << "bytes in " << Times << " rounds";
    }

    template <typename Dialog>
    static void ExpectDialogKeepsNothing() {
        ExpectNothingKept([] {
            Dialog dialog(nullptr, records::TheCollections());
            dialog.show();
            QCoreApplication::processEvents();
            dialog.reject();
        });
    }

    template <typename Page>
    static void ExpectPageKeepsNothing() {
        Page page(nullptr, records::TheCollections());
        page.show();
        ExpectNothingKept([&page] { page.Initialise(); });
    }

private:
    int cacheLimit_ = QPixmapCache::cacheLimit();
};

TEST_F(MemoryTest, Dialogs) {
    AddOwner(u"A. Smith"_s);
    AddAccount(u"Kestrel"_s);
    AddProperty(u"12 Main Road"_s);
    ExpectDialogKeepsNothing<screens::frmBankAccount>();
    ExpectDialogKeepsNothing<screens::frmOwner>();
    ExpectDialogKeepsNothing<screens::frmProperty>();
    ExpectDialogKeepsNothing<screens::frmTenant>();
}

TEST_F(MemoryTest, ListPages) {
    for (int place = 1; place <= 50; ++place) {
        AddAccount(QString::number(place));
        AddTenant(QString::number(place), u"12 Main Road"_s);
    }
    ExpectPageKeepsNothing<screens::ctlPageAccounts>();
    ExpectPageKeepsNothing<screens::ctlPageTenant>();
}

}  // namespace
