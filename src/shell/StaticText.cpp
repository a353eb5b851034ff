#include "shell/StaticText.h"

#include "controls/base/Font.h"
#include "screens/Paper.h"
#include "shell/Pictures.h"

#include <QFrame>
#include <QLabel>

namespace shell {

namespace {

constexpr int Width = 11490;
/// In points: these pages have little to say and much room.
constexpr double LargeType = 10.5;

/// What the warning stands on, so that nobody passes it over.
void AddPanel(QWidget* page, const screens::Place& place) {
    auto* panel = new QFrame(page);
    panel->setStyleSheet(
        QStringLiteral("background: rgb(255, 248, 222); border: 1px solid rgb(214, 158, 0)"));
    screens::PutAt(*panel, place);
}

}  // namespace

QLabel* AddOpening(QWidget* page, const QString& name, const QString& text, int height) {
    QLabel* label = screens::AddLabel(page, name, text, {0, 0, Width, height});
    label->setFont(controls::ControlFont(LargeType));
    return label;
}

void AddWarning(QWidget* page, int top) {
    constexpr int Height = 2100;
    constexpr int Side = 1500;
    constexpr int Room = (Height - Side) / 2;
    constexpr int LeftOfWords = Side + 2 * Room + 150;
    AddPanel(page, {0, top, Width, Height});
    AddWarningSign(page, {Room + 75, top + Room, Side, Side});
    QLabel* warning = screens::AddLabel(
        page, QStringLiteral("Label1"),
        QStringLiteral(
            "WARNING - This will delete all existing data in your Hearthbook database.  This includes "
            "existing properties, owners, tenants, bank accounts and ALL transactions."),
        {LeftOfWords, top + Room, Width - LeftOfWords - Room, Side});
    warning->setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    warning->setFont(controls::ControlFont(LargeType, controls::Weight::Bold));
    QLabel* later = screens::AddLabel(
        page, QStringLiteral("Label3"),
        QStringLiteral("All the information entered during this process can be changed later, with the "
                       "exception of the tenancy start date."),
        {0, top + Height + 450, Width, 600});
    later->setFont(controls::ControlFont(LargeType));
}

}  // namespace shell
