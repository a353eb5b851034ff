#pragma once

#include "ModelDisk.h"
#include "engine/jet/FileHeader.h"
#include "engine/jet/FreePages.h"
#include "engine/jet/PagedFile.h"

namespace engine::jet {

/// A file on a model disk that has a header, the map of its free pages, and further pages of zeros in use.
class BareFile {
public:
    explicit BareFile(PageNumber count = 8) {
        std::vector<Page> pages(count);
        pages[0] = MakeFileHeader();
        pages[1] = FreePages::MakeMapPage(count);
        auto file = std::make_shared<ModelDisk::File>();
        for (const Page& page : pages) {
            file->bytes.append(reinterpret_cast<const char*>(page.data()), PageSize);
        }
        file->synced = file->bytes;
        disk.files[path] = file;
    }

    /// The same files on a disk of their own.
    BareFile(const BareFile& other) {
        for (auto file = other.disk.files.begin(); file != other.disk.files.end(); ++file) {
            disk.files[file.key()] = std::make_shared<ModelDisk::File>(**file);
        }
    }
    BareFile& operator=(const BareFile&) = delete;
    ~BareFile() = default;

    std::unique_ptr<PagedFile> Open(PageNumber most = MostPages) {
        return std::make_unique<PagedFile>(disk, path, most);
    }
    QByteArray& Content() { return disk.files[path]->bytes; }
    char ByteAt(PageNumber page, std::size_t at) {
        return Content()[static_cast<qsizetype>(page * PageSize + at)];
    }
    bool HasJournal() const { return disk.files.contains(journal); }

    ModelDisk disk;
    QString path = QStringLiteral("/books/property.mdb");
    QString journal = path + QStringLiteral(".journal");
};

}  // namespace engine::jet
