#include "engine/jet/WriteDefinition.h"

#include "engine/jet/DataPage.h"
#include "engine/jet/DefinitionForm.h"
#include "engine/jet/Text.h"

#include <algorithm>

namespace engine::jet {

using namespace DefinitionForm;

namespace {

// What the original engine writes in indexes, where nothing reads it.
constexpr std::uint32_t RealIndexMark = 1923;
constexpr std::uint32_t NoOtherIndex = 0xFFFFFFFF;
constexpr std::uint8_t NoCascade = 4;

// Definitions grow at their end.
class DefinitionWriter {
public:
    explicit DefinitionWriter(const TableLayout& layout) : layout_(layout) {}

    QByteArray Write() {
        WriteHead();
        for (const Column& column : layout_.columns) {
            WriteColumn(Grow(ColumnSize), column);
        }
        for (const Column& column : layout_.columns) {
            WriteName(column.name);
        }
        for (const RealIndex& index : layout_.indexes) {
            WriteRealIndex(Grow(RealIndexSize), index);
        }
        for (const LogicalIndex& index : layout_.names) {
            WriteLogicalIndex(Grow(LogicalIndexSize), index);
        }
        for (const LogicalIndex& index : layout_.names) {
            WriteName(index.name);
        }
        WriteLongMaps();
        ChangeableBytesOf(bytes_, layout_.page).Put32(LengthAt, static_cast<std::uint32_t>(bytes_.size()));
        return bytes_;
    }

private:
    ChangeableBytes Grow(std::size_t size) {
        const auto at = static_cast<std::size_t>(bytes_.size());
        bytes_.append(static_cast<qsizetype>(size), '\0');
        return ChangeableBytesOf(bytes_, layout_.page).ChangeablePart(at, size);
    }

    void WriteHead() {
        ChangeableBytes head = Grow(StatisticsAt + StatisticSize * layout_.indexes.size());
        head.Put8(0, PageKind::Definition);
        head.Put8(1, 1);
        head.Put32(MarkAt, Mark);
        head.Put8(UnknownOneAt, 1);
        head.Put8(KindAt, layout_.isSystem ? SystemTable : UserTable);
        head.Put16(RowColumnsAt, layout_.rowColumns);
        head.Put16(VariableColumnsAt, layout_.variableColumns);
        head.Put16(ColumnCountAt, static_cast<std::uint16_t>(layout_.columns.size()));
        head.Put32(LogicalCountAt, static_cast<std::uint32_t>(layout_.names.size()));
        head.Put32(RealCountAt, static_cast<std::uint32_t>(layout_.indexes.size()));
        PutRowPlace(head, PagesAt, layout_.pages);
        PutRowPlace(head, PagesWithRoomAt, layout_.pagesWithRoom);
    }

    void WriteColumn(ChangeableBytes entry, const Column& column) {
        entry.Put8(0, column.type);
        entry.Put32(ColumnMarkAt, Mark);
        entry.Put16(ColumnNumberAt, column.number);
        entry.Put16(ColumnVariablePlaceAt, column.variablePlace);
        entry.Put16(ColumnNumberAgainAt, column.number);
        if (column.type == ColumnType::Decimal) {
            entry.Put8(ColumnSortOrderAt, column.precision);
            entry.Put8(ColumnScaleAt, column.scale);
        } else {
            entry.Put16(ColumnSortOrderAt, column.sortOrder);
            entry.Put8(ColumnSortVersionAt, column.sortVersion);
        }
        entry.Put8(ColumnFlagsAt, static_cast<std::uint8_t>(
                                      ColumnFlag::Changeable | (column.isFixed ? ColumnFlag::Fixed : 0) |
                                      (column.countsUp ? ColumnFlag::CountsUp : 0) |
                                      (column.isMasked ? ColumnFlag::Masked : 0) |
                                      (column.makesGuids ? ColumnFlag::MakesGuids : 0) |
                                      (layout_.isSystem || column.isOfSystem ? ColumnFlag::OfSystem : 0)));
        entry.Put8(ColumnMoreFlagsAt, column.isCompressed ? ColumnFlag::Compressed : 0);
        entry.Put16(ColumnFixedAt, column.fixedAt);
        entry.Put16(ColumnSizeAt, column.size);
    }

