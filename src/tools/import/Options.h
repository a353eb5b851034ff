#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace tools {

/// What the command line of wrenfield-import asks for.
struct ImportOptions {
    QString portfolio;
    QString database;  ///< Absolute. Empty: found through Hearthbook's settings.
    QString backup;    ///< Absolute. Empty: none is made.
    std::optional<QDate> today;
    QString locale;  ///< Empty: the user's.
    bool isYes = false;
    bool isDryRun = false;
    bool wantsHelp = false;
    bool wantsVersion = false;
};

/// Reads the arguments (without the program's name). Nothing if they can't be understood; the fault then says
/// why.
std::optional<ImportOptions> ParseImportOptions(const QStringList& arguments, QString& fault);

/// All there is to know for working with the tool.
QString ImportHelpText();

}  // namespace tools
