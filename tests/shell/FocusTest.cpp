#include "WizardForm.h"
#include "controls/akDate.h"
#include "controls/ctlTextBox.h"
#include "records/Collections.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QTest>

#include <string>
#include <vector>

namespace {

class FocusTest : public WizardForm {
protected:
    FocusTest() {
        records::TheCollections().Properties.Add(std::make_shared<records::Property>());
        records::TheCollections().Tenants.Add(std::make_shared<records::Tenant>());
    }

    /// The button of the form that has the focus, or the page with the control on it.
    std::string Focused() const {
        const QWidget* control = form->focusWidget();
        while (control->parentWidget() != form.get() &&
               control->parentWidget()->parentWidget() != form.get()) {
            control = control->parentWidget();
        }
        const QString page = control->parentWidget() == form.get()
                                 ? QString()
                                 : control->parentWidget()->objectName() + QLatin1Char('.');
        return (page + control->objectName()).toStdString();
    }

    void BeLandlord() const { Find<QRadioButton>("optLandlord").click(); }
};

const std::vector<std::string> FirstFields{"cmdNext",
                                           "ctlPageAccounts1.ctlButton1",
                                           "ctlPageType1.optLandlord",
                                           "ctlSingleOwner1.txtName",
                                           "ctlPageProperty1.ctlButton1",
                                           "ctlPageTenant1.ctlButton1",
                                           "cmdBack"};

TEST_F(FocusTest, APageThatIsEnteredHasTheFocusInItsFirstField) {
    EXPECT_EQ(Focused(), FirstFields.front());
    BeLandlord();
    for (size_t tab = 1; tab < FirstFields.size(); ++tab) {
        Press("cmdNext");
        EXPECT_EQ(Focused(), FirstFields[tab]) << tab << ", by Next";
    }
    // The last page has nothing to enter and neither has the first: the keyboard is on what leads away.
    for (size_t tab = FirstFields.size() - 1; tab-- > 0;) {
        Press("cmdBack");
        EXPECT_EQ(Focused(), FirstFields[tab]) << tab << ", by Back";
    }
    for (const size_t tab : {6U, 3U, 0U, 5U, 1U, 4U, 2U}) {
        Heading().ChangeTab(static_cast<qint16>(tab));
        EXPECT_EQ(Focused(), FirstFields[tab]) << tab << ", by its tab";
    }
}

TEST_F(FocusTest, AManagerComesBackToTheOptionThatHeChose) {
    Heading().ChangeTab(2);
    Find<QRadioButton>("optManager").click();
    Press("cmdNext");
    EXPECT_EQ(Focused(), "ctlPageOwner1.ctlButton1");
    Press("cmdBack");
    EXPECT_EQ(Focused(), "ctlPageType1.optManager");
}

TEST_F(FocusTest, ANameThatIsComeBackToIsSelected) {
    BeLandlord();
    Heading().ChangeTab(2);
    Press("cmdNext");
    auto& name = Find<controls::ctlTextBox>("txtName");
    name.SetText(QStringLiteral("A. Landlord"));
    Press("cmdNext");
    Press("cmdBack");
    EXPECT_EQ(name.findChild<QLineEdit*>()->selectedText(), QStringLiteral("A. Landlord"));
}

TEST_F(FocusTest, APageThatMayNotBeLeftHasTheFocusWhereItIsMended) {
    Heading().ChangeTab(2);
    Find("cmdNext").setFocus();
    Press("cmdNext");
    ASSERT_EQ(boxes.requests.size(), 1U);
    EXPECT_EQ(Focused(), "ctlPageType1.optLandlord");
    EXPECT_FALSE(Find<QRadioButton>("optLandlord").isChecked()) << "nobody chose";
}

TEST_F(FocusTest, APressOnTheGroundOfAPageClosesAnOpenCalendar) {
    Heading().ChangeTab(2);
    Find<QRadioButton>("optManager").click();
    auto& date = Find<controls::akDate>("datLastDisbursement");
    QWidget& page = Find("ctlPageType1");
    QWidget* const label = page.findChild<QWidget*>(QStringLiteral("Label1"));
    for (QWidget* ground : std::initializer_list<QWidget*>{form.get(), &page, label}) {
        date.setFocus();
        date.DropDown();
        ASSERT_TRUE(date.DroppedDown());
        QTest::mouseClick(ground, Qt::LeftButton, {}, ground->rect().bottomRight() - QPoint(5, 5));
        EXPECT_FALSE(date.DroppedDown()) << ground->objectName().toStdString();
        EXPECT_EQ(form->focusWidget(), form.get());
    }
    QTest::keyClick(form.get(), Qt::Key_Tab);
    EXPECT_NE(form->focusWidget(), form.get()) << "the keyboard goes on from there";
}

}  // namespace
