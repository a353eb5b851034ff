#include "button/Mouse.h"
#include "controls/button/MouseCapture.h"
#include "platform/Failure.h"
#include "support/OnScreen.h"

#include <QMenu>
#include <QTest>

#include <gtest/gtest.h>

#include <limits>
#include <memory>

namespace {

using namespace controls;

/// Notes the moves it is told of, and that it lost the capture.
class Listener : public QWidget {
public:
    using QWidget::QWidget;

    QList<QPointF> moves;
    int losses = 0;
    int presses = 0;

protected:
    bool event(QEvent* event) override {
        losses += event->type() == QEvent::UngrabMouse ? 1 : 0;
        return QWidget::event(event);
    }
    void mouseMoveEvent(QMouseEvent* event) override { moves.append(event->position()); }
    void mousePressEvent(QMouseEvent* /*event*/) override { ++presses; }
};

class MouseCaptureTest : public ::testing::Test {
protected:
    MouseCaptureTest() : holder(new Listener(&window)), other(&window), mouse(window) {
        window.resize(400, 200);
        holder->setGeometry(40, 40, 105, 25);
        holder->setMouseTracking(true);
        other.setGeometry(145, 40, 105, 25);
        ShowAndActivate(window);
    }
    ~MouseCaptureTest() override { ReleaseMouseCapture(); }

    void MoveToOther() { mouse.MoveTo(other); }

