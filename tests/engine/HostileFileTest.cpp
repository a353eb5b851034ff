#include "EngineTest.h"

#include <QFile>
#include <QtEndian>

namespace engine {

namespace {

/// Files whose pages were tampered with.
class HostileFileTest : public EngineTest {
protected:
    QByteArray Contents() {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    void Write(const QByteArray& bytes) {
        database.reset();
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(bytes), bytes.size());
    }

    int OpenError() {
        return ErrorOf([&] { DBEngine::Instance().OpenDatabase(path); });
    }

    /// A file of small pages with one table, whose only row lies below so many pages that lead to one page
    /// each.
    static QByteArray DeepTree(const QByteArray& shallow, quint32 depth) {
        constexpr int PageSize = 512;
        QByteArray deep = shallow.left(PageSize);
        for (quint32 page = 2; page < depth + 2; ++page) {
            QByteArray inner(PageSize, '\0');
            inner[0] = 5;
            inner[5] = 2;
            qToBigEndian<quint32>(page + 1, inner.data() + 8);
            deep += inner;
        }
        deep += shallow.mid(PageSize, PageSize);
        qToBigEndian<quint32>(depth + 2, deep.data() + 28);
        return deep;
    }
};

TEST_F(HostileFileTest, ATreeOfAnyDepthIsDamageAndNoCrash) {
    database.reset();
    path = directory.filePath(QStringLiteral("deep.mdb"));
    QFile(path).open(QIODevice::WriteOnly);
    ASSERT_TRUE(RunElsewhere(path, "pragma page_size = 512; create table t(a); insert into t values(1)"));
    const QByteArray shallow = Contents();
    EXPECT_EQ(OpenError(), 0);
    for (const quint32 depth : {30U, 20000U, 200000U}) {
        Write(DeepTree(shallow, depth));
        EXPECT_EQ(OpenError(), ErrorNumber::DatabaseDamaged) << depth;
    }
}

TEST_F(HostileFileTest, AnIndexThatDoesNotKnowItsRowsIsDamage) {
    database.reset();
    ASSERT_TRUE(RunElsewhere(path,
                             "insert into notes values('a'), ('b'); create table t(a, b);"
                             "insert into t values(1, 2), (3, 4); create index i on t(a);"
                             "pragma writable_schema = on;"
                             "update sqlite_master set sql = 'create index i on t(b)' where name = 'i'"));
    EXPECT_EQ(OpenError(), ErrorNumber::DatabaseDamaged);
}

TEST_F(HostileFileTest, ATableThatUsesThePagesOfAnotherIsDamage) {
    database.reset();
    ASSERT_TRUE(
        RunElsewhere(path,
                     "pragma writable_schema = on;"
                     "update sqlite_master set rootpage = (select rootpage from sqlite_master where name = "
                     "'things') where name = 'notes'"));
    EXPECT_EQ(OpenError(), ErrorNumber::DatabaseDamaged);
}

TEST_F(HostileFileTest, DamageIsFoundInAFileThatWasSoundBefore) {
    database.reset();
    const QByteArray sound = Contents();
    EXPECT_EQ(OpenError(), 0);
    // The head of the second page.
    QByteArray damaged = sound;
    damaged.replace(4096, 4, "abcd");
    Write(damaged);
    EXPECT_EQ(OpenError(), ErrorNumber::DatabaseDamaged);
    Write(sound);
    EXPECT_EQ(OpenError(), 0);
}

}  // namespace

}  // namespace engine