    void WriteName(const QString& name) {
        const QByteArray bytes = ToPlainText(name);
        Grow(2).Put16(0, static_cast<std::uint16_t>(bytes.size()));
        bytes_ += bytes;
    }

    void WriteRealIndex(ChangeableBytes entry, const RealIndex& index) {
        entry.Put32(0, RealIndexMark);
        for (std::size_t place = 0; place < RealColumnCount; ++place) {
            const std::size_t at = RealColumnsAt + RealColumnSize * place;
            const bool isThere = place < index.columns.size();
            entry.Put16(at, isThere ? NumberOf(index.columns[place]) : None);
            entry.Put8(at + 2, isThere && index.columns[place].ascending ? 1 : 0);
        }
        PutRowPlace(entry, RealPagesAt, index.pages);
        entry.Put32(RealRootAt, index.root);
        entry.Put8(RealFlagsAt,
                   static_cast<std::uint8_t>(IndexFlag::Always | (index.isUnique ? IndexFlag::Unique : 0) |
                                             (index.ignoresNulls ? IndexFlag::IgnoresNulls : 0) |
                                             (index.refusesNulls ? IndexFlag::RefusesNulls : 0)));
    }

    std::uint16_t NumberOf(const IndexColumn& column) const {
        return layout_.columns[static_cast<std::size_t>(column.column)].number;
    }

    void WriteLogicalIndex(ChangeableBytes entry, const LogicalIndex& index) {
        const bool isRelation = index.kind == LogicalKind::Relation;
        entry.Put32(0, Mark);
        entry.Put32(LogicalNumberAt, index.number);
        entry.Put32(LogicalRealAt, static_cast<std::uint32_t>(index.realIndex));
        entry.Put8(LogicalSideAt, index.side);
        entry.Put32(LogicalOtherAt, isRelation ? index.other : NoOtherIndex);
        entry.Put32(LogicalOtherTableAt, index.otherTable);
        entry.Put8(LogicalUpdatesAt, isRelation ? std::uint8_t{index.cascadesUpdates} : NoCascade);
        entry.Put8(LogicalDeletesAt, isRelation ? index.cascadesDeletes : NoCascade);
        entry.Put8(LogicalKindAt, static_cast<std::uint8_t>(index.kind));
    }

    void WriteLongMaps() {
        for (const Column& column : layout_.columns) {
            if (IsLongType(column.type)) {
                ChangeableBytes entry = Grow(LongMapSize);
                entry.Put16(0, column.number);
                PutRowPlace(entry, 2, column.longPages);
                PutRowPlace(entry, 2 + RowPlaceSize, column.longPagesWithRoom);
            }
        }
        Grow(2).Put16(0, None);
    }

    const TableLayout& layout_;
    QByteArray bytes_;
};

// The original engine counts 8 bytes less than there are, and no definition ends within the last 8.
constexpr std::size_t MostOfLastPage = PageSize - HeadSize;

void PutFreeBytes(ChangeableBytes page, std::size_t used) {
    page.Put16(HeadFreeBytesAt,
               static_cast<std::uint16_t>(MostOfLastPage > used ? MostOfLastPage - used : 0));
}

}  // namespace

void WriteDefinition(PageStore& pages, const TableLayout& layout) {
    const QByteArray definition = DefinitionWriter(layout).Write();
    PageNumber number = layout.page;
    QByteArray left = definition;
    while (true) {
        ChangeableBytes page(pages.Change(number), number);
        const QByteArray part = left.left(PageSize);
        page.PutBytes(0, BytesOf(part, number));
        PutFreeBytes(page, static_cast<std::size_t>(part.size()));
        if (left.size() <= static_cast<qsizetype>(MostOfLastPage)) {
            return;
        }
        // The head of a further page stands before what is left.
        left = definition.left(HeadNextPageAt) + QByteArray(RowPlaceSize, '\0') + left.mid(PageSize);
        number = pages.Take();
        page.Put32(HeadNextPageAt, number);
    }
}

}  // namespace engine::jet
