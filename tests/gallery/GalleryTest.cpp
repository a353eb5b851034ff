#include "controls/akDate.h"
#include "controls/akGrid.h"
#include "controls/ctlButton.h"
#include "controls/ctlGroupBox.h"
#include "controls/ctlPageHeading.h"
#include "controls/ctlTextBox.h"
#include "gallery/SkinSample.h"
#include "support/GalleryOnScreen.h"

#include <QLabel>

namespace {

using namespace controls;
using gallery::Sheet;

using GalleryTest = GalleryOnScreen;

TEST_F(GalleryTest, ShowsEveryControl) {
    EXPECT_GE(Samples<ctlButton>(Show("Button")).size(), 15);
    EXPECT_GE(Samples<ctlTextBox>(Show("Text box")).size(), 15);
    EXPECT_GE(Samples<akDate>(Show("Date")).size(), 8);
    EXPECT_GE(Samples<akGrid>(Show("Grid")).size(), 9);
    EXPECT_GE(Samples<gallery::SkinSample>(Show("Skin")).size(), 5);
    EXPECT_GE(Samples<ctlGroupBox>(Show("Group box")).size(), 4);
    EXPECT_GE(Samples<ctlPageHeading>(Show("Heading")).size(), 4);
}

TEST_F(GalleryTest, EverySampleIsOnViewWithinItsSheetAndOnNoOther) {
    OnEachSheet([](const Sheet* sheet) {
        const auto parts = sheet->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
        for (const QWidget* part : parts) {
            EXPECT_TRUE(part->isVisible()) << qPrintable(part->objectName());
            EXPECT_TRUE(sheet->rect().contains(part->geometry())) << qPrintable(part->objectName());
            for (const QWidget* other : parts) {
                EXPECT_TRUE(other == part || !other->geometry().intersects(part->geometry()))
                    << qPrintable(part->objectName()) << " on " << qPrintable(other->objectName());
            }
        }
    });
}

TEST_F(GalleryTest, NoCaptionIsCutOff) {
    OnEachSheet([](const Sheet* sheet) {
        for (const QLabel* caption : sheet->findChildren<QLabel*>(QString(), Qt::FindDirectChildrenOnly)) {
            EXPECT_LE(caption->sizeHint().width(), caption->width()) << qPrintable(caption->text());
        }
    });
}

TEST_F(GalleryTest, StagedStatesAreThereAgainWhenASheetComesBack) {
    const auto states = [](const Sheet* sheet) {
        std::map<ButtonStates, int> count;
        for (const ctlButton* button : Samples<ctlButton>(sheet)) {
            ++count[button->ButtonState()];
        }
        return count;
    };
    const auto first = states(Show("Button"));
    EXPECT_EQ(first.at(ButtonStates::Down), 1);
    // The one with the focus, and two that look as if the mouse were over them.
    EXPECT_EQ(first.at(ButtonStates::Hover), 3);
    EXPECT_EQ(states(window.Sheets().front()), first);
    Show("Text box");
    EXPECT_EQ(states(Show("Button")), first);
    Show("Date");
    EXPECT_TRUE(Samples<akDate>(Show("Date")).last()->DroppedDown());
}

}  // namespace
