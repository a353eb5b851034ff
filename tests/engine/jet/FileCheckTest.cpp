#include "IsSound.h"
#include "SomeDatabase.h"
#include "engine/jet/DefinitionForm.h"
#include "engine/jet/IndexForm.h"
#include "engine/jet/PageStore.h"

#include <algorithm>
#include <functional>

namespace engine::jet {
namespace {

constexpr auto OnePage = static_cast<qsizetype>(PageSize);
constexpr qsizetype CatalogueAt = 2 * OnePage;
constexpr char LvalMark[] = "LVAL";

/// A sound file that is damaged in one place.
class JetFileCheck : public ::testing::Test {
protected:
    int Low(qsizetype at, int size) const {
        int number = 0;
        for (int byte = size - 1; byte >= 0; --byte) {
            number = number * 256 + static_cast<std::uint8_t>(file.at(at + byte));
        }
        return number;
    }
    void Put(qsizetype at, int number) { file[at] = static_cast<char>(number); }
    void AddTo(qsizetype at, int number) { Put(at, file.at(at) + number); }

    /// Where the first page begins of which this holds.
    qsizetype PageOf(const std::function<bool(qsizetype page)>& fits) const {
        for (qsizetype page = 0; page < file.size(); page += OnePage) {
            if (fits(page)) {
                return page;
            }
        }
        throw std::logic_error("there is no such page");
    }
    /// The definition of "things": the one with most columns that a user made.
    qsizetype Definition() const {
        return PageOf([&](qsizetype page) {
            return Low(page, 2) == 0x0102 && Low(page + 45, 2) == static_cast<int>(Things().columns.size());
        });
    }
    int Owner() const { return static_cast<int>(Definition() / OnePage); }
    qsizetype RowPage() const {
        return PageOf([&](qsizetype page) { return Low(page, 2) == 0x0101 && Low(page + 4, 4) == Owner(); });
    }
    qsizetype LongPage() const {
        return PageOf([&](qsizetype page) {
            return Low(page, 2) == 0x0101 && file.mid(page + 4, 4) == LvalMark && Low(page + 12, 2) > 1;
        });
    }
    qsizetype IndexPage(int kind) const {
        return PageOf([&](qsizetype page) {
            return Low(page, 2) == 0x0100 + kind && Low(page + 4, 4) == Owner() && Low(page + 2, 2) < 3000;
        });
    }
    /// Where an entry of an index page ends, behind the place where the first begins.
    qsizetype EndOf(qsizetype page, int entry) const {
        for (qsizetype end = 0; end < 453 * 8; ++end) {
            if ((file.at(page + 27 + end / 8) >> end % 8 & 1) != 0 && entry-- == 0) {
                return end;
            }
        }
        return -1;
    }
    /// Where the first row of a page begins that is as the flags say.
    qsizetype RowWith(int flags, qsizetype firstPage) const {
        for (qsizetype page = firstPage; page < file.size(); page += OnePage) {
            if (Low(page, 2) != 0x0101 || Low(page + 4, 4) != Owner()) {
                continue;
            }
            for (int row = 0; row < Low(page + 12, 2); ++row) {
                if ((Low(page + 14 + 2 * row, 2) & 0xC000) == flags) {
                    return page + 14 + 2 * row;
                }
            }
        }
        throw std::logic_error("there is no such row");
    }

    /// That a fault is told in which these words are.
    ::testing::AssertionResult Tells(const char* words) const {
        const std::vector<std::string> faults = FaultsOf(file);
        const bool tells = std::any_of(faults.begin(), faults.end(), [&](const std::string& fault) {
            return fault.find(words) != std::string::npos;
        });
        return tells ? ::testing::AssertionSuccess()
                     : ::testing::AssertionFailure()
                           << "tells " << (faults.empty() ? "nothing" : faults.front().c_str());
    }

