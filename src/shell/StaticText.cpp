#include "shell/StaticText.h"

#include "screens/Paper.h"
#include "shell/Pictures.h"

#include <QLabel>

namespace shell {

void AddWarning(QWidget* page, int top) {
    constexpr int Side = 1920;
    AddPicture(page, {0, top, Side, Side});
    QLabel* warning = screens::AddLabel(
        page, QStringLiteral("Label1"),
        QStringLiteral(
            "WARNING - This will delete all existing data in your Hearthbook database.  This includes "
            "existing properties, owners, tenants, bank accounts and ALL transactions."),
        {Side + 300, top + 300, 8400, 1320});
    QFont bold = warning->font();
    bold.setBold(true);
    warning->setFont(bold);
    screens::AddLabel(
        page, QStringLiteral("Label3"),
        QStringLiteral("All the information entered during this process can be changed later, with the "
                       "exception of the tenancy start date."),
        {0, top + Side + 300, 10800, 600});
}

}  // namespace shell
