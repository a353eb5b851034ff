#include "OperationsTest.h"

namespace engine::jet {
namespace {

// WRENFIELD_JET_OPERATIONS asks for another number of them, WRENFIELD_SEED for others.
TEST_F(JetOperations, TablesHoldWhatPlainMapsHold) {
    constexpr int BetweenLooks = 1000;
    const int operations = Asked("WRENFIELD_JET_OPERATIONS", 5000);
    for (int operation = 1; operation <= operations; ++operation) {
        DoSomething();
        if (operation % BetweenLooks == 0 || operation == operations) {
            LookAtEverything();
        }
        ASSERT_FALSE(HasFailure()) << "in operation " << operation << " of seed " << seed_;
    }
}

}  // namespace
}  // namespace engine::jet
