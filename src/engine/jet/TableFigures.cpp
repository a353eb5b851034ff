#include "engine/jet/TableFigures.h"

#include "engine/jet/Bytes.h"
#include "engine/jet/DefinitionForm.h"

namespace engine::jet {

using namespace DefinitionForm;

namespace {

// All of them lie on the first page, with as many indexes as a table can have.
std::size_t DistinctKeysOf(int index) {
    return StatisticsAt + StatisticSize * static_cast<std::size_t>(index) + DistinctKeysAt;
}

}  // namespace

std::uint32_t TableFigures::Rows() const {
    return Figure(RowsAt);
}

void TableFigures::SetRows(std::uint32_t rows) {
    SetFigure(RowsAt, rows);
}

std::int32_t TableFigures::LastNumber() const {
    return static_cast<std::int32_t>(Figure(AutonumberAt));
}

void TableFigures::SetLastNumber(std::int32_t number) {
    SetFigure(AutonumberAt, static_cast<std::uint32_t>(number));
}

std::uint32_t TableFigures::DistinctKeys(int index) const {
    return Figure(DistinctKeysOf(index));
}

void TableFigures::SetDistinctKeys(int index, std::uint32_t keys) {
    SetFigure(DistinctKeysOf(index), keys);
}

std::uint32_t TableFigures::Figure(std::size_t at) const {
    return Bytes(pages_.Read(page_), page_).U32(at);
}

void TableFigures::SetFigure(std::size_t at, std::uint32_t figure) {
    if (Figure(at) != figure) {
        ChangeableBytes(pages_.Change(page_), page_).Put32(at, figure);
    }
}

}  // namespace engine::jet
