#include "WizardForm.h"
#include "controls/akDate.h"
#include "controls/ctlTextBox.h"
#include "platform/NoDate.h"
#include "records/Collections.h"
#include "records/ImportSettings.h"

#include <QAccessible>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>

namespace {

class StaticPagesTest : public WizardForm {
protected:
    static bool Has(const QWidget& page, const char* text) {
        const QList<QLabel*> labels = page.findChildren<QLabel*>();
        return std::any_of(labels.begin(), labels.end(),
                           [text](const QLabel* label) { return label->text() == QLatin1String(text); });
    }

    controls::ctlTextBox& Fee() const { return Find<controls::ctlTextBox>("txtManagementFee"); }
    controls::akDate& Disbursement() const { return Find<controls::akDate>("datLastDisbursement"); }
};

constexpr const char* warning =
    "WARNING - This will delete all existing data in your Hearthbook database.  This includes existing "
    "properties, owners, tenants, bank accounts and ALL transactions.";
constexpr const char* changeLater =
    "All the information entered during this process can be changed later, with the exception of the tenancy "
    "start date.";

TEST_F(StaticPagesTest, TheFirstPageSaysWhatWillHappen) {
    const QWidget& page = Find("ctlPageIntro1");
    EXPECT_TRUE(Has(page,
                    "This wizard will help you create your first bank accounts, owners, properties and "
                    "tenants."));
    EXPECT_TRUE(Has(page, warning));
    EXPECT_TRUE(Has(page, changeLater));
}

// A screen reader tells a group's name and its own text when the focus comes into it, and those of a
// notification when it comes up, since the focus never comes there.
TEST_F(StaticPagesTest, EachPageIsToldByTheNameOfItsTab) {
    for (const auto& [page, tab, role] :
         {std::tuple{"ctlPageIntro1", "Introduction", QAccessible::Notification},
          std::tuple{"ctlPageAccounts1", "Bank Accounts", QAccessible::Grouping},
          std::tuple{"ctlPageType1", "User Type", QAccessible::Grouping},
          std::tuple{"ctlPageOwner1", "Owners", QAccessible::Grouping},
          std::tuple{"ctlSingleOwner1", "Owners", QAccessible::Grouping},
          std::tuple{"ctlPageProperty1", "Properties", QAccessible::Grouping},
          std::tuple{"ctlPageTenant1", "Tenants", QAccessible::Grouping},
          std::tuple{"ctlFinish1", "Finished", QAccessible::Notification}}) {
        const QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&Find(page));
        EXPECT_EQ(told->text(QAccessible::Name), QLatin1String(tab)) << page;
        EXPECT_EQ(told->role(), role) << page;
    }
}

// A label that belongs to no field would be told as the page's own text.
TEST_F(StaticPagesTest, TheLabelsOfFieldsBelongToThem) {
    for (const auto& [page, name] : {std::pair{"ctlPageType1", "Label2"}, std::pair{"ctlPageType1", "Label4"},
                                     std::pair{"ctlSingleOwner1", "Label2"}}) {
        auto* label = Find(page).findChild<QLabel*>(QLatin1String(name));
        const auto relations = QAccessible::queryAccessibleInterface(label)->relations(QAccessible::Labelled);
        ASSERT_EQ(relations.size(), 1) << page << name;
        EXPECT_EQ(relations.front().first->text(QAccessible::Name), label->text()) << page << name;
    }
}

// Beside words that all will be deleted.
TEST_F(StaticPagesTest, ASignOfWarningStandsBesideTheWarning) {
    for (const char* name : {"ctlPageIntro1", "ctlFinish1"}) {
        QWidget& page = Find(name);
        auto& sign = *page.findChild<QWidget*>(QStringLiteral("Image1"));
        const auto& words = *page.findChild<QLabel*>(QStringLiteral("Label1"));
        EXPECT_NEAR(sign.geometry().center().y(), words.geometry().center().y(), 1) << name;
        EXPECT_TRUE(words.alignment().testFlag(Qt::AlignVCenter)) << name;
        EXPECT_GT(words.geometry().left(), sign.geometry().right()) << name;
        const QImage picture = sign.grab().toImage();
        const QPointF middle(picture.width() / 2.0, picture.height() / 2.0);
        const QColor ink = picture.pixelColor(middle.toPoint());
        const QColor ground = picture.pixelColor((middle + QPointF(picture.width() / 8.0, 0)).toPoint());
        EXPECT_LT(ink.lightness(), 80) << name << ": the mark within the sign";
        EXPECT_GT(ground.red() - ground.blue(), 120) << name << ": the sign is yellow";
    }
}

TEST_F(StaticPagesTest, TheLastPageCountsInThePluralAndWarnsAgain) {
    const QWidget& page = Find("ctlFinish1");
    Heading().ChangeTabEnabled(6, true);
    Heading().ChangeTab(6);
    EXPECT_TRUE(Has(page,
                    "The following items will be created.\n1 bank accounts\n0 property owners\n"
                    "0 properties\n0 tenants\n"));
    EXPECT_TRUE(Has(page, warning));
    EXPECT_TRUE(Has(page, changeLater));
    // Anew each time that it is shown.
    records::TheCollections().bankAccounts.Remove(1);
    Heading().ChangeTab(0);
    Heading().ChangeTab(6);
    EXPECT_TRUE(Has(page,
                    "The following items will be created.\n0 bank accounts\n0 property owners\n"
                    "0 properties\n0 tenants\n"));
}

