#pragma once

#include <QString>
#include <QStringList>

namespace engine {

/// A file that grows out of sight and takes its name when it is whole: nobody ever finds half of it, or reads
/// it while its permissions aren't settled. It grows in a private folder beside its place, which goes with
/// this object, with all that is left in it.
class NewFile {
public:
    /// Makes the private folder. The file will keep others beside it, under its own name with one of these
    /// ends. Fails with 3044 if no file can have this name, 3204 if it or one of the others is taken, 3043 if
    /// one of them is too long or the folder can't be made.
    explicit NewFile(const QString& name, const QStringList& endsBeside = {});
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    /// Where the file is to be made. Nothing is there yet.
    const QString& Path() const { return path_; }

    /// Gives the file the permissions of another one, where its file system keeps any, and the owner and
    /// group as far as this process may: a group that it can't give the file to gets no rights on it. Fails
    /// with 3043.
    void TakePermissionsOf(const QString& original);

    /// Gives the file its name, on the disk too. Fails with 3204 if a file has got that name meanwhile, and
    /// with 3043; the file is gone then. Its own bytes must be on the disk already.
    void TakePlace();

private:
    QString name_;
    QString folder_;
    QString path_;
};

/// For a copy of a database: fails with 3219 if it is to have one of these names, under which the database
/// keeps files of its own; 3044 if nothing can have the name.
void RequireOtherName(const QString& name, const QStringList& kept);

/// Whether something has this name, be it a link to nowhere. Fails with 3044 if nothing can have it.
bool IsNameTaken(const QString& name);

}  // namespace engine
