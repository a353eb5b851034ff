#include "OtherImport.h"

#include "ImportProgress.h"
#include "engine/execution/WriteGroup.h"
#include "platform/Files.h"
#include "support/WriteTrace.h"
#include "tools/import/ImportTool.h"

#include <cstdlib>

namespace {

class Strike {
public:
    explicit Strike(const ImportOrder& order)
        : line_(order.strike.toLocal8Bit()),
          after_(order.strikeAfter),
          betweenGroups_(order.strikeBetweenGroups),
          isDue_(!order.strike.isEmpty()) {}

    void CountWrite() {
        ++done_;
        StrikeIfDue(false);
    }
    void StrikeIfDue(bool betweenGroups) {
        if (isDue_ && done_ >= after_ && betweenGroups == betweenGroups_) {
            isDue_ = std::system(line_.constData()) != 0;
        }
    }

private:
    QByteArray line_;
    size_t after_;
    bool betweenGroups_;
    bool isDue_;
    size_t done_ = 0;
};

void Trace(const ImportOrder& order) {
    const auto strike = std::make_shared<Strike>(order);
    const auto progress =
        order.progress.isEmpty() ? nullptr : std::make_shared<ImportProgress>(order.progress);
    new WriteTrace(
        [strike, progress](const TracedWrite& write) {
            if (progress) {
                progress->AddWrite(write);
            }
            strike->CountWrite();
        },
        [strike, progress] {
            if (progress) {
                progress->AddCommit();
            }
            strike->StrikeIfDue(true);
        });
}

}  // namespace

int CarryOut(const ImportOrder& order) {
    platform::SetProgramDirectory(order.log);
    if (order.endAt > 0) {
        (new FaultyDisk)->FailAt(order.endAt, order.end);
    }
    if (order.writesOfGroup > 0) {
        engine::execution::WriteGroup::EndAfter(order.writesOfGroup);
    }
    if (!order.progress.isEmpty() || !order.strike.isEmpty()) {
        Trace(order);
    }
    return tools::RunImportTool({order.portfolio, QStringLiteral("--database"), order.database,
                                 QStringLiteral("--yes"), QStringLiteral("--today"),
                                 QStringLiteral("2026-11-21")});
}
