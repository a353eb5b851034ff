#pragma once

#include "controls/ctlButton.h"
#include "controls/ctlPageHeading.h"
#include "shell/frmMain.h"
#include "support/RecordingMessageBoxes.h"
#include "support/Workplace.h"

#include <QHash>

#include <gtest/gtest.h>

#include <memory>

/// The wizard's form on a fresh database of its own, on show.
class WizardForm : public ::testing::Test {
protected:
    WizardForm();
    ~WizardForm() override;

    template <typename Widget = QWidget>
    Widget& Find(const char* name) const {
        auto* found = form->findChild<Widget*>(QLatin1String(name));
        EXPECT_NE(found, nullptr) << name;
        return *found;
    }

    controls::ctlPageHeading& Heading() const { return Find<controls::ctlPageHeading>("HeadingControl"); }

    void Press(const char* button) const { Find<controls::ctlButton>(button).DoClick(); }

    /// The pages that are on show; there has to be one.
    QStringList PagesOnShow() const;

    /// How often each page has been filled anew since this was last emptied, by its name.
    QHash<QString, int> filled;

    Workplace workplace;
    RecordingMessageBoxes boxes;
    std::unique_ptr<shell::frmMain> form;

private:
    std::vector<shell::PageKind> CountedPages();
};
