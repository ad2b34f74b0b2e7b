// Document benchmarks: loading a 50 MB HDL file and a 50 MB gate-level netlist beside a plain
// fread plus a memchr pass over the same bytes, saving beside one fwrite, with the ratios
// printed at the end; the memory a loaded file costs against its size; the first read and load
// into fresh memory; and the peak memory of loading a 200 MB netlist.
#include <benchmark/benchmark.h>

#include <chrono>
#include <climits>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <functional>
#include <malloc.h>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "docs/documents.h"
#include "docs/file_saving.h"
#include "engine/edit_buffer.h"
#include "engine/editor.h"
#include "fake_host.h"
#include "ratio_reporter.h"

namespace ruvo {
namespace {

constexpr long long TargetBytes = 50LL * 1024 * 1024;

struct Files {
    std::string folder;
    std::string source;  // the generated HDL file
    std::string netlist; // the generated netlist
    std::string target;  // where saves go
    std::string bytes;   // the source's content
    size_t netlistSize = 0;
};

// VHDL-like text with CR LF line ends, indentation, tabs and comments.
std::string MakeHdl() {
    std::string text;
    text.reserve(static_cast<size_t>(TargetBytes) + 256);
    int unit = 0;
    while (static_cast<long long>(text.size()) < TargetBytes) {
        const std::string n = std::to_string(unit++);
        text += "-- unit " + n + ": generated register bank\r\n";
        text += "entity reg" + n + " is\r\n";
        text += "  port (clk, rst : in std_logic;\r\n";
        text += "\td : in std_logic_vector(31 downto 0);\r\n";
        text += "\tq : out std_logic_vector(31 downto 0));\r\n";
        text += "end reg" + n + ";\r\n\r\n";
        text += "architecture rtl of reg" + n + " is\r\nbegin\r\n";
        text += "  process (clk, rst) begin\r\n";
        text += "    if rst = '1' then q <= (others => '0');\r\n";
        text += "    elsif rising_edge(clk) then q <= d; end if;\r\n";
        text += "  end process;\r\nend rtl;\r\n\r\n";
    }
    return text;
}

// A gate-level netlist of about `bytes` bytes (LF line ends), written as it is made; its size.
size_t WriteNetlist(const std::string& path, long long bytes) {
    std::FILE* out = std::fopen(path.c_str(), "wb");
    long long total = std::fprintf(out, "module top (clk, a, y);\n");
    for (long i = 1; total < bytes; ++i)
        total += std::fprintf(out, "  NAND2X1 U%ld (.A(n%ld), .B(n%ld), .Y(n%ld));\n", i, i, i + 1,
                              i + 2);
    total += std::fprintf(out, "endmodule\n");
    std::fclose(out);
    return static_cast<size_t>(total);
}

std::string NewFolder() {
    std::string pattern = (std::filesystem::temp_directory_path() / "ruvo-bench-XXXXXX").string();
    return mkdtemp(pattern.data());
}

Files& TheFiles() {
    static Files files = [] {
        Files f;
        f.folder = NewFolder();
        f.source = f.folder + "/big.vhd";
        f.netlist = f.folder + "/netlist.v";
        f.target = f.folder + "/saved.vhd";
        f.bytes = MakeHdl();
        std::FILE* out = std::fopen(f.source.c_str(), "wb");
        std::fwrite(f.bytes.data(), 1, f.bytes.size(), out);
        std::fclose(out);
        f.netlistSize = WriteNetlist(f.netlist, TargetBytes);
        return f;
    }();
    return files;
}

enum class Text { Hdl, Netlist };

const std::string& PathOf(Text text) {
    return text == Text::Hdl ? TheFiles().source : TheFiles().netlist;
}

size_t SizeOf(Text text) {
    return text == Text::Hdl ? TheFiles().bytes.size() : TheFiles().netlistSize;
}

size_t HeapInUse() {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
}

void PlainRead(benchmark::State& state) {
    Files& files = TheFiles();
    std::vector<char> data(files.bytes.size());
    for (auto _ : state) {
        std::FILE* in = std::fopen(files.source.c_str(), "rb");
        const size_t got = std::fread(data.data(), 1, data.size(), in);
        std::fclose(in);
        benchmark::DoNotOptimize(got);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(files.bytes.size()));
}
BENCHMARK(PlainRead)->Unit(benchmark::kMillisecond);

// The lines of data found with memchr.
long CountLines(const char* data, size_t size) {
    long lines = 0;
    const char* end = data + size;
    for (const char* p = data; p < end; ++lines) {
        const void* lineFeed = std::memchr(p, '\n', static_cast<size_t>(end - p));
        p = lineFeed != nullptr ? static_cast<const char*>(lineFeed) + 1 : end;
    }
    return lines;
}

long ReadAndSplit(const std::string& path, std::vector<char>& data) {
    std::FILE* in = std::fopen(path.c_str(), "rb");
    const size_t got = std::fread(data.data(), 1, data.size(), in);
    std::fclose(in);
    return CountLines(data.data(), got);
}

// The floor of any reader: the bytes read, then every line end found.
void PlainReadSplit(benchmark::State& state, Text text) {
    std::vector<char> data(SizeOf(text));
    for (auto _ : state)
        benchmark::DoNotOptimize(ReadAndSplit(PathOf(text), data));
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(data.size()));
}
BENCHMARK_CAPTURE(PlainReadSplit, hdl, Text::Hdl)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(PlainReadSplit, netlist, Text::Netlist)->Unit(benchmark::kMillisecond);

void LoadFile(benchmark::State& state, Text text) {
    const AllocatorStats& allocator = TheEditor().settings.allocator;
    double heapBytes = 0;
    double allocatedBytes = 0;
    for (auto _ : state) {
        const size_t heapBefore = HeapInUse();
        const long allocatedBefore = allocator.totalBytes;
        if (openFile(PathOf(text), 0, 0, KindDocument) != 0) state.SkipWithError("open failed");
        EditBuffer* buffer = TheEditor().engine.currentBuffer;
        benchmark::DoNotOptimize(buffer->lines.lineCount);
        state.PauseTiming();
        heapBytes = static_cast<double>(HeapInUse() - heapBefore);
        allocatedBytes = static_cast<double>(allocator.totalBytes - allocatedBefore);
        closeBuffer(*buffer);
        state.ResumeTiming();
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(SizeOf(text)));
    // What the loaded text holds on the heap, and what the checked allocator counted, per byte
    // of the file.
    const double size = static_cast<double>(SizeOf(text));
    state.counters["heap_per_file_byte"] = heapBytes / size;
    state.counters["counted_per_file_byte"] = allocatedBytes / size;
}
BENCHMARK_CAPTURE(LoadFile, hdl, Text::Hdl)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadFile, netlist, Text::Netlist)->Unit(benchmark::kMillisecond);

