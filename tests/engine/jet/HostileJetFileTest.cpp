#include "ModelDisk.h"
#include "engine/Error.h"
#include "engine/jet/Catalogue.h"
#include "engine/jet/MakeDatabase.h"
#include "engine/jet/PagedFile.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

namespace engine::jet {
namespace {

const QString Path = QStringLiteral("/books/property.mdb");

std::vector<Value> SomeRow(int number) {
    return {Null(), QStringLiteral("name %1").arg(number), QString(number * 100, QLatin1Char('m')),
            QByteArray(number * 40, 'p')};
}

NewTable Things() {
    NewTable table;
    table.name = QStringLiteral("things");
    table.columns.resize(4);
    const char* const names[] = {"id", "name", "memo", "picture"};
    const std::uint8_t types[] = {ColumnType::Long, ColumnType::Text, ColumnType::Memo,
                                  ColumnType::LongBinary};
    for (std::size_t column = 0; column < 4; ++column) {
        table.columns[column].name = QLatin1String(names[column]);
        table.columns[column].type = types[column];
    }
    table.columns[0].countsUp = true;
    table.columns[1].size = 100;
    return table;
}

/// A sound file with some rows, of which some have moved and some are deleted.
QByteArray SoundFile() {
    ModelDisk disk;
    MakeDatabase(disk, Path, {Things()}, QDateTime(QDate(2026, 3, 1), QTime(9, 0), Qt::UTC), {});
    PagedFile pages(disk, Path);
    Table table = Catalogue(pages).Open(QStringLiteral("things"));
    std::vector<RowPlace> keys;
    for (int row = 0; row < 120; ++row) {
        keys.push_back(table.Insert(SomeRow(row % 5 == 0 ? row : 1)));
    }
    for (std::size_t row = 0; row < keys.size(); row += 7) {
        table.Update(keys[row], {{1, QString(100, QChar(0x416))}});
    }
    for (std::size_t row = 3; row < keys.size(); row += 11) {
        table.Delete(keys[row]);
    }
    pages.EndGroup(GroupKind::Adds);
    return disk.files[Path]->bytes;
}

// Places that tell how the rest is to be read are met more often than the rest.
qsizetype SomePlace(const QByteArray& file) {
    const qsizetype page = *rc::gen::inRange<qsizetype>(1, file.size() / static_cast<qsizetype>(PageSize));
    const qsizetype most = *rc::gen::element<qsizetype>(16, 80, 600, static_cast<qsizetype>(PageSize));
    const bool atTheEnd = *rc::gen::inRange(0, 4) == 0;
    const qsizetype place = *rc::gen::inRange<qsizetype>(0, most);
    return page * static_cast<qsizetype>(PageSize) +
           (atTheEnd ? static_cast<qsizetype>(PageSize) - 1 - place : place);
}

void ReadEverything(const Table& table) {
    for (auto key = table.FirstRow(); key; key = table.RowBehind(*key)) {
        const StoredRow row = table.Read(*key);
        for (std::size_t column = 0; column < table.Layout().columns.size(); ++column) {
            table.ValueOf(row, static_cast<int>(column));
        }
    }
}

// Each thing that is done to the file for itself: one that meets damage is undone.
template <class Action>
void Try(PagedFile& pages, Action action) {
    const PagedFile::Mark mark = pages.SetMark();
    try {
        action();
    } catch (const Error& error) {
        RC_ASSERT(!error.Description().isEmpty());
        pages.UndoTo(mark);
    }
    pages.EndStatement();
}

void DoEverything(PagedFile& pages) {
    const Catalogue catalogue(pages);
    for (const CatalogueTable& entry : catalogue.Tables()) {
        Try(pages, [&] { ReadEverything(Table(pages, ReadTableLayout(pages, entry.page))); });
    }
    Table table = catalogue.Open(QStringLiteral("things"));
    for (int row = 0; row < 20; ++row) {
        Try(pages, [&] { table.Insert(SomeRow(row * 10)); });
    }
    for (std::uint32_t page = 0; page < pages.Count(); ++page) {
        const RowPlace key{page, static_cast<std::uint8_t>(page % 5)};
        Try(pages, [&] {
            table.Update(key, {{1, QString(90, QChar(0x416))}, {2, QString(5000, QLatin1Char('u'))}});
        });
        Try(pages, [&] { table.Delete(key); });
    }
    Try(pages, [&] { table.Wipe(); });
    Try(pages, [&] { pages.EndGroup(GroupKind::Removes); });
}

RC_GTEST_PROP(JetHostileFile, WhateverAFileSaysEverythingEnds, ()) {
    static const QByteArray sound = SoundFile();
    ModelDisk disk;
    auto file = std::make_shared<ModelDisk::File>();
    file->bytes = sound;
    const int changes = *rc::gen::inRange(1, 8);
    for (int change = 0; change < changes; ++change) {
        file->bytes[SomePlace(sound)] =
            *rc::gen::element<char>('\0', '\1', '\2', '\5', '\x10', '\x7F', '\x80', '\xC0', '\xFF');
    }
    disk.files[Path] = file;
    try {
        PagedFile pages(disk, Path);
        DoEverything(pages);
    } catch (const Error& error) {
        RC_ASSERT(!error.Description().isEmpty());
    }
}

}  // namespace
}  // namespace engine::jet
