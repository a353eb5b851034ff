#include "engine/jet/TableLayout.h"

#include "engine/jet/Damage.h"
#include "engine/jet/DataPage.h"
#include "engine/jet/DefinitionForm.h"
#include "engine/jet/Text.h"

#include <algorithm>
#include <set>

namespace engine::jet {

using namespace DefinitionForm;

namespace {

// Far more than 255 columns and as many indexes take, so that nothing is joined without an end.
constexpr std::size_t MostPagesOfDefinition = 64;
constexpr std::uint32_t MostIndexes = 255;

// Reads a definition from its front to its end.
class LayoutReader {
public:
    LayoutReader(const Bytes& definition, PageNumber page) : bytes_(definition) { layout_.page = page; }

    TableLayout Read() {
        ReadHead();
        at_ = StatisticsAt + StatisticSize * realCount_;
        ReadColumns();
        for (std::uint32_t index = 0; index < realCount_; ++index) {
            layout_.indexes.push_back(ReadRealIndex(Next(RealIndexSize)));
        }
        for (std::uint32_t index = 0; index < logicalCount_; ++index) {
            layout_.names.push_back(ReadLogicalIndex(Next(LogicalIndexSize)));
        }
        for (LogicalIndex& index : layout_.names) {
            index.name = ReadName();
        }
        ReadLongMaps();
        return std::move(layout_);
    }

private:
    [[noreturn]] void Raise(const QString& what) const { RaiseDamaged(layout_.page, what); }

    Bytes Next(std::size_t size) {
        const Bytes next = bytes_.Part(at_, size);
        at_ += size;
        return next;
    }

    void ReadHead() {
        layout_.isSystem = bytes_.U8(KindAt) == SystemTable;
        layout_.rowColumns = bytes_.U16(RowColumnsAt);
        layout_.variableColumns = bytes_.U16(VariableColumnsAt);
        layout_.pages = ReadRowPlace(bytes_, PagesAt);
        layout_.pagesWithRoom = ReadRowPlace(bytes_, PagesWithRoomAt);
        realCount_ = bytes_.U32(RealCountAt);
        logicalCount_ = bytes_.U32(LogicalCountAt);
        const int columns = bytes_.U16(ColumnCountAt);
        if (columns > MostColumns || layout_.rowColumns > MostColumns ||
            layout_.variableColumns > layout_.rowColumns || columns > layout_.rowColumns) {
            Raise(QStringLiteral("defines %1 columns, %2 of a row and %3 variable ones")
                      .arg(columns)
                      .arg(layout_.rowColumns)
                      .arg(layout_.variableColumns));
        }
        if (realCount_ > MostIndexes || logicalCount_ > MostIndexes) {
            Raise(QStringLiteral("defines %1 indexes with %2 names").arg(realCount_).arg(logicalCount_));
        }
    }

    void ReadColumns() {
        const int count = bytes_.U16(ColumnCountAt);
        for (int column = 0; column < count; ++column) {
            layout_.columns.push_back(ReadColumn(Next(ColumnSize)));
        }
        for (Column& column : layout_.columns) {
            column.name = ReadName();
        }
    }

    Column ReadColumn(const Bytes& entry) {
        Column column;
        const std::uint8_t flags = entry.U8(ColumnFlagsAt);
        column.type = entry.U8(0);
        column.number = entry.U16(ColumnNumberAt);
        column.isFixed = (flags & ColumnFlag::Fixed) != 0;
        column.fixedAt = entry.U16(ColumnFixedAt);
        column.variablePlace = entry.U16(ColumnVariablePlaceAt);
        column.size = entry.U16(ColumnSizeAt);
        column.countsUp = (flags & ColumnFlag::CountsUp) != 0;
        column.isOfSystem = (flags & ColumnFlag::OfSystem) != 0;
        column.isMasked = (flags & ColumnFlag::Masked) != 0;
        column.makesGuids = (flags & ColumnFlag::MakesGuids) != 0;
        column.isCompressed = (entry.U8(ColumnMoreFlagsAt) & ColumnFlag::Compressed) != 0;
        if (column.type == ColumnType::Decimal) {
            column.precision = entry.U8(ColumnSortOrderAt);
            column.scale = entry.U8(ColumnScaleAt);
        } else {
            column.sortOrder = entry.U16(ColumnSortOrderAt);
            column.sortVersion = entry.U8(ColumnSortVersionAt);
        }
        CheckColumn(column);
        return column;
    }

    void CheckColumn(const Column& column) {
        if (column.number >= layout_.rowColumns || !numbers_.insert(column.number).second) {
            Raise(QStringLiteral("defines a column number %1, which can't be").arg(column.number));
        }
        const bool isBoolean = column.type == ColumnType::Boolean;
        if (!column.isFixed && !isBoolean &&
            (column.variablePlace >= layout_.variableColumns ||
             !variablePlaces_.insert(column.variablePlace).second)) {
            Raise(QStringLiteral("defines a column %1 at place %2 of %3 variable ones")
                      .arg(column.number)
                      .arg(column.variablePlace)
                      .arg(layout_.variableColumns));
        }
        if (column.isFixed && !isBoolean &&
            (column.fixedAt + column.size > static_cast<int>(PageSize) || IsLongType(column.type) ||
             column.size < SizeOfType(column.type))) {
            Raise(QStringLiteral("defines a column %1 of type %2 at %3 with %4 bytes, which can't be")
                      .arg(column.number)
                      .arg(column.type)
                      .arg(column.fixedAt)
                      .arg(column.size));
        }
    }

