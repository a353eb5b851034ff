#include "database/FixSql.h"
#include "engine/dialect/Tokenizer.h"
#include "records/Tenants.h"

#include <benchmark/benchmark.h>

namespace {

const QString PeriodStatement = QStringLiteral(
    "insert into rent_periods (tenant_code, period_from,period_to,rent_due,extra_charges,paid,"
    "extra_charges_paid) values('Tenant 01234',#03/15/2026#,#03/31/2026#,548.39,0,0,0)");

// All names begin alike, so every code clashes with every one before it. Tenants are coded anew at each call.
void CodesOfOnePrefix(benchmark::State& state) {
    records::Tenants tenants;
    for (int number = 0; number < state.range(0); ++number) {
        auto tenant = std::make_shared<records::Tenant>();
        tenant->Name = QStringLiteral("A tenant of the same name as all others");
        tenants.Add(std::move(tenant));
    }
    for (auto _ : state) {
        tenants.GenerateCodes();
        benchmark::DoNotOptimize(tenants);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(CodesOfOnePrefix)->Arg(1024)->Arg(32767)->Unit(benchmark::kMicrosecond);

void FixSqlOfAPeriod(benchmark::State& state) {
    for (auto _ : state) {
        QString statement = PeriodStatement;
        database::FixSql(statement);
        benchmark::DoNotOptimize(statement);
    }
}
BENCHMARK(FixSqlOfAPeriod);

void TokenizeAPeriod(benchmark::State& state) {
    engine::dialect::ShapedStatement statement;
    for (auto _ : state) {
        engine::dialect::Tokenize(PeriodStatement, statement);
        benchmark::DoNotOptimize(statement);
    }
}
BENCHMARK(TokenizeAPeriod);

void TokenizeAPeriodAfterOthers(benchmark::State& state) {
    engine::dialect::RepeatTokenizer tokenizer;
    engine::dialect::ShapedStatement statement;
    for (auto _ : state) {
        tokenizer.Tokenize(PeriodStatement, statement);
        benchmark::DoNotOptimize(statement);
    }
}
BENCHMARK(TokenizeAPeriodAfterOthers);

}  // namespace

BENCHMARK_MAIN();
