#include "journey/Story.h"

#include "controls/base/Palette.h"

#include <QStyleFactory>

#include <cstdio>
#include <utility>
#include <vector>

namespace {

std::vector<Watched*> watched;
bool hasBegun = false;

void Print(const QString& line) {
    if (hasBegun) {
        std::puts(qUtf8Printable(line));
        std::fflush(stdout);
    }
}

QString PathOf(const QWidget& widget) {
    const QWidget* parent = widget.parentWidget();
    return parent == nullptr || parent->isWindow() ? widget.objectName()
                                                   : PathOf(*parent) + QLatin1Char('.') + widget.objectName();
}

}  // namespace

void Tell(const QString& line) {
    Watched::TellChanges();
    Print(line);
}

Watched::Watched(QString name, std::function<QString()> value)
    : name_(std::move(name)), value_(std::move(value)), told_(value_()) {
    watched.push_back(this);
}

Watched::~Watched() {
    std::erase(watched, this);
}

void Watched::TellChanges() {
    for (Watched* each : watched) {
        const QString value = each->value_();
        if (std::exchange(each->told_, value) != value) {
            Print(each->name_ + QLatin1Char(' ') + value);
        }
    }
}

QString Marked(const QLineEdit& box) {
    QString text = box.text();
    if (!box.hasFocus()) {
        return text;
    }
    auto caret = static_cast<qsizetype>(box.cursorPosition());
    if (box.hasSelectedText()) {
        text.insert(box.selectionEnd(), QLatin1Char(']'));
        text.insert(box.selectionStart(), QLatin1Char('['));
        caret += caret > box.selectionStart() ? 2 : 0;
    }
    return text.insert(caret, QLatin1Char('|'));
}

void TellFocus() {
    QObject::connect(qApp, &QApplication::focusChanged, [] {
        // The move that was told of may have led to a further one by now.
        const QWidget* widget = QApplication::focusWidget();
        if (widget == nullptr) {
            Tell(QStringLiteral("focus nowhere"));
            return;
        }
        const auto* box = qobject_cast<const QLineEdit*>(widget);
        Tell(QStringLiteral("focus ") + PathOf(*widget) +
             (box != nullptr ? QLatin1Char(' ') + Marked(*box) : QString()));
    });
}

StoryApplication::StoryApplication(int& argc, char** argv) : QApplication(argc, argv) {
    // Scroll bars and their thumbs stand where this style puts them.
    setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    controls::InitialiseColours();
}

bool StoryApplication::notify(QObject* receiver, QEvent* event) {
    const bool result = QApplication::notify(receiver, event);
    Watched::TellChanges();
    return result;
}

void TellReady(WId window) {
    hasBegun = true;
    Tell(QStringLiteral("ready %1").arg(window));
}

int RunForm(QWidget& form, QSize size) {
    const QStringList arguments = QApplication::arguments();
    form.setGeometry(QRect(QPoint(arguments.value(1).toInt(), arguments.value(2).toInt()), size));
    form.show();
    return QApplication::exec();
}
