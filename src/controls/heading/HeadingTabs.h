#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace controls {

/// The tabs of a page heading: their texts, which of them may be clicked, which is current, and where they
/// stand. Tabs are counted from 0; lengths are twips.
///
/// Tabs are told apart by their text, so two with the same text are current together.
struct HeadingTabs {
    /// The text of the current tab. It may be one that no tab has: then none looks current.
    QString CurrentTab;
    /// One entry more than there are tabs, because a bar stands behind each tab's text and not between them.
    QStringList TabNames{QString()};
    /// Beside each entry of TabNames.
    QList<bool> TabEnabled{false};

    /// Takes the texts from one with a bar "|" behind each. Tabs keep what TabEnabled says of their place,
    /// and new places start with false. CurrentTab stays, and becomes the first entry only if it was empty.
    void ParseTabs(const QString& text);

    /// How many tabs there are. The last entry of TabNames is none, whatever its text.
    int Count() const;

    /// The lowest place in TabNames with the text of the current tab, the last entry included; -1 if there is
    /// none.
    qint16 CurrentTabIndex() const;

    bool IsCurrent(int tab) const { return TabNames[tab] == CurrentTab; }

    /// Failure 9 for a place that TabNames doesn't have.
    void CheckPlace(int place) const;

    /// The edges of a tab; both still belong to it. The places don't depend on the heading's width.
    static int Left(int tab);
    static int Right(int tab);

    /// The upper edge of the tabs in a heading of that height, in 16 bits.
    static qint16 Top(int headingHeight);

    /// The tab at a place from the left. Between the tabs there is none.
    std::optional<int> TabAt(int X) const;
};

}  // namespace controls
