// The pieces of a conversion, each by itself, next to the floor loop over the same file.

#include "a2l/PhA2l.h"
#include "daq/ConfigurationStream.h"
#include "daq/writer.h"
#include "floor.h"
#include "generator.h"
#include "topology/PhRoot.h"

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

using namespace tavo;

namespace {

/// A generated description of 10 MB in a file.
class Description
{
public:
    Description()
        : path_((std::filesystem::temp_directory_path() / "tavo-bench-pieces.a2l").string())
    {
        std::FILE* file = std::fopen(path_.c_str(), "wb");
        if (!file)
            std::abort();
        writeDescription(file, planOfSize(10000000, true));
        std::fclose(file);
        size_ = std::filesystem::file_size(path_);
    }
    ~Description() { std::remove(path_.c_str()); }

    const char* path() const { return path_.c_str(); }
    std::size_t size() const { return size_; }

private:
    std::string path_;
    std::size_t size_ = 0;
};

const Description& description()
{
    static const Description made;
    return made;
}

/// Takes the tokens' lines and drops them.
class NoLogger : public PhLogger
{
public:
    void reserved() override {}
    void message(const char*) override {}
    void warning(const char*, ...) override {}
    void error(const char*, ...) override {}
};

void processedBytes(benchmark::State& state, std::size_t size)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(size) *
                            static_cast<std::int64_t>(state.iterations()));
}

void floorLoop(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(FloorLoop::tokensOf(description().path()));
    processedBytes(state, description().size());
}
BENCHMARK(floorLoop)->Unit(benchmark::kMillisecond);

/// The lexer alone, with its reading of the file: every token, looked up and converted.
void lexer(benchmark::State& state)
{
    for (auto _ : state) {
        Lexer tokens([](const char*) {});
        if (!tokens.open(description().path()))
            std::abort();
        std::size_t count = 0;
        while (tokens.next() != T_EOF)
            ++count;
        benchmark::DoNotOptimize(count);
    }
    processedBytes(state, description().size());
}
BENCHMARK(lexer)->Unit(benchmark::kMillisecond);

void readAndResolve(benchmark::State& state)
{
    for (auto _ : state) {
        PhA2l reader(description().path());
        auto root = std::make_unique<PhRoot>();
        if (reader.readFile(root.get()) != 0)
            state.SkipWithError("the description can't be read");
        root->resolve();
        state.PauseTiming();
        root.reset();
        state.ResumeTiming();
    }
    processedBytes(state, description().size());
}
BENCHMARK(readAndResolve)->Unit(benchmark::kMillisecond);

/// Bytes per second are those of the configuration.
void writer(benchmark::State& state)
{
    PhA2l reader(description().path());
    PhRoot root;
    reader.readFile(&root);
    root.resolve();
    const std::string path =
        (std::filesystem::temp_directory_path() / "tavo-bench-pieces.ini").string();
    for (auto _ : state)
        writeDaqFile(&root, path.c_str());
    processedBytes(state, std::filesystem::file_size(path));
    std::filesystem::remove(path);
}
BENCHMARK(writer)->Unit(benchmark::kMillisecond);

void release(benchmark::State& state)
{
    for (auto _ : state) {
        state.PauseTiming();
        PhA2l reader(description().path());
        auto root = std::make_unique<PhRoot>();
        reader.readFile(root.get());
        root->resolve();
        state.ResumeTiming();
        root.reset();
    }
}
BENCHMARK(release)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
