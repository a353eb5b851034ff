#include "controls/base/HandCursor.h"
#include "platform/Files.h"
#include "support/CursorFile.h"

#include <QFile>
#include <QPixmap>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace {

class HandCursorTest : public ::testing::Test {
protected:
    HandCursorTest() { platform::SetProgramDirectory(folder.path()); }
    ~HandCursorTest() override { platform::SetProgramDirectory(QString()); }

    void Write(const QByteArray& content) {
        QFile file(folder.filePath(QStringLiteral("hand.cur")));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }

    QTemporaryDir folder;
};

TEST_F(HandCursorTest, IsTheDefaultPointerWithoutTheFile) {
    EXPECT_EQ(controls::HandCursor().shape(), Qt::ArrowCursor);
}

TEST_F(HandCursorTest, IsThePictureInTheFileWithItsHotSpot) {
    Write(CursorFile());
    const QCursor cursor = controls::HandCursor();
    ASSERT_EQ(cursor.shape(), Qt::BitmapCursor);
    EXPECT_EQ(cursor.hotSpot(), QPoint(5, 1));
    EXPECT_EQ(cursor.pixmap().size(), QSize(16, 16));
}

TEST_F(HandCursorTest, IsTheDefaultPointerForAFileThatIsNoCursor) {
    Write("nonsense");
    EXPECT_EQ(controls::HandCursor().shape(), Qt::ArrowCursor);
    Write(CursorFile().left(13));
    EXPECT_EQ(controls::HandCursor().shape(), Qt::ArrowCursor);
}

}  // namespace
