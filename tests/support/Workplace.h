#pragma once

#include <QString>
#include <QTemporaryDir>

/// A fresh folder that takes the place of the program's directory and of the settings' folder while it lives,
/// with no settings in it.
class Workplace {
public:
    Workplace();
    ~Workplace();
    Workplace(const Workplace&) = delete;
    Workplace& operator=(const Workplace&) = delete;

    /// The full path of a file in the folder.
    QString Path(const QString& name) const { return directory_.filePath(name); }

    /// Writes the settings file, in the exported-registry format, below the folder.
    void WriteSettings(const QByteArray& text) const;

    /// What the error log of this month holds; empty if there is none.
    QString ErrorLog() const;

    void RemoveErrorLog() const;

private:
    QString ErrorLogPath() const;

    QTemporaryDir directory_;
    QByteArray configHome_;
    QByteArray configDirs_;
};
