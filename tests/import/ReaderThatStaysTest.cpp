#include "ImportJourney.h"

#include <QElapsedTimer>
#include <QFile>

#include <sqlite3.h>

#include <chrono>
#include <optional>
#include <thread>

namespace {

using namespace std::chrono_literals;

/// Another program that begins to read the file and doesn't end.
class OtherReader {
public:
    explicit OtherReader(const QString& path) {
        EXPECT_EQ(sqlite3_open(path.toUtf8().constData(), &connection_), SQLITE_OK);
        Run("begin; select count(*) from options");
    }
    ~OtherReader() { sqlite3_close(connection_); }
    OtherReader(const OtherReader&) = delete;
    OtherReader& operator=(const OtherReader&) = delete;

    void LetGo() { Run("commit"); }

private:
    void Run(const char* sql) {
        EXPECT_EQ(sqlite3_exec(connection_, sql, nullptr, nullptr, nullptr), SQLITE_OK);
    }
    sqlite3* connection_ = nullptr;
};

class ReaderThatStaysTest : public ImportJourney {
protected:
    /// The import in a process of its own, and a reader that comes when it has begun to write.
    void ImportAndRead(const QString& database) {
        ImportOrder order = OrderFor(database);
        order.errors = errors_;
        import.emplace(order);
        while (ReadRows(database, "select 1 from rent_periods limit 1").isEmpty()) {
            std::this_thread::sleep_for(2ms);
        }
    }

    QString Errors() const {
        QFile file(errors_);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return QString::fromUtf8(file.readAll());
    }

    std::optional<OtherImport> import;

private:
    QString errors_ = workplace.Path(QStringLiteral("errors.txt"));
};

TEST_F(ReaderThatStaysTest, CostsOneWaitOfWhichTheUserIsTold) {
    UsePortfolio({.tenants = 200});
    const QString alone = FreshDatabase("alone.mdb");
    ASSERT_EQ(Import(alone), 0);
    const QString database = FreshDatabase("read.mdb");
    ImportAndRead(database);
    OtherReader reader(database);
    std::this_thread::sleep_for(7s);
    reader.LetGo();
    EXPECT_EQ(import->ExitStatus(), 0);
    EXPECT_EQ(Errors(), QStringLiteral(
                            "wrenfield-import: another program holds the database up; going on in memory\n"));
    EXPECT_EQ(Contents(database), Contents(alone));
}

TEST_F(ReaderThatStaysTest, IsNotWaitedForAfterCtrlC) {
    UsePortfolio({.tenants = 2000});
    const QString database = FreshDatabase("read.mdb");
    ImportAndRead(database);
    const OtherReader reader(database);
    std::this_thread::sleep_for(2s);
    QElapsedTimer timer;
    timer.start();
    import->AskToEnd(OtherImport::Requests().front());
    EXPECT_EQ(import->ExitStatus(), 130);
    EXPECT_LT(timer.elapsed(), 2000);
    EXPECT_EQ(Errors().count(QStringLiteral("General Errors")), 1) << Errors().toStdString();
}

}  // namespace
