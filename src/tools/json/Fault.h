#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace tools {

/// One thing that is wrong with a portfolio: where, what, and what stands there.
struct Fault {
    QString pointer;  ///< JSON pointer; empty for the document as a whole.
    QString rule;
    QString found;

    bool operator==(const Fault&) const = default;
};

using Faults = std::vector<Fault>;

/// Fit for one line of a terminal: control characters told as \u escapes, and no longer than 60 characters,
/// so that a fault about a megabyte of text can still be read.
QString Shown(const QString& text);

/// The same for a text value, in quotes.
QString ShownQuoted(const QString& text);

/// The pointer to a member or an element of what the first pointer points at.
QString MemberPointer(const QString& pointer, const QString& member);
QString ElementPointer(const QString& pointer, qsizetype place);

/// "file: /Tenants/3/StartDate: rule (found value)". A fault of the document as a whole shows no pointer.
QString FaultLine(const QString& file, const Fault& fault);

}  // namespace tools
