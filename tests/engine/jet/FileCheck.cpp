#include "FileCheck.h"

#include "filecheck/Header.h"
#include "filecheck/Texts.h"
#include "filecheck/Trees.h"

#include <QFile>

#include <map>

namespace engine::jet {

using namespace filecheck;

namespace {

constexpr std::uint32_t CatalogueAt = 2;
constexpr std::uint32_t IsTable = 1;
constexpr std::uint32_t SystemFlags = 0x80000002;
constexpr std::uint32_t PageBits = 0xFFFFFF;

class WholeFile {
public:
    WholeFile(const Image& image, Findings& findings)
        : image_(image), findings_(findings), owners_(image, findings) {}

    void Check() {
        CheckHeader(image_.Page(0), findings_);
        CheckTable("MSysObjects", {CatalogueAt, true});
        for (const auto& [name, entry] : tables_) {
            CheckTable(name, entry);
        }
        owners_.CheckFreePages();
    }

private:
    /// What the catalogue says of a table.
    struct Entry {
        std::uint32_t page = 0;
        bool isSystem = false;
    };

    // What can't be read of a table is one fault; the others are looked at all the same.
    void CheckTable(const std::string& name, const Entry& entry) {
        try {
            const Definition table = ReadDefinition(image_, name, entry.page, findings_);
            if (table.isSystem != entry.isSystem) {
                findings_.Oddity("table " + name, "is of another kind than the catalogue says");
            }
            for (const std::uint32_t page : table.ownPages) {
                owners_.Own(page, PageOwners::Definition + name);
            }
            CheckRowsAndIndexes(table);
        } catch (const Unreadable& error) {
            findings_.Fault("table " + name, error.what());
        }
    }

    void CheckRowsAndIndexes(const Definition& table) {
        const RowsOfTable rows = ReadRows(image_, table, owners_, findings_);
        for (const IndexOfFile& index : table.indexes) {
            try {
                CheckIndex(image_, table, index, rows.rows, owners_, findings_);
            } catch (const Unreadable& error) {
                findings_.Fault("index " + table.name + "." + index.name, error.what());
            }
        }
        if (table.FirstPage() == CatalogueAt) {
            ReadCatalogue(table, rows);
        }
    }

    void ReadCatalogue(const Definition& table, const RowsOfTable& rows) {
        const std::size_t type = table.ColumnCalled("Type");
        const std::size_t name = table.ColumnCalled("Name");
        const std::size_t id = table.ColumnCalled("Id");
        const std::size_t flags = table.ColumnCalled("Flags");
        for (const RowOfFile& row : rows.rows) {
            if (!row.cells[type].isThere || row.cells[type].bytes.Low(0, 2) != IsTable) {
                continue;
            }
            if (!row.cells[name].isThere || !row.cells[id].isThere || !row.cells[flags].isThere) {
                findings_.Fault("catalogue", "has a table without a name, a page or flags");
                continue;
            }
            AddTable(ToUtf8(TextUnits(row.cells[name].bytes)),
                     {row.cells[id].bytes.Low(0, 4) & PageBits,
                      (row.cells[flags].bytes.Low(0, 4) & SystemFlags) != 0});
        }
    }

    void AddTable(const std::string& name, const Entry& entry) {
        if (!names_.insert(WithoutCase(name)).second) {
            findings_.Fault("catalogue", "has two tables called " + name);
        } else if (entry.page != CatalogueAt) {
            tables_.emplace(name, entry);
        }
    }

    const Image& image_;
    Findings& findings_;
    PageOwners owners_;
    std::map<std::string, Entry> tables_;
    std::set<std::string> names_;
};

}  // namespace

std::vector<std::string> FaultsOf(const QByteArray& file, FileOf whose) {
    const Image image(
        {reinterpret_cast<const std::uint8_t*>(file.constData()), static_cast<std::size_t>(file.size())});
    Findings findings(whose == FileOf::Others);
    if (file.size() % Image::PageSize != 0 || image.Count() <= CatalogueAt) {
        findings.Fault("file", "has " + std::to_string(file.size()) + " bytes");
        return findings.Faults();
    }
    WholeFile(image, findings).Check();
    return findings.Faults();
}

std::vector<std::string> FaultsOfFile(const QString& path, FileOf whose) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {path.toStdString() + ": can't be opened"};
    }
    return FaultsOf(file.readAll(), whose);
}

}  // namespace engine::jet