    QString ReadName() {
        const std::size_t size = Next(2).U16(0);
        if (size > std::size_t{2} * MostCharactersOfName || size % 2 != 0) {
            Raise(QStringLiteral("defines a name of %1 bytes").arg(static_cast<qulonglong>(size)));
        }
        return PlainText(Next(size));
    }

    RealIndex ReadRealIndex(const Bytes& entry) {
        RealIndex index;
        for (std::size_t place = 0; place < RealColumnCount; ++place) {
            const Bytes column = entry.Part(RealColumnsAt + RealColumnSize * place, RealColumnSize);
            if (column.U16(0) != None) {
                index.columns.push_back({PlaceOfColumn(column.U16(0)), (column.U8(2) & 1) != 0});
            }
        }
        const std::uint8_t flags = entry.U8(RealFlagsAt);
        index.pages = ReadRowPlace(entry, RealPagesAt);
        index.root = entry.U32(RealRootAt);
        index.isUnique = (flags & IndexFlag::Unique) != 0;
        index.ignoresNulls = (flags & IndexFlag::IgnoresNulls) != 0;
        index.refusesNulls = (flags & IndexFlag::RefusesNulls) != 0;
        return index;
    }

    int PlaceOfColumn(std::uint16_t number) const {
        const auto found = std::find_if(layout_.columns.begin(), layout_.columns.end(),
                                        [number](const Column& column) { return column.number == number; });
        if (found == layout_.columns.end()) {
            Raise(QStringLiteral("defines an index on a column number %1, which isn't there").arg(number));
        }
        return static_cast<int>(found - layout_.columns.begin());
    }

    LogicalIndex ReadLogicalIndex(const Bytes& entry) {
        LogicalIndex index;
        const std::uint32_t real = entry.U32(LogicalRealAt);
        const std::uint8_t kind = entry.U8(LogicalKindAt);
        if (real >= realCount_ || kind > static_cast<std::uint8_t>(LogicalKind::Relation)) {
            Raise(QStringLiteral("defines an index of kind %1 on index %2 of %3")
                      .arg(kind)
                      .arg(real)
                      .arg(realCount_));
        }
        index.number = entry.U32(LogicalNumberAt);
        index.realIndex = static_cast<int>(real);
        index.kind = static_cast<LogicalKind>(kind);
        index.side = entry.U8(LogicalSideAt);
        index.other = entry.U32(LogicalOtherAt);
        index.otherTable = entry.U32(LogicalOtherTableAt);
        index.cascadesUpdates = entry.U8(LogicalUpdatesAt) == 1;
        index.cascadesDeletes = entry.U8(LogicalDeletesAt);
        return index;
    }

    // Entries of columns that have been deleted may be left.
    void ReadLongMaps() {
        while (at_ + 2 <= bytes_.Size() && bytes_.U16(at_) != None) {
            const Bytes entry = Next(LongMapSize);
            for (Column& column : layout_.columns) {
                if (column.number == entry.U16(0)) {
                    column.longPages = ReadRowPlace(entry, 2);
                    column.longPagesWithRoom = ReadRowPlace(entry, 2 + RowPlaceSize);
                }
            }
        }
    }

    Bytes bytes_;
    std::size_t at_ = 0;
    std::uint32_t realCount_ = 0;
    std::uint32_t logicalCount_ = 0;
    std::set<std::uint16_t> numbers_;
    std::set<std::uint16_t> variablePlaces_;
    TableLayout layout_;
};

// With the head of the first page.
QByteArray JoinDefinition(PageStore& pages, PageNumber first) {
    QByteArray joined;
    std::set<PageNumber> met;
    PageNumber number = first;
    do {
        const Bytes page(pages.Read(number), number);
        if (page.U8(0) != PageKind::Definition) {
            RaiseDamaged(number,
                         QStringLiteral("is of kind %1, where a table definition should be").arg(page.U8(0)));
        }
        if (!met.insert(number).second || met.size() > MostPagesOfDefinition) {
            RaiseDamaged(first, QStringLiteral("begins a table definition without an end"));
        }
        joined += page.From(joined.isEmpty() ? 0 : HeadSize).Copy();
        number = page.U32(HeadNextPageAt);
    } while (number != 0);
    const std::size_t length = BytesOf(joined, first).U32(LengthAt);
    if (length < StatisticsAt - HeadSize || length + HeadSize > static_cast<std::size_t>(joined.size())) {
        RaiseDamaged(first, QStringLiteral("says that its table definition has %1 bytes, of %2")
                                .arg(static_cast<qulonglong>(length))
                                .arg(joined.size()));
    }
    return joined;
}

}  // namespace

std::size_t SizeOfType(std::uint8_t type) {
    switch (type) {
        case ColumnType::Byte:
            return 1;
        case ColumnType::Short:
            return 2;
        case ColumnType::Long:
        case ColumnType::Single:
            return 4;
        case ColumnType::Currency:
        case ColumnType::Double:
        case ColumnType::DateTime:
            return 8;
        case ColumnType::Guid:
            return 16;
        case ColumnType::Decimal:
            return 17;
        default:
            return 0;
    }
}

std::optional<int> TableLayout::FindColumn(const QString& name) const {
    for (std::size_t place = 0; place < columns.size(); ++place) {
        if (columns[place].name.compare(name, Qt::CaseInsensitive) == 0) {
            return static_cast<int>(place);
        }
    }
    return std::nullopt;
}

TableLayout ReadTableLayout(PageStore& pages, PageNumber first) {
    const QByteArray definition = JoinDefinition(pages, first);
    return LayoutReader(BytesOf(definition, first), first).Read();
}

}  // namespace engine::jet