TEST_F(StaticPagesTest, ThePageOfTypesSaysWhatItAsksFor) {
    const QWidget& page = Find("ctlPageType1");
    EXPECT_TRUE(Has(page, "What type of user are you?"));
    EXPECT_TRUE(Has(page, "Typical management fee % including all taxes is"));
    EXPECT_TRUE(Has(page, "%"));
    EXPECT_TRUE(Has(page, "Date of last disbursement"));
    EXPECT_EQ(Find<QRadioButton>("optLandlord").text(),
              QStringLiteral("I am a landlord.  I only manage my own properties."));
    EXPECT_EQ(Find<QRadioButton>("optManager").text(),
              QStringLiteral("I am a property manager.  I manage properties on behalf of other owners"));
}

TEST_F(StaticPagesTest, TheFeeHasFourDecimalsAndNoSign) {
    EXPECT_TRUE(Fee().IsNumeric());
    EXPECT_EQ(Fee().DecimalPlaces(), 4);
    EXPECT_FALSE(Fee().AllowNegative());
    EXPECT_EQ(Fee().Alignment(), 1);
    EXPECT_TRUE(Disbursement().IncludeNone());
}

TEST_F(StaticPagesTest, NobodyIsALandlordOrAManagerAtFirst) {
    EXPECT_FALSE(Find<QRadioButton>("optLandlord").isChecked());
    EXPECT_FALSE(Find<QRadioButton>("optManager").isChecked());
    EXPECT_FALSE(Fee().Enabled());
    EXPECT_FALSE(Disbursement().Enabled());
    EXPECT_EQ(Fee().Text(), QStringLiteral("0.00"));
    EXPECT_EQ(Disbursement().Value(), platform::NoDate());
}

TEST_F(StaticPagesTest, AManagersFieldsKeepWhatIsInThem) {
    Find<QRadioButton>("optManager").click();
    EXPECT_TRUE(Fee().Enabled());
    EXPECT_TRUE(Disbursement().Enabled());
    for (const char* label : {"Label2", "Label3", "Label4"}) {
        EXPECT_TRUE(Find("ctlPageType1").findChild<QLabel*>(QLatin1String(label))->isEnabled()) << label;
    }
    Fee().SetText(QStringLiteral("8.25"));
    Disbursement().SetValue(QDate(2024, 2, 29));
    Find<QRadioButton>("optLandlord").click();
    EXPECT_FALSE(Fee().Enabled());
    EXPECT_FALSE(Disbursement().Enabled());
    EXPECT_EQ(Fee().Text(), QStringLiteral("8.25"));
    EXPECT_EQ(Disbursement().Value(), QDate(2024, 2, 29));
}

TEST_F(StaticPagesTest, ALandlordCarriesAlongWhatHeEnteredAsAManager) {
    Find<QRadioButton>("optManager").click();
    Fee().SetText(QStringLiteral("8.25"));
    Disbursement().SetValue(QDate(2024, 2, 29));
    Find<QRadioButton>("optLandlord").click();
    Heading().ChangeTabEnabled(2, true);
    Heading().ChangeTab(2);
    Press("cmdNext");
    EXPECT_TRUE(records::CurrentSettings().IsLandlord);
    EXPECT_EQ(records::CurrentSettings().ManagementFee, 8.25);
    EXPECT_EQ(records::CurrentSettings().LastDisbursement, QDate(2024, 2, 29));
}

TEST_F(StaticPagesTest, NoTypeIsRefusedAndChangesNothing) {
    Heading().ChangeTabEnabled(2, true);
    Heading().ChangeTab(2);
    records::CurrentSettings().ManagementFee = 3;
    Press("cmdNext");
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_EQ(boxes.requests.front().text, QStringLiteral("You must select a type"));
    EXPECT_EQ(boxes.requests.front().title, platform::ApplicationTitle());
    EXPECT_EQ(Heading().CurrentTabIndex(), 2);
    EXPECT_EQ(records::CurrentSettings().ManagementFee, 3);
}

TEST_F(StaticPagesTest, ADoubleClickOnTheTutorialLinkOpensItOnce) {
    auto& link = Find<QPushButton>("lblTutorial");
    // No browser for a test.
    QObject::disconnect(&link, &QPushButton::clicked, nullptr, nullptr);
    const QSignalSpy clicked(&link, &QPushButton::clicked);
    const QPoint middle = link.mapTo(link.window(), link.rect().center());
    QTest::mouseDClick(link.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_EQ(clicked.size(), 1);
}

TEST_F(StaticPagesTest, TheTutorialLinkLooksLikeALink) {
    const auto& link = Find<QPushButton>("lblTutorial");
    EXPECT_EQ(link.text(), QStringLiteral("Watch the Wrenfield Wizard tutorial video online."));
    EXPECT_NE(link.focusPolicy(), Qt::NoFocus);
}

}  // namespace