void PlainWrite(benchmark::State& state) {
    Files& files = TheFiles();
    for (auto _ : state) {
        std::FILE* out = std::fopen(files.target.c_str(), "wb");
        const size_t put = std::fwrite(files.bytes.data(), 1, files.bytes.size(), out);
        std::fclose(out);
        benchmark::DoNotOptimize(put);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(files.bytes.size()));
}
BENCHMARK(PlainWrite)->Unit(benchmark::kMillisecond);

void SaveFile(benchmark::State& state) {
    Files& files = TheFiles();
    if (openFile(files.source, 0, 0, KindDocument) != 0) state.SkipWithError("open failed");
    EditBuffer* buffer = TheEditor().engine.currentBuffer;
    auto& host = static_cast<FakeHost&>(TheEditor().host);
    for (auto _ : state) {
        if (saveBuffer(files.target, *buffer) != 0) state.SkipWithError("save failed");
        state.PauseTiming();
        host.progressEvents.clear();
        host.statusTexts.clear();
        state.ResumeTiming();
    }
    closeBuffer(*buffer);
    state.SetBytesProcessed(state.iterations() * static_cast<int64_t>(files.bytes.size()));
}
BENCHMARK(SaveFile)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ruvo

namespace ruvo {
namespace {

double MillisecondsOf(const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin)
        .count();
}

// The first read and the first load of the process, each into memory it never used before, as
// when the editor opens its first large file: both pay for mapping their pages.
void ReportFreshMemory() {
    Files& files = TheFiles();
    const double read = MillisecondsOf([&] {
        std::vector<char> data(files.bytes.size());
        benchmark::DoNotOptimize(ReadAndSplit(files.source, data));
    });
    const double load = MillisecondsOf([&] {
        if (openFile(files.source, 0, 0, KindDocument) == 0)
            closeBuffer(*TheEditor().engine.currentBuffer);
    });
    std::printf("fresh memory: read and split %.1f ms, load %.1f ms, ratio %.2f\n", read, load,
                load / read);
}

long PeakKilobytes() {
    std::FILE* status = std::fopen("/proc/self/status", "r");
    char line[256];
    long peak = 0;
    while (status != nullptr && std::fgets(line, sizeof line, status) != nullptr)
        if (std::sscanf(line, "VmHWM: %ld", &peak) == 1) break;
    if (status != nullptr) std::fclose(status);
    return peak;
}

// The highest memory of the process while a 200 MB netlist loads, above what it had before;
// run first, while the process is still small.
void ReportNetlistPeak() {
    constexpr long long Megabytes = 200;
    const std::string folder = NewFolder();
    const std::string path = folder + "/netlist200.v";
    const double size = static_cast<double>(WriteNetlist(path, Megabytes << 20));
    const long before = PeakKilobytes();
    if (openFile(path, 0, 0, KindDocument) == 0) {
        const double peak = static_cast<double>(PeakKilobytes() - before) * 1024;
        std::printf("%lld MB netlist: peak %.0f MB above the start, %.2f times the file\n",
                    Megabytes, peak / 1048576, peak / size);
        closeBuffer(*TheEditor().engine.currentBuffer);
    }
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

} // namespace
} // namespace ruvo

int main(int argc, char** argv) {
    ruvo::FakeHost host;
    auto editor = std::make_unique<ruvo::Editor>(host);
    ruvo::InstallEditor(editor.get());

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    ruvo::ReportNetlistPeak();
    ruvo::ReportFreshMemory();
    // From here on freed memory stays with the process, so that every iteration after the first
    // finds its pages mapped, the read's buffer as much as the loaded lines.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, INT_MAX);
    ruvo::RatioReporter reporter({{"LoadFile/hdl", "PlainRead"},
                                  {"LoadFile/hdl", "PlainReadSplit/hdl"},
                                  {"LoadFile/netlist", "PlainReadSplit/netlist"},
                                  {"SaveFile", "PlainWrite"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    editor.reset();
    ruvo::InstallEditor(nullptr);
    std::error_code ignored;
    std::filesystem::remove_all(ruvo::TheFiles().folder, ignored);
    return 0;
}
