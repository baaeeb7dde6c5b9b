// Decoding one read of the line, compared with a plain table-lookup loop over the same bytes. The
// literal implementation, 246 passes over the whole text, is measured for information.

#include "../tests/scale/DecodingReference.h"
#include "scale/Decoding.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdlib>
#include <new>
#include <string>

namespace {
std::int64_t allocations = 0;
}

// Not inlined: the compiler would warn about a mismatched pair of malloc and free.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* memory = std::malloc(size))
        return memory;
    throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace Quillane {
namespace {

/// 70 bytes arrive within 300 ms at 2400 bits per second; 1 KiB is a full receive buffer.
constexpr std::int64_t oneTick = 70;
constexpr std::int64_t fullBuffer = 1024;

std::string Repeated(std::string_view frame, std::int64_t size) {
    std::string text;
    while (text.size() < static_cast<std::size_t>(size))
        text += frame;
    text.resize(static_cast<std::size_t>(size));
    return text;
}

std::string Frames(std::int64_t size) {
    return Repeated("+012540 kg\r\n", size);
}

/// Without a third number the whole text must be read.
std::string TwoRuns(std::int64_t size) {
    const std::int64_t part = size / 3;
    return Repeated("#", part) + "012540" + Repeated("#", part) + "012540" +
           Repeated("#", size - 2 * part - 12);
}

const LiveReading& Settings() {
    static const LiveReading settings{"Right", 6, false};
    return settings;
}

/// Adds the number of allocations of one decoding to the output. A result of up to fifteen
/// characters needs none.
template <typename Decode>
void CountAllocations(benchmark::State& state, const Decode& decode) {
    const std::int64_t before = allocations;
    benchmark::DoNotOptimize(decode());
    state.counters["allocations"] = static_cast<double>(allocations - before);
}

template <std::string (*MakeText)(std::int64_t)>
void Decoding(benchmark::State& state) {
    const std::string text = MakeText(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.data());
        benchmark::DoNotOptimize(DecodeLiveWeight(text, Settings()));
    }
    CountAllocations(state, [&] { return DecodeLiveWeight(text, Settings()); });
}

/// The longest possible result: without a direction the number is not cut.
void DecodingUncut(benchmark::State& state) {
    const std::string text = "1 12345678901234567890 1";
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.data());
        benchmark::DoNotOptimize(DecodeLiveWeight(text, {}));
    }
    CountAllocations(state, [&] { return DecodeLiveWeight(text, {}); });
}

template <std::string (*MakeText)(std::int64_t)>
void DecodingOnBench(benchmark::State& state) {
    const std::string text = MakeText(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.data());
        benchmark::DoNotOptimize(DecodeTestWeight(text, "Right", "6", false));
    }
    CountAllocations(state, [&] { return DecodeTestWeight(text, "Right", "6", false); });
}

void TableLookup(benchmark::State& state) {
    const std::string text = Frames(state.range(0));
    std::array<char, 256> table{};
    for (std::size_t code = 0; code < table.size(); ++code)
        table[code] = code >= '0' && code <= '9' ? static_cast<char>(code) : ' ';
    std::string separated(text.size(), '\0');
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.data());
        for (std::size_t i = 0; i < text.size(); ++i)
            separated[i] = table[static_cast<unsigned char>(text[i])];
        benchmark::DoNotOptimize(separated.data());
        benchmark::ClobberMemory();
    }
}

void LiteralPasses(benchmark::State& state) {
    const std::string text = Frames(state.range(0));
    for (auto _ : state) {
        benchmark::DoNotOptimize(text.data());
        benchmark::DoNotOptimize(DecodingReference::DecodeLiveWeight(text, Settings()));
    }
}

BENCHMARK(TableLookup)->Arg(oneTick)->Arg(fullBuffer);
BENCHMARK(Decoding<Frames>)->Name("Decoding/frames")->Arg(oneTick)->Arg(fullBuffer);
BENCHMARK(Decoding<TwoRuns>)->Name("Decoding/two numbers")->Arg(oneTick)->Arg(fullBuffer);
BENCHMARK(DecodingOnBench<Frames>)->Name("Decoding on the bench")->Arg(oneTick)->Arg(fullBuffer);
BENCHMARK(DecodingUncut)->Name("Decoding/twenty digits, uncut");
BENCHMARK(LiteralPasses)->Arg(oneTick)->Arg(fullBuffer);

} // namespace
} // namespace Quillane

BENCHMARK_MAIN();
