#include "engine/jet/IndexPageEdit.h"
#include "engine/jet/IndexRules.h"
#include "engine/jet/IndexTree.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <memory>
#include <random>
#include <set>
#include <string>

namespace {

using namespace engine::jet;

/// Pages in memory, as a store has them while a statement runs.
class Pages : public PageStore {
public:
    PageNumber Count() const override { return static_cast<PageNumber>(pages_.size()); }
    const Page& Read(PageNumber number) override { return *pages_[number]; }
    Page& Change(PageNumber number) override { return *pages_[number]; }
    PageNumber TakeBehind(PageNumber /*page*/) override { return Take(); }
    PageNumber Take() override {
        pages_.push_back(std::make_unique<Page>());
        return Count() - 1;
    }
    void GiveBack(PageNumber) override {}

private:
    std::vector<std::unique_ptr<Page>> pages_;
};

class AnyPages : public IndexPages {
public:
    void Came(PageNumber) override {}
    void Went(PageNumber) override {}
};

enum class Rows { RisingNumbers, NumbersAtRandom, TenantByTenant };

std::vector<Key> KeysOf(Rows rows, int count) {
    std::vector<Key> keys(static_cast<std::size_t>(count));
    std::mt19937 random(1);
    QString tenant;
    for (int row = 0; row < count; ++row) {
        Key& key = keys[static_cast<std::size_t>(row)];
        if (rows == Rows::TenantByTenant) {
            tenant = row % 104 == 0 ? QStringLiteral("Tenant %1").arg(random() % 100000) : tenant;
            AppendColumnKey(key, {ColumnType::Text}, tenant);
            AppendColumnKey(key, {ColumnType::DateTime}, 40000.0 + row % 104 * 7);
        } else {
            const int number = rows == Rows::RisingNumbers ? row : static_cast<int>(random() % 1000000);
            AppendColumnKey(key, {ColumnType::Long}, qint64(number));
        }
    }
    return keys;
}

// How long all keys of a table take, each with its row.
void JetIndexOf(benchmark::State& state, Rows rows) {
    const std::vector<Key> keys = KeysOf(rows, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        Pages store;
        AnyPages pages;
        store.Take();
        BeginIndexPage(store.Change(0), IndexForm::Leaf, 0, 0);
        IndexTree tree(store, pages, 0, 0);
        std::uint32_t row = 0;
        for (const Key& key : keys) {
            tree.Insert(key, ++row);
        }
        state.counters["pages"] = store.Count();
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

// The same entries in what the standard library has for it.
void StandardSetOf(benchmark::State& state, Rows rows) {
    const std::vector<Key> keys = KeysOf(rows, static_cast<int>(state.range(0)));
    for (auto _ : state) {
        std::set<Key> entries;
        std::uint32_t row = 0;
        for (Key entry : keys) {
            AppendNumber(entry, ++row);
            entries.insert(std::move(entry));
        }
        benchmark::DoNotOptimize(entries);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
}

constexpr int Entries = 200000;
BENCHMARK_CAPTURE(JetIndexOf, RisingNumbers, Rows::RisingNumbers)
    ->Arg(Entries)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StandardSetOf, RisingNumbers, Rows::RisingNumbers)
    ->Arg(Entries)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(JetIndexOf, TenantByTenant, Rows::TenantByTenant)
    ->Arg(Entries)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StandardSetOf, TenantByTenant, Rows::TenantByTenant)
    ->Arg(Entries)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(JetIndexOf, NumbersAtRandom, Rows::NumbersAtRandom)
    ->Arg(Entries)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(StandardSetOf, NumbersAtRandom, Rows::NumbersAtRandom)
    ->Arg(Entries)
    ->Unit(benchmark::kMillisecond);

void TextKeyOfAName(benchmark::State& state) {
    const QString name = QStringLiteral("Patricia O'Brien, 14 \u00C4rger Street");
    Key key;
    for (auto _ : state) {
        key.clear();
        AppendTextKey(key, name, Order::Ascending);
        benchmark::DoNotOptimize(key);
    }
}
BENCHMARK(TextKeyOfAName);

}  // namespace
