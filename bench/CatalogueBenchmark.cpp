// Saving, loading, destroying, copying and sorting for display synthetic catalogues of 28 profiles per material, the
// files going through the disk. Each step is timed on its own: the list a load or copy makes is
// destroyed outside the timing, and the destruction is timed on lists loaded outside it. Saves and
// copies work on a list loaded from the file, as the program's lists are.
//   catalogue_benchmark [--benchmark_filter=...] [--benchmark_repetitions=5]

#include <benchmark/benchmark.h>
#include <fcntl.h>
#include <unistd.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <vector>

#include "Framework/CArchive.h"
#include "Framework/CFile.h"
#include "_Velmora/CQvxSezMaterialu.h"
#include "_Velmora/MaterialFilter.h"
#include "RandomCatalogue.h"

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

// The catalogue of `state.range(0)` materials, always the same for the same size.
std::unique_ptr<CQvxSezMaterialu> MakeCatalogue(const benchmark::State& state) {
    auto list = std::make_unique<CQvxSezMaterialu>();
    RandomCatalogue(1).Fill(*list, static_cast<int>(state.range(0)), kProfilesEach);
    return list;
}

// The same catalogue written to the benchmark file, whose path is returned.
std::u16string SavedCatalogue(const benchmark::State& state) {
    const std::u16string path = BenchmarkFile();
    Save(*MakeCatalogue(state), path);
    return path;
}

std::unique_ptr<CQvxSezMaterialu> LoadedCatalogue(const std::u16string& path) {
    CFile file;
    if (!file.Open(path, CFile::modeRead)) throw std::runtime_error("cannot open the file");
    CArchive archive(file, CArchive::load);
    auto list = std::make_unique<CQvxSezMaterialu>();
    list->Serialize(archive, false);
    return list;
}

void SetCounters(benchmark::State& state) {
    state.counters["profiles"] = static_cast<double>(state.range(0) * kProfilesEach);
    state.SetItemsProcessed(state.iterations() * state.range(0) * kProfilesEach);
}

// Waits until the file is on the disk. A save truncates the file, and truncating a file whose
// previous bytes are still being written out waits for them: back-to-back saves would time the
// disk, which the editor's saves, seconds apart, never wait for.
void WaitForDisk(const std::u16string& path) {
    const int descriptor = ::open(std::filesystem::path(path).c_str(), O_RDONLY);
    if (descriptor < 0) throw std::runtime_error("cannot open the file");
    const bool flushed = ::fsync(descriptor) == 0;
    ::close(descriptor);
    if (!flushed) throw std::runtime_error("cannot flush the file");
}

// The list is saved as the program holds it, loaded from a file. A list just made by the generator
// lies wherever the heap had room among the generator's temporaries, differently at each
// repetition, and walking it cost from 26 to over 50 ms of cache misses alone.
void SaveCatalogue(benchmark::State& state) {
    const std::u16string path = SavedCatalogue(state);
    const auto list = LoadedCatalogue(path);
    for (auto _ : state) {
        Save(*list, path);
        state.PauseTiming();
        WaitForDisk(path);
        state.ResumeTiming();
    }
    state.counters["bytes"] = static_cast<double>(std::filesystem::file_size(path));
    SetCounters(state);
}

// Times `make`, which makes a list; freeing the list is not part of the step and is left untimed.
template <typename Make>
void TimeMaking(benchmark::State& state, Make make) {
    for (auto _ : state) {
        std::unique_ptr<CQvxSezMaterialu> list = make();
        benchmark::DoNotOptimize(list->Count());
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
    SetCounters(state);
}

void LoadCatalogue(benchmark::State& state) {
    const std::u16string path = SavedCatalogue(state);
    TimeMaking(state, [&] { return LoadedCatalogue(path); });
}

void DestroyCatalogue(benchmark::State& state) {
    const std::u16string path = SavedCatalogue(state);
    for (auto _ : state) {
        state.PauseTiming();
        auto list = LoadedCatalogue(path);
        state.ResumeTiming();
        list.reset();
    }
    SetCounters(state);
}

// The editor's working copy: a new list takes the whole catalogue, as loaded from its file.
void AssignCatalogue(benchmark::State& state) {
    const auto source = LoadedCatalogue(SavedCatalogue(state));
    TimeMaking(state, [&] {
        auto copy = std::make_unique<CQvxSezMaterialu>();
        copy->AssignFrom(*source);
        return copy;
    });
}

// The dialogs' list: the materials a filter lets through, in the Czech case-blind display order.
void DisplayOrder(benchmark::State& state) {
    const auto source = LoadedCatalogue(SavedCatalogue(state));
    for (auto _ : state) {
        std::vector<CQvxMaterial*> rows = ListedMaterials(*source, {});
        SortForDisplay(rows);
        benchmark::DoNotOptimize(rows.data());
    }
    SetCounters(state);
}

}  // namespace

BENCHMARK(SaveCatalogue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(LoadCatalogue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(DestroyCatalogue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(AssignCatalogue)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);
BENCHMARK(DisplayOrder)->Arg(1000)->Arg(10000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
