#include "heading/HeadingFixture.h"

#include <QTest>
#include <QWindow>

using controls::ctlPageHeading;

const QString HeadingFixture::wizardTabs =
    QStringLiteral("Introduction|Bank Accounts|User Type|Owners|Properties|Tenants|Finished|");

ctlPageHeading::Properties HeadingFixture::Wizard() {
    return {
        .Caption = QStringLiteral("Hearthbook Wrenfield Wizard"), .Tabs = wizardTabs, .CloseButton = true};
}

ctlPageHeading& HeadingFixture::Show(const ctlPageHeading::Properties& properties, int width, int height) {
    heading = std::make_unique<ctlPageHeading>(properties);
    heading->SetWidth(width);
    heading->SetHeight(height);
    QObject::connect(heading.get(), &ctlPageHeading::TabSelect, heading.get(),
                     [this](const QString& CurrentTab, qint16 CurrentIndex) {
                         events_ += QStringLiteral("TabSelect %1 %2").arg(CurrentTab).arg(CurrentIndex);
                     });
    QObject::connect(heading.get(), &ctlPageHeading::CloseButtonClick, heading.get(),
                     [this] { events_ += QStringLiteral("CloseButtonClick"); });
    ShowAndActivate(*heading);
    return *heading;
}

void HeadingFixture::Press(int x, int y, Qt::MouseButton button) {
    QTest::mousePress(heading->windowHandle(), button, {}, QPoint(x, y));
}

void HeadingFixture::MoveTo(int x, int y) {
    QTest::mouseMove(heading->windowHandle(), QPoint(x, y));
}

void HeadingFixture::Release(int x, int y, Qt::MouseButton button) {
    QTest::mouseRelease(heading->windowHandle(), button, {}, QPoint(x, y));
}

void HeadingFixture::Click(int x, int y, Qt::MouseButton button) {
    Press(x, y, button);
    Release(x, y, button);
}

QStringList HeadingFixture::MessageTexts() const {
    QStringList texts;
    for (const platform::MessageBoxRequest& request : boxes.requests) {
        texts += request.text;
    }
    return texts;
}
