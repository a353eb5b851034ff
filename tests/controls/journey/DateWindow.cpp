// A form with date controls between edit boxes: tells what their boxes show, which date is stored, which
// month their calendar is at, and where the focus is.

#include "controls/akDate.h"
#include "journey/Story.h"
#include "platform/NoDate.h"

#include <QLineEdit>
#include <QStringList>

namespace {

using namespace controls;

/// A date control that takes part in the story under its name.
class WatchedDate : public akDate {
public:
    template <class... Saved>
    WatchedDate(const QString& name, QPoint place, QWidget* parent, const Saved&... saved)
        : akDate(saved..., parent),
          boxes_(name, [this] { return Boxes(); }),
          stored_(name + QStringLiteral(" value"), [this] { return Stored(); }),
          calendar_(name + QStringLiteral(" calendar"), [this] { return Calendar(); }) {
        setObjectName(name);
        move(place);
        SetValue({2009, 3, 14});
    }

private:
    QString Boxes() const {
        const auto box = [this](const char* boxName) {
            return findChild<QLineEdit*>(QString::fromLatin1(boxName))->text();
        };
        return NoneShown()
                   ? box("txtNone")
                   : QStringList{box("txtDate1"), box("txtDate2"), box("txtDate3")}.join(QLatin1Char('/'));
    }

    QString Stored() const {
        return platform::IsNoDate(Value()) ? QStringLiteral("none") : Value().toString(Qt::ISODate);
    }

    QString Calendar() const {
        return DroppedDown() ? MonthTitle(ShownCalendar().shown) : QStringLiteral("closed");
    }

    Watched boxes_;
    Watched stored_;
    Watched calendar_;
};

}  // namespace

int main(int argc, char** argv) {
    const StoryApplication application(argc, argv);
    ReadyWindow<QWidget> form;
    QLineEdit before(&form);
    before.setObjectName(QStringLiteral("before"));
    before.setGeometry(10, 10, 100, 25);
    // A new control begins with the day, and one of a form goes by the locale: with the month in "C".
    const WatchedDate start(QStringLiteral("start"), {10, 50}, &form);
    const WatchedDate disabled(QStringLiteral("disabled"), {10, 260}, &form,
                               akDate::Properties{.Enabled = false});
    const WatchedDate end(QStringLiteral("end"), {210, 50}, &form, akDate::Properties{.IncludeNone = true});
    QLineEdit after(&form);
    after.setObjectName(QStringLiteral("after"));
    after.setGeometry(210, 260, 100, 25);
    TellFocus();
    return RunForm(form, {390, 300});
}
