#pragma once

#include "controls/ctlPageHeading.h"
#include "support/OnScreen.h"
#include "support/PrintQt.h"
#include "support/RecordingMessageBoxes.h"

#include <QStringList>

#include <gtest/gtest.h>

#include <memory>

/// Tests of a heading as the wizard has it, on the screen. It stands alone in its window.
class HeadingFixture : public ::testing::Test {
protected:
    static const QString wizardTabs;
    static constexpr int WizardWidth = 11895;
    static constexpr int WizardHeight = 1095;

    static controls::ctlPageHeading::Properties Wizard();

    /// The heading under test; the one before is gone.
    controls::ctlPageHeading& Show(const controls::ctlPageHeading::Properties& properties,
                                   int width = WizardWidth, int height = WizardHeight);
    controls::ctlPageHeading& ShowWizard() { return Show(Wizard()); }

    /// Mouse events as the desktop sends them, at a pixel of the heading.
    void Press(int x, int y, Qt::MouseButton button = Qt::LeftButton);
    void MoveTo(int x, int y);
    void Release(int x, int y, Qt::MouseButton button = Qt::LeftButton);
    void Click(int x, int y, Qt::MouseButton button = Qt::LeftButton);

    /// What was raised since the last call, such as "TabSelect Owners 3" or "CloseButtonClick".
    QStringList TakeEvents() { return std::exchange(events_, {}); }
    bool HasEvents() const { return !events_.isEmpty(); }
    QStringList MessageTexts() const;

    RecordingMessageBoxes boxes;
    std::unique_ptr<controls::ctlPageHeading> heading;

private:
    QStringList events_;
};
