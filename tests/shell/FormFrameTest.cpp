#include "WizardForm.h"
#include "database/CurrentDatabase.h"
#include "support/OnScreen.h"

#include <QCoreApplication>
#include <QFile>

namespace {

const QColor frame(121, 151, 177);

using FormFrameTest = WizardForm;

TEST_F(FormFrameTest, HasItsInnerSizeAndNeitherBorderNorTitleBar) {
    EXPECT_EQ(form->size(), QSize(798, 593));
    EXPECT_TRUE(form->windowFlags().testFlag(Qt::FramelessWindowHint));
    EXPECT_EQ(form->windowTitle(), QStringLiteral("Wrenfield Wizard"));
}

TEST_F(FormFrameTest, IsWhiteWithAFrameOfOnePixel) {
    for (const QPoint corner : {QPoint(0, 0), QPoint(797, 0), QPoint(0, 592), QPoint(797, 592)}) {
        EXPECT_EQ(PixelAt(*form, corner.x(), corner.y()), frame) << corner.x() << ", " << corner.y();
    }
    EXPECT_EQ(PixelAt(*form, 1, 590), QColor(Qt::white));
    EXPECT_EQ(PixelAt(*form, 796, 300), QColor(Qt::white));
}

TEST_F(FormFrameTest, ItsHeadingStandsWithinTheFrame) {
    EXPECT_EQ(Heading().geometry().topLeft(), QPoint(1, 1));
    EXPECT_EQ(Heading().width(), 796);
}

TEST_F(FormFrameTest, AnotherSizeMovesTheFrameAndWidensTheHeadingAndNothingElse) {
    QMap<QString, QRect> places;
    for (const QWidget* child : form->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        places[child->objectName()] = child->geometry();
    }
    form->resize(900, 700);
    QCoreApplication::processEvents();
    places[QStringLiteral("HeadingControl")].setWidth(898);
    for (const QWidget* child : form->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        EXPECT_EQ(child->geometry(), places.value(child->objectName())) << child->objectName().toStdString();
    }
    EXPECT_EQ(PixelAt(*form, 899, 699), frame);
    EXPECT_EQ(PixelAt(*form, 797, 592), QColor(Qt::white));
}

// Cancel ends everything without a question.
TEST_F(FormFrameTest, CancelStandsApartFromAllThatIsPressedOften) {
    const QRect cancel = Find("cmdCancel").geometry();
    for (const char* name : {"cmdHelp", "cmdBack", "cmdNext", "cmdFinish"}) {
        const QRect other = Find(name).geometry();
        EXPECT_EQ(other.top(), cancel.top()) << name;
        EXPECT_FALSE(other.adjusted(-30, 0, 30, 0).intersects(cancel)) << name;
    }
    const QWidget& page = Find("ctlPageAccounts1");
    for (const char* name : {"ctlButton1", "ctlButton2", "ctlButton3"}) {
        const auto* button = page.findChild<QWidget*>(QString::fromLatin1(name));
        const QRect place(button->mapTo(form.get(), QPoint()), button->size());
        EXPECT_GT(cancel.left() - place.right(), 200) << name;
        EXPECT_GT(cancel.top() - place.bottom(), 60) << name;
    }
}

TEST_F(FormFrameTest, ALinePartsThePagesFromTheButtonsOfTheWizard) {
    const int line = Find("cmdHelp").geometry().top() - 22;
    for (const int x : {1, 400, 796}) {
        EXPECT_EQ(PixelAt(*form, x, line), frame) << x;
        EXPECT_EQ(PixelAt(*form, x, line - 1), QColor(Qt::white)) << x;
        EXPECT_EQ(PixelAt(*form, x, line + 1), QColor(Qt::white)) << x;
    }
    EXPECT_LT(Find("lblTutorial").geometry().bottom(), line);
}

TEST_F(FormFrameTest, ASecondActivationOpensNothingAndResetsNothing) {
    Press("cmdNext");
    QFile::remove(workplace.Path(QStringLiteral("property.mdb")));
    form->hide();
    ShowAndActivate(*form);
    form->repaint();
    QCoreApplication::processEvents();
    EXPECT_TRUE(boxes.requests.empty());
    EXPECT_EQ(Heading().CurrentTabIndex(), 1);
    EXPECT_TRUE(Heading().TabStrip().TabEnabled[1]);
    EXPECT_TRUE(Find<controls::ctlButton>("cmdBack").Enabled());
}

}  // namespace
