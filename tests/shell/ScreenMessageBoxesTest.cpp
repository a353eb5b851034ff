#include "controls/base/Font.h"
#include "shell/ScreenMessageBoxes.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

namespace {

/// Looks at the box that is on the screen, and presses the button.
template <typename Look>
platform::Answer Show(const platform::MessageBoxRequest& request, QMessageBox::StandardButton button,
                      const Look& look) {
    QTimer::singleShot(0, [&look, button] {
        auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        look(*box);
        box->button(button)->click();
    });
    return shell::ScreenMessageBoxes().Show(request);
}

TEST(ScreenMessageBoxesTest, AreLetteredAsTheWizardIs) {
    const QFont usual = controls::ControlFont();
    const platform::MessageBoxRequest request{.text = QStringLiteral("Import complete."),
                                              .title = QStringLiteral("Wrenfield Wizard")};
    bool looked = false;
    Show(request, QMessageBox::Ok, [&](const QMessageBox& box) {
        const auto* words = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_label"));
        ASSERT_NE(words, nullptr);
        EXPECT_EQ(words->font().pointSizeF(), usual.pointSizeF());
        EXPECT_EQ(words->font().families(), usual.families());
        const QPushButton* ok = qobject_cast<QPushButton*>(box.button(QMessageBox::Ok));
        EXPECT_EQ(ok->font().pointSizeF(), usual.pointSizeF());
        looked = true;
    });
    EXPECT_TRUE(looked);
}

TEST(ScreenMessageBoxesTest, NoButtonHasAPictureAsNoneOfTheWizardHas) {
    // As on a desktop that puts pictures there.
    qApp->setStyleSheet(QStringLiteral("* { dialogbuttonbox-buttons-have-icons: 1 }"));
    for (const platform::Buttons buttons : {platform::Buttons::Ok, platform::Buttons::YesNo}) {
        const auto look = [](const QMessageBox& box) {
            for (const QAbstractButton* button : box.buttons()) {
                EXPECT_TRUE(button->icon().isNull()) << button->text().toStdString();
            }
        };
        Show({.text = QStringLiteral("Correct?"), .title = QString(), .buttons = buttons},
             buttons == platform::Buttons::Ok ? QMessageBox::Ok : QMessageBox::No, look);
    }
    qApp->setStyleSheet(QString());
}

TEST(ScreenMessageBoxesTest, NoIsAtHandInAQuestion) {
    const platform::MessageBoxRequest request{.text = QStringLiteral("Delete A. Landlord?"),
                                              .title = QStringLiteral("Wrenfield Wizard"),
                                              .buttons = platform::Buttons::YesNo,
                                              .icon = platform::Icon::Question};
    const auto look = [](const QMessageBox& box) {
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::No));
        EXPECT_EQ(box.escapeButton(), box.button(QMessageBox::No));
    };
    EXPECT_EQ(Show(request, QMessageBox::Yes, look), platform::Answer::Yes);
    EXPECT_EQ(Show(request, QMessageBox::No, look), platform::Answer::No);
}

}  // namespace
