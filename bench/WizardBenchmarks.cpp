#include "database/CurrentDatabase.h"
#include "platform/MessageBox.h"
#include "records/Collections.h"
#include "records/ImportRun.h"
#include "screens/ListPages.h"
#include "shell/MainModule.h"
#include "tools/portfolio/PortfolioReader.h"
#include "tools/schema/CreateTool.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTest>

#include <benchmark/benchmark.h>

// The wizard's own share of what its user waits for. compare_wizard.py works out the ratios.

namespace {

/// Answers each box at once.
class SilentBoxes : public platform::MessageBoxPort {
public:
    platform::Answer Show(const platform::MessageBoxRequest& /*request*/) override {
        return platform::Answer::Ok;
    }
};

/// Next shows the page that it comes to twice over.
void PageChange(benchmark::State& state) {
    records::CreateCollections(records::TheCollections());
    for (int tenant = 0; tenant < state.range(0); ++tenant) {
        auto record = std::make_shared<records::Tenant>();
        record->Name = QStringLiteral("Tenant %1").arg(tenant);
        record->PropertyName = QStringLiteral("%1 Main Road").arg(tenant);
        records::TheCollections().Tenants.Add(record);
    }
    QWidget form;
    form.resize(798, 593);
    screens::ctlPageTenant page(&form, records::TheCollections());
    page.setGeometry(16, 94, 766, 433);
    page.hide();
    form.show();
    if (!QTest::qWaitForWindowExposed(&form)) {
        state.SkipWithError("The window doesn't come up");
    }
    for (auto _ : state) {
        page.show();
        page.Initialise();
        page.Initialise();
        QCoreApplication::processEvents();
        state.PauseTiming();
        page.hide();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(PageChange)->Arg(5)->Arg(5000)->Unit(benchmark::kMillisecond);

/// The portfolio named by the environment into a fresh database each time.
template <typename Import>
void ImportInto(benchmark::State& state, const Import& import) {
    records::CreateCollections(records::TheCollections());
    if (!tools::ReadPortfolioFile(qEnvironmentVariable("WRENFIELD_PORTFOLIO")).empty()) {
        state.SkipWithError("WRENFIELD_PORTFOLIO names no portfolio");
        return;
    }
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("property.mdb"));
    database::UseDatabaseFile(file);
    for (auto _ : state) {
        state.PauseTiming();
        database::SetCurrentDatabase(nullptr);
        QFile::remove(file);
        tools::CreateHearthbookDatabase(file, engine::FileFormat::Sqlite);
        database::StartDatabase();
        state.ResumeTiming();
        import();
        database::FlushWrites();
    }
    database::SetCurrentDatabase(nullptr);
}

void Finish(benchmark::State& state) {
    ImportInto(state, [] { shell::RunImport(false); });
}
BENCHMARK(Finish)->Unit(benchmark::kMillisecond)->UseRealTime();

/// What wrenfield-import runs.
void BatchImport(benchmark::State& state) {
    ImportInto(state, [] { records::ImportData(records::TheCollections()); });
}
BENCHMARK(BatchImport)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    SilentBoxes boxes;
    platform::SetMessageBoxPort(&boxes);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