    QWidget window;
    std::unique_ptr<Listener> holder;
    Listener other;
    Mouse mouse;
};

TEST_F(MouseCaptureTest, IsTakenOnlyWhenNoWindowHeldIt) {
    EXPECT_TRUE(SetMouseCapture(holder.get()));
    EXPECT_FALSE(SetMouseCapture(&other));
    EXPECT_FALSE(SetMouseCapture(holder.get()));
    ReleaseMouseCapture();
    EXPECT_TRUE(SetMouseCapture(&other));
}

TEST_F(MouseCaptureTest, CanBeReleasedWhenNobodyHoldsIt) {
    ReleaseMouseCapture();
    ReleaseMouseCapture();
    EXPECT_TRUE(SetMouseCapture(holder.get()));
}

TEST_F(MouseCaptureTest, IsNotForNoWindowOrAHiddenOne) {
    EXPECT_FALSE(SetMouseCapture(nullptr));
    holder->hide();
    EXPECT_FALSE(SetMouseCapture(holder.get()));
    EXPECT_TRUE(SetMouseCapture(&other));
}

TEST_F(MouseCaptureTest, IsNotTakenFromAPopup) {
    QMenu menu;
    menu.addAction(QStringLiteral("Copy"));
    menu.popup(QPoint(0, 0));
    EXPECT_FALSE(SetMouseCapture(holder.get()));
    menu.close();
    EXPECT_TRUE(SetMouseCapture(holder.get()));
}

TEST_F(MouseCaptureTest, TheLoserIsTold) {
    SetMouseCapture(holder.get());
    ReleaseMouseCapture();
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, TheHolderIsToldOfAMoveOutsideOfIt) {
    SetMouseCapture(holder.get());
    mouse.MoveTo(other, {50, 10});
    ASSERT_EQ(holder->moves.size(), 1);
    EXPECT_EQ(holder->moves.first(), QPointF(155, 10));
}

TEST_F(MouseCaptureTest, AWindowThatKeepsItAfterSuchAMoveLosesIt) {
    SetMouseCapture(holder.get());
    mouse.MoveTo(other);
    EXPECT_EQ(holder->losses, 1);
    EXPECT_TRUE(SetMouseCapture(&other));
}

TEST_F(MouseCaptureTest, OnTheOuterEdgeTheHolderAloneIsToldOfMoves) {
    other.setMouseTracking(true);
    mouse.MoveTo(*holder);
    SetMouseCapture(holder.get());
    mouse.MoveTo(other, {0, 10});
    EXPECT_EQ(holder->moves.last(), QPointF(105, 10));
    EXPECT_TRUE(other.moves.isEmpty());
    EXPECT_EQ(holder->losses, 0);
    mouse.MoveTo(other, {1, 10});
    EXPECT_EQ(other.moves.size(), 1);
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, WithinTheHolderAMoveArrivesOnce) {
    mouse.MoveTo(*holder);
    SetMouseCapture(holder.get());
    holder->moves.clear();
    mouse.MoveTo(*holder, {7, 7});
    EXPECT_EQ(holder->moves, QList<QPointF>{QPointF(7, 7)});
}

TEST_F(MouseCaptureTest, APressElsewhereEndsItAndIsNotSwallowed) {
    MoveToOther();
    SetMouseCapture(holder.get());
    mouse.Press();
    EXPECT_EQ(other.presses, 1);
    EXPECT_EQ(holder->presses, 0);
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, APressOnTheHolderDoesNotEndIt) {
    mouse.MoveTo(*holder);
    SetMouseCapture(holder.get());
    mouse.Press();
    EXPECT_EQ(holder->presses, 1);
    EXPECT_EQ(holder->losses, 0);
}

TEST_F(MouseCaptureTest, EndsWhenTheHolderIsHidden) {
    SetMouseCapture(holder.get());
    holder->hide();
    EXPECT_EQ(holder->losses, 1);
    EXPECT_TRUE(SetMouseCapture(&other));
}

TEST_F(MouseCaptureTest, EndsWhenThePageAroundTheHolderIsHidden) {
    SetMouseCapture(holder.get());
    window.hide();
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, EndsWhenTheHoldersWindowIsDisabled) {
    SetMouseCapture(holder.get());
    holder->setEnabled(false);
    EXPECT_EQ(holder->losses, 1);
    EXPECT_TRUE(SetMouseCapture(&other));
}

TEST_F(MouseCaptureTest, EndsWhenTheHolderGetsAnotherParent) {
    SetMouseCapture(holder.get());
    holder->setParent(nullptr);
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, EndsWhenTheHolderIsDestroyed) {
    SetMouseCapture(holder.get());
    holder.reset();
    MoveToOther();
    EXPECT_TRUE(SetMouseCapture(&other));
}

TEST_F(MouseCaptureTest, EndsWhenAPopupOpens) {
    SetMouseCapture(holder.get());
    QMenu menu;
    menu.addAction(QStringLiteral("Copy"));
    menu.popup(QPoint(0, 0));
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, EndsWhenAModalDialogOpens) {
    SetMouseCapture(holder.get());
    QWidget dialog;
    dialog.setWindowModality(Qt::ApplicationModal);
    dialog.setAttribute(Qt::WA_ShowWithoutActivating);
    dialog.show();
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, EndsWhenAnotherFormBecomesTheActiveOne) {
    SetMouseCapture(holder.get());
    QWidget form;
    ShowAndActivate(form);
    EXPECT_EQ(holder->losses, 1);
}

TEST_F(MouseCaptureTest, NothingOfOthersEndsIt) {
    SetMouseCapture(holder.get());
    other.hide();
    other.show();
    other.setEnabled(false);
    other.setEnabled(true);
    QWidget tip(&window, Qt::ToolTip);
    tip.show();
    QCoreApplication::processEvents();
    EXPECT_EQ(holder->losses, 0);
}

struct PointCase {
    double x;
    double y;
    bool inside;
};

void PrintTo(const PointCase& point, std::ostream* out) {
    *out << point.x << ", " << point.y;
}

class PointInWindowTest : public ::testing::TestWithParam<PointCase> {};

TEST_P(PointInWindowTest, RoundsTiesToEvenAndCountsTheOuterEdges) {
    QWidget window;
    QWidget child(&window);
    child.setGeometry(31, 17, 105, 25);
    EXPECT_EQ(IsPointInWindow(GetParam().x, GetParam().y, &child), GetParam().inside);
}

INSTANTIATE_TEST_SUITE_P(Points, PointInWindowTest,
                         ::testing::Values(PointCase{0, 0, true}, PointCase{-1, 0, false},
                                           PointCase{0, -1, false}, PointCase{104, 24, true},
                                           PointCase{105, 25, true}, PointCase{105, 0, true},
                                           PointCase{0, 25, true}, PointCase{106, 12, false},
                                           PointCase{50, 26, false}, PointCase{105.49, 12, true},
                                           PointCase{105.5, 12, false}, PointCase{50, 25.5, false},
                                           PointCase{-0.5, 12, true}, PointCase{-0.51, 12, false},
                                           PointCase{50, -0.5, true}, PointCase{50, -1.5, false}));

TEST(IsPointInWindowTest, ATieGoesToTheEvenSideOnAnEvenEdgeToo) {
    QWidget window;
    window.resize(104, 24);
    EXPECT_TRUE(IsPointInWindow(104.5, 12, &window));
    EXPECT_TRUE(IsPointInWindow(50, 24.5, &window));
    EXPECT_FALSE(IsPointInWindow(104.51, 12, &window));
}

TEST(IsPointInWindowTest, IsFalseWithoutAWindow) {
    EXPECT_FALSE(IsPointInWindow(0, 0, nullptr));
}

TEST(IsPointInWindowTest, APlaceOnNoScreenIsAnOverflow) {
    QWidget window;
    for (const double place : {1e300, std::numeric_limits<double>::quiet_NaN()}) {
        try {
            IsPointInWindow(place, 0, &window);
            ADD_FAILURE();
        } catch (const platform::Failure& failure) {
            EXPECT_EQ(failure.Number(), platform::FailureNumber::Overflow);
        }
    }
}

struct ButtonCase {
    Qt::MouseButtons held;
    bool down;
};

class MouseButtonDownTest : public MouseCaptureTest, public ::testing::WithParamInterface<ButtonCase> {};

TEST_P(MouseButtonDownTest, CountsTheLeftAndTheRightButton) {
    MoveToOther();
    EXPECT_FALSE(IsMouseButtonDown());
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (GetParam().held.testFlag(button)) {
            mouse.Press(button);
        }
    }
    EXPECT_EQ(IsMouseButtonDown(), GetParam().down);
    for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        if (GetParam().held.testFlag(button)) {
            mouse.Release(button);
        }
    }
    EXPECT_FALSE(IsMouseButtonDown());
}

INSTANTIATE_TEST_SUITE_P(Buttons, MouseButtonDownTest,
                         ::testing::Values(ButtonCase{Qt::NoButton, false}, ButtonCase{Qt::LeftButton, true},
                                           ButtonCase{Qt::RightButton, true},
                                           ButtonCase{Qt::LeftButton | Qt::RightButton, true},
                                           ButtonCase{Qt::MiddleButton, false},
                                           ButtonCase{Qt::LeftButton | Qt::MiddleButton, true}));

}  // namespace
