#pragma once

#include "BareFile.h"
#include "engine/jet/Table.h"
#include "engine/jet/WriteDefinition.h"

namespace engine::jet {

/// A file with one table: a number that counts up, a yes or no, a text of 255 characters that may be
/// compressed, a memo and a picture.
class TableFile {
public:
    TableFile() {
        ChangeableDataPage maps = ChangeableDataPage::Begin(pages->Change(Maps), Maps, PageOwner::Nobody);
        const QByteArray empty(UsageMapForm::UsualSize, '\0');
        for (int map = 0; map < 6; ++map) {
            maps.Add(BytesOf(empty, Maps), RowState::Here);
        }
        layout.page = 4;
        layout.rowColumns = 5;
        layout.variableColumns = 3;
        layout.pages = {Maps, 0};
        layout.pagesWithRoom = {Maps, 1};
        layout.columns = {Make("id", ColumnType::Long, 4), Make("yes", ColumnType::Boolean, 1),
                          Make("name", ColumnType::Text, 510), Make("memo", ColumnType::Memo, 0),
                          Make("picture", ColumnType::LongBinary, 0)};
        for (std::uint16_t place = 0; place < 5; ++place) {
            layout.columns[place].number = place;
        }
        layout.columns[0].isFixed = layout.columns[1].isFixed = layout.columns[0].countsUp = true;
        layout.columns[1].fixedAt = 4;
        layout.columns[2].isCompressed = layout.columns[3].isCompressed = true;
        layout.columns[3].variablePlace = 1;
        layout.columns[4].variablePlace = 2;
        layout.columns[3].longPages = {Maps, 2};
        layout.columns[3].longPagesWithRoom = {Maps, 3};
        layout.columns[4].longPages = {Maps, 4};
        layout.columns[4].longPagesWithRoom = {Maps, 5};
        WriteDefinition(*pages, layout);
        pages->EndGroup(GroupKind::Adds);
        Open();
    }

    /// Opens the file anew, as another program would find it.
    void Open() {
        table.reset();
        pages.reset();
        pages = bare.Open();
        table = std::make_unique<Table>(*pages, ReadTableLayout(*pages, layout.page));
    }

    static constexpr PageNumber Maps = 3;

    BareFile bare{5};
    std::unique_ptr<PagedFile> pages = bare.Open();
    TableLayout layout;
    std::unique_ptr<Table> table;

private:
    static Column Make(const char* name, std::uint8_t type, std::uint16_t size) {
        Column column;
        column.name = QLatin1String(name);
        column.type = type;
        column.size = size;
        return column;
    }
};

}  // namespace engine::jet
