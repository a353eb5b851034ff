#include "EndEvent.h"
#include "OrderText.h"
#include "platform/CommandLine.h"
#include "platform/EndRequest.h"
#include "platform/Process.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

#include <thread>

namespace {

// On a thread of its own, as the system calls the handler of the console.
void NoteEndEvent() {
    std::thread([] {
        const EndEvent event(QCoreApplication::applicationPid());
        WaitForSingleObject(event.Get(), INFINITE);
        platform::RequestEnd(EndEvent::Request);
    }).detach();
}

}  // namespace

// The tests, or one of the imports that they start.
int main(int argc, char** argv) {
    const QCoreApplication application(argc, argv);
    const QStringList arguments = platform::Arguments(argc, argv);
    if (AreOrder(arguments)) {
        NoteEndEvent();
        platform::RunProcess([&arguments] { return CarryOut(OrderOf(arguments)); });
    }
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
