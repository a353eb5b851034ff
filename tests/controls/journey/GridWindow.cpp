// A form with a list of rows and an empty one: tells their events, their first rows on view, and where
// the focus is.

#include "controls/akGrid.h"
#include "controls/grid/SystemBeep.h"
#include "journey/Story.h"

#include <QLineEdit>
#include <QScrollBar>
#include <QToolTip>

namespace {

using namespace controls;

/// A list that takes part in the story under its name.
class WatchedGrid : public akGrid {
public:
    WatchedGrid(const QString& name, const QRect& place, const Properties& saved, QWidget* parent)
        : akGrid(saved, parent, place),
          topRow_(name + QStringLiteral(" top"), [this] { return QString::number(TopRow()); }) {
        setObjectName(name);
        QObject::connect(this, &akGrid::RowColumnChange,
                         [name](int& row, int& column, int& previousRow, int& previousColumn) {
                             Tell(QStringLiteral("%1 from %2,%3 to %4,%5")
                                      .arg(name)
                                      .arg(previousRow)
                                      .arg(previousColumn)
                                      .arg(row)
                                      .arg(column));
                         });
        QObject::connect(this, &akGrid::Click,
                         [this, name] { Tell(name + QStringLiteral(" click ") + Text()); });
        QObject::connect(this, &akGrid::DblClick,
                         [this, name] { Tell(name + QStringLiteral(" double click ") + Text()); });
        QObject::connect(this, &akGrid::HeadClick,
                         [name](qint16& column) { Tell(name + QStringLiteral(" heading %1").arg(column)); });
        QObject::connect(this, &akGrid::HyperLinkClick, [this, name](qint16& column) {
            Tell(name + QStringLiteral(" link %1 ").arg(column) + Text());
        });
        QObject::connect(findChild<QScrollBar*>(), &QScrollBar::sliderMoved,
                         [name](int value) { Tell(name + QStringLiteral(" thumb at %1").arg(value)); });
    }

private:
    Watched topRow_;
};

}  // namespace

int main(int argc, char** argv) {
    const StoryApplication application(argc, argv);
    SetSystemBeep([] { Tell(QStringLiteral("beep")); });
    ReadyWindow<QWidget> form;
    QLineEdit field(&form);
    field.setObjectName(QStringLiteral("field"));
    field.setGeometry(10, 5, 100, 25);
    const akGrid::Properties columns{.ColumnHeadings = QStringLiteral("Tenant|Property|"),
                                     .ColumnWidths = QStringLiteral("1500|1500|"),
                                     .Hyperlinks = QStringLiteral("0|1|"),
                                     .RowCount = QStringLiteral("0")};
    WatchedGrid list(QStringLiteral("list"), {150, 600, 4500, 1455}, columns, &form);
    for (int row = 1; row < 9; ++row) {
        list.AddItem(QStringLiteral("t%1\tp%1").arg(row));
    }
    list.AddItem(QStringLiteral("t9 with a name that is long\tp9"));
    const WatchedGrid empty(QStringLiteral("empty"), {150, 2400, 4500, 915}, columns, &form);
    WatchedGrid disabled(QStringLiteral("disabled"), {150, 3600, 4500, 1005}, columns, &form);
    disabled.AddItem(QStringLiteral("t1\tp1"));
    disabled.SetEnabled(false);
    // The others come and go while the mouse rests between two steps of a test.
    const Watched toolTip(QStringLiteral("long tool tip"), [] {
        return QToolTip::isVisible() && QToolTip::text().contains(QStringLiteral("long"))
                   ? QToolTip::text().trimmed()
                   : QStringLiteral("none");
    });
    TellFocus();
    return RunForm(form, {400, 320});
}
