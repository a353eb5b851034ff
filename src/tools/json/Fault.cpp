#include "tools/json/Fault.h"

namespace tools {

namespace {

constexpr qsizetype LongestShown = 60;

bool DisturbsATerminal(QChar character) {
    switch (character.category()) {
        case QChar::Other_Control:
        case QChar::Other_Format:
        case QChar::Separator_Line:
        case QChar::Separator_Paragraph:
            return true;
        default:
            return character == QChar::ReplacementCharacter;
    }
}

}  // namespace

QString Shown(const QString& text) {
    QString start = text.left(LongestShown);
    const bool isCut = text.size() > LongestShown;
    if (isCut && start.back().isHighSurrogate()) {
        start.chop(1);
    }
    QString shown;
    for (const QChar character : start) {
        if (DisturbsATerminal(character)) {
            shown += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        } else {
            shown += character;
        }
    }
    return isCut ? shown + QStringLiteral("...") : shown;
}

QString ShownQuoted(const QString& text) {
    return QLatin1Char('"') + Shown(text) + QLatin1Char('"');
}

QString MemberPointer(const QString& pointer, const QString& member) {
    QString escaped = Shown(member);
    escaped.replace(QLatin1Char('~'), QStringLiteral("~0")).replace(QLatin1Char('/'), QStringLiteral("~1"));
    return pointer + QLatin1Char('/') + escaped;
}

QString ElementPointer(const QString& pointer, qsizetype place) {
    return pointer + QLatin1Char('/') + QString::number(place);
}

QString FaultLine(const QString& file, const Fault& fault) {
    const QString place = fault.pointer.isEmpty() ? QString() : fault.pointer + QStringLiteral(": ");
    QString line = file + QStringLiteral(": ") + place + fault.rule;
    if (!fault.found.isEmpty()) {
        line += QStringLiteral(" (found ") + fault.found + QLatin1Char(')');
    }
    return line;
}

}  // namespace tools