    const QByteArray sound = SomeDatabase(300);
    QByteArray file = sound;
};

TEST_F(JetFileCheck, SoundFilesHaveNoFaults) {
    for (const int rows : {0, 1, 20, 1500}) {
        EXPECT_TRUE(IsSound(SomeDatabase(rows))) << rows;
    }
    EXPECT_TRUE(IsSound(sound, FileOf::Others));
}

TEST_F(JetFileCheck, AFileThatIsNoneIsAFault) {
    file = QByteArray();
    EXPECT_TRUE(Tells("bytes"));
    file = sound + "x";
    EXPECT_TRUE(Tells("bytes"));
    EXPECT_EQ(FaultsOfFile(QStringLiteral("/nowhere")).size(), 1U);
}

TEST_F(JetFileCheck, HeadersAreLookedAt) {
    for (const qsizetype at : {0, 4, 0x13, 0x14, 0x3E, 0x6E}) {
        file = sound;
        AddTo(at, 1);
        EXPECT_TRUE(Tells("header")) << at;
    }
}

TEST_F(JetFileCheck, DefinitionsAreLookedAt) {
    const qsizetype definition = Definition();
    const qsizetype column =
        definition + static_cast<qsizetype>(DefinitionForm::StatisticsAt +
                                            DefinitionForm::StatisticSize * Things().indexes.size());
    for (const qsizetype at : {definition, definition + 2, definition + 8, definition + 12, definition + 40,
                               definition + 41, definition + 43, column, column + 1, column + 5, column + 9,
                               column + 21, column + 23, CatalogueAt + 45}) {
        file = sound;
        AddTo(at, 1);
        EXPECT_FALSE(IsSound(file)) << at % OnePage;
    }
}

TEST_F(JetFileCheck, TheCountOfRowsIsLookedAt) {
    AddTo(Definition() + static_cast<qsizetype>(DefinitionForm::RowsAt), 1);
    EXPECT_TRUE(Tells("rows, and has"));
}

TEST_F(JetFileCheck, ANumberThatIsStillToBeGivenIsAFault) {
    Put(Definition() + static_cast<qsizetype>(DefinitionForm::AutonumberAt) + 1, 0);
    EXPECT_TRUE(Tells("still to be given"));
}

TEST_F(JetFileCheck, ThePlacesOfRowsAreLookedAt) {
    const qsizetype page = RowPage();
    AddTo(page + 2, 1);
    EXPECT_TRUE(Tells("bytes are free"));
    file = sound;
    AddTo(page + 12, 1);
    EXPECT_FALSE(IsSound(file));
    file = sound;
    Put(page + 15, 0);
    EXPECT_TRUE(Tells("has a row that begins at"));
}

TEST_F(JetFileCheck, RowsAreTakenApart) {
    const qsizetype page = RowPage();
    const qsizetype row = page + (Low(RowWith(0, page), 2) & 0x1FFF);
    AddTo(row, 100);
    EXPECT_TRUE(Tells("it says it has"));
}

TEST_F(JetFileCheck, MovesAreFollowed) {
    const qsizetype away = RowWith(0x4000, 0);
    AddTo(away / OnePage * OnePage + (Low(away, 2) & 0x1FFF), 1);
    EXPECT_TRUE(Tells("has moved"));
    file = sound;
    AddTo(RowWith(0x8000, 0) + 1, 0x40);
    EXPECT_TRUE(Tells("has moved"));
    file = sound;
    Put(away + 1, Low(away + 1, 1) | 0xC0);
    EXPECT_TRUE(Tells("has moved here from nowhere")) << "whoever named it is marked as deleted";
}

TEST_F(JetFileCheck, EachPieceOfALongValueIsOneRows) {
    const qsizetype page = LongPage();
    AddTo(page + 15, 0x40);
    EXPECT_TRUE(Tells("long values") || Tells("which is deleted")) << "marked as moved";
    file = sound;
    Put(page + 4, 'X');
    EXPECT_TRUE(Tells("which has none"));
}

TEST_F(JetFileCheck, ADateThatNoCalendarHasIsAFault) {
    const auto bytesOf = [](double number) {
        return QByteArray(reinterpret_cast<const char*>(&number), sizeof number);
    };
    // That of the catalogue's rows: 1 March 2026, 9:30.
    const qsizetype created = file.indexOf(bytesOf(46082 + 9.5 / 24));
    ASSERT_GT(created, 0);
    for (const double none : {-657435.0, 2958466.0}) {
        file.replace(created, sizeof none, bytesOf(none));
        EXPECT_TRUE(Tells("is no date")) << none;
    }
}

TEST_F(JetFileCheck, AValueWithinTheCountOfColumnsIsAFault) {
    const qsizetype offsets = RowPage() + OnePage - 2 - 2;  // Before the null mask and the count of values.
    file.replace(offsets - 2, 2, QByteArray(2, '\0'));
    EXPECT_TRUE(Tells("out of order"));
}

TEST_F(JetFileCheck, AReferenceToAnotherRowsLongValueIsAFault) {
    constexpr int Picture = 2;  // Of the variable columns, behind binary and name.
    std::vector<qsizetype> references;
    for (qsizetype page = RowPage(); references.size() < 2; page += OnePage) {
        ASSERT_LT(page, file.size());
        if (Low(page, 2) != 0x0101 || Low(page + 4, 4) != Owner()) {
            continue;
        }
        for (int row = 0; row < Low(page + 12, 2); ++row) {
            const qsizetype begin = page + (Low(page + 14 + 2 * row, 2) & 0x1FFF);
            const qsizetype end = row == 0 ? page + OnePage : page + (Low(page + 12 + 2 * row, 2) & 0x1FFF);
            const qsizetype offsets = end - 2 - 2;
            const qsizetype value = begin + Low(offsets - 2 - 2 * Picture, 2);
            if (Low(page + 14 + 2 * row, 2) < 0x2000 && value + 12 <= end && Low(value + 3, 1) == 0x40) {
                references.push_back(value);
            }
        }
    }
    file.replace(references[0], 12, file.mid(references[1], 12));
    EXPECT_TRUE(Tells("with row"));
    EXPECT_TRUE(Tells("that nobody names"));
}

TEST_F(JetFileCheck, EachPageIsUsedOnceOrFree) {
    file.append(QByteArray(OnePage, '\0'));
    const qsizetype page = sound.size() / OnePage;
    const qsizetype bits = OnePage + (Low(OnePage + 14, 2) & 0x1FFF) + 5;
    ASSERT_LT(page, 512);
    const auto bit = static_cast<char>(1 << page % 8);
    file[bits + page / 8] = static_cast<char>(file.at(bits + page / 8) & ~bit);
    EXPECT_TRUE(Tells("neither free nor used"));
    file[bits + page / 8] = static_cast<char>(file.at(bits + page / 8) | bit);
    EXPECT_TRUE(IsSound(file));
    file[bits + Owner() / 8] = static_cast<char>(file.at(bits + Owner() / 8) | 1 << Owner() % 8);
    EXPECT_TRUE(Tells("counts as free and is used for definition of things"));
}

TEST_F(JetFileCheck, MapsNameWhatIsUsed) {
    const qsizetype map = Low(Definition() + 56, 3) * OnePage;
    const int row = Low(Definition() + 55, 1);
    const qsizetype bits = map + (Low(map + 14 + 2 * row, 2) & 0x1FFF) + 5;
    const auto page = static_cast<int>(RowPage() / OnePage);
    file[bits + page / 8] = static_cast<char>(file.at(bits + page / 8) ^ 1 << page % 8);
    EXPECT_FALSE(IsSound(file, FileOf::Others)) << "a page that is missing";
    file = sound;
    file[bits] = static_cast<char>(file.at(bits) ^ 1 << 2);
    EXPECT_TRUE(Tells("belongs to definition of MSysObjects and to rows of things"));
}

TEST_F(JetFileCheck, APageWithRoomThatIsForgottenIsAFault) {
    const qsizetype map = Low(Definition() + 60, 3) * OnePage;
    const int row = Low(Definition() + 59, 1);
    const qsizetype begin = map + (Low(map + 14 + 2 * row, 2) & 0x1FFF);
    file.replace(begin + 5, 64, QByteArray(64, '\0'));
    EXPECT_TRUE(Tells("forgets"));
    EXPECT_TRUE(IsSound(file, FileOf::Others));
}

TEST_F(JetFileCheck, IndexPagesAreLookedAt) {
    for (const int kind : {int{IndexForm::Node}, int{IndexForm::Leaf}}) {
        const qsizetype page = IndexPage(kind);
        const auto ends = page + static_cast<qsizetype>(IndexForm::EndsAt);
        for (const qsizetype at : {page, page + 1, page + 2, page + 4, page + 12, page + 16, page + 20,
                                   page + 24, page + 26, ends + 1, page + 480, page + 490}) {
            file = sound;
            AddTo(at, 1);
            EXPECT_FALSE(IsSound(file)) << kind << " " << at - page;
        }
    }
}

// Both rows still have their entries.
TEST_F(JetFileCheck, EntriesAreInOrder) {
    const qsizetype page =
        PageOf([&](qsizetype at) { return Low(at, 2) == 0x0104 && EndOf(at, 1) == 2 * EndOf(at, 0); });
    const qsizetype size = EndOf(page, 0);
    const QByteArray first = file.mid(page + 480, size);
    file.replace(page + 480, size, file.mid(page + 480 + size, size));
    file.replace(page + 480 + size, size, first);
    EXPECT_TRUE(Tells("has entries out of order"));
    EXPECT_FALSE(Tells("lacks an entry"));
}

// The number of the row stands before that of the child.
TEST_F(JetFileCheck, NodesTellTheLastEntryOfEachChild) {
    const qsizetype page = IndexPage(IndexForm::Node);
    const qsizetype row = page + 480 + EndOf(page, 0) - 5;
    AddTo(row, 1);
    EXPECT_TRUE(Tells("of a child that ends with"));
    EXPECT_TRUE(IsSound(file, FileOf::Others));
    file = sound;
    AddTo(row - 1, -1);
    EXPECT_FALSE(IsSound(file, FileOf::Others)) << "the child ends behind what the node tells";
}

// The entry stays where its order wants it, and is that of another row.
TEST_F(JetFileCheck, EachEntryIsThatOfARow) {
    const qsizetype page = IndexPage(IndexForm::Leaf);
    AddTo(page + 480 + EndOf(page, 0) - 1, 100);
    EXPECT_TRUE(Tells("lacks an entry"));
    EXPECT_TRUE(Tells("has an entry of no row"));
    file = sound;
    AddTo(page + 480 + EndOf(page, 0) - 5, 1);
    EXPECT_TRUE(Tells("lacks an entry"));
    EXPECT_TRUE(Tells("has an entry that isn't its row's"));
}

TEST_F(JetFileCheck, TextsAreStoredAsUsual) {
    const QByteArray narrow(
        "\xFF\xFE"
        "co-op",
        7);
    const qsizetype text = file.indexOf(narrow, RowPage());
    ASSERT_GE(text, 0);
    Put(text + 3, 0);
    EXPECT_FALSE(IsSound(file));
}

// What the engine itself never leaves behind is no fault in files of others.
TEST_F(JetFileCheck, OthersMayWasteAPage) {
    file.append(QByteArray(OnePage, '\0'));
    const qsizetype page = sound.size() / OnePage;
    const qsizetype bits = OnePage + (Low(OnePage + 14, 2) & 0x1FFF) + 5;
    file[bits + page / 8] = static_cast<char>(file.at(bits + page / 8) & ~(1 << page % 8));
    EXPECT_FALSE(IsSound(file));
    EXPECT_TRUE(IsSound(file, FileOf::Others));
}

}  // namespace
}  // namespace engine::jet
