// Writing and reading synthetic catalogues of 28 profiles per material through a file on disk.
//   catalogue_benchmark [--benchmark_filter=...]

#include <benchmark/benchmark.h>

#include <filesystem>
#include <memory>
#include <stdexcept>

#include "Framework/CArchive.h"
#include "Framework/CFile.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "support/RandomCatalogue.h"

namespace {

constexpr int kProfilesEach = 28;

std::u16string BenchmarkFile() {
    return (std::filesystem::temp_directory_path() / "velmora-benchmark.qxp").u16string();
}

void Save(CQvxSezMaterialu& list, const std::u16string& path) {
    CFile file;
    if (!file.Open(path, CFile::modeCreate | CFile::modeWrite)) throw std::runtime_error("cannot create the file");
    CArchive archive(file, CArchive::store);
    list.Serialize(archive, false);
    archive.Close();
    file.Close();
}

void Load(CQvxSezMaterialu& list, const std::u16string& path) {
    CFile file;
    if (!file.Open(path, CFile::modeRead)) throw std::runtime_error("cannot open the file");
    CArchive archive(file, CArchive::load);
    list.Serialize(archive, false);
}

void SetCounters(benchmark::State& state) {
    state.counters["profiles"] = static_cast<double>(state.range(0) * kProfilesEach);
    state.SetItemsProcessed(state.iterations() * state.range(0) * kProfilesEach);
}

void SaveCatalogue(benchmark::State& state) {
    CQvxSezMaterialu list;
    RandomCatalogue(1).Fill(list, static_cast<int>(state.range(0)), kProfilesEach);
    const std::u16string path = BenchmarkFile();
    for (auto _ : state) Save(list, path);
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path));
    SetCounters(state);
}

void LoadCatalogue(benchmark::State& state) {
    CQvxSezMaterialu original;
    RandomCatalogue(1).Fill(original, static_cast<int>(state.range(0)), kProfilesEach);
    const std::u16string path = BenchmarkFile();
    Save(original, path);
    for (auto _ : state) {
        auto list = std::make_unique<CQvxSezMaterialu>();
        Load(*list, path);
        benchmark::DoNotOptimize(list->Count());
        state.PauseTiming();  // freeing the list is not loading
        list.reset();
        state.ResumeTiming();
    }
    SetCounters(state);
}

}  // namespace

BENCHMARK(SaveCatalogue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadCatalogue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
