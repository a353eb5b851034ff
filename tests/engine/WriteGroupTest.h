#pragma once

#include "EngineTest.h"
#include "engine/Waiting.h"

#include <atomic>
#include <chrono>
#include <thread>
#include <vector>

namespace engine {

class WriteGroupTest : public EngineTest {
protected:
    WriteGroupTest() { Listen(); }

    void Listen() {
        database->OnLostWrite([this](const Error& error, const QString& write) {
            lost += write;
            EXPECT_NE(error.Number(), 0);
        });
    }

    void OpenAnew(const char* cleaning) {
        ASSERT_TRUE(RunElsewhere(path, cleaning));
        lost.clear();
        database = DBEngine::Instance().OpenDatabase(path);
        Listen();
    }

    void Insert(int number) {
        database->Execute(QStringLiteral("insert into notes(text) values('n%1')").arg(number));
    }

    QString Journal() const { return path + QStringLiteral("-journal"); }

    /// Brings the group to the disk as the course of time does, with more to follow.
    void LetTheGroupEnd() {
        std::this_thread::sleep_for(std::chrono::milliseconds(60));
        Dynaset("select * from things");
    }

    QStringList lost;
};

/// A program that is told of waiting, and says whether it goes on.
class Listener : public WaitingListener {
public:
    Listener() { SetWaitingListener(this); }
    ~Listener() override { SetWaitingListener(nullptr); }

    bool GoesOn() override { return goesOn; }
    void HeldUp(bool isHeldUp) override { told.push_back(isHeldUp); }

    std::atomic<bool> goesOn = true;
    std::vector<bool> told;
};

}  // namespace engine
