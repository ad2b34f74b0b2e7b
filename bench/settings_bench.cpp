// Settings benchmarks: the meaningful-line reader over a large configuration file and $NAME
// expansion of many profile paths, each beside a plain baseline with the ratio printed at the end.
#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "engine/editor.h"
#include "fake_host.h"
#include "ratio_reporter.h"
#include "settings/line_reader.h"
#include "settings/profile.h"

namespace ruvo {
namespace {

constexpr int LineCapacity = 256;
constexpr int ConfigLines = 100000;
constexpr int PathCount = 10000;

// A keyboard-definition-like file: definitions, comments and blank lines, CR LF line ends.
std::string MakeConfigFile() {
    std::string content;
    for (int i = 0; i < ConfigLines; ++i) {
        switch (i % 5) {
        case 0:
            content += "# group " + std::to_string(i) + "\r\n";
            break;
        case 1:
            content += "\r\n";
            break;
        case 2:
            content += "; comment line with some words in it\n";
            break;
        default:
            content += "Ctrl+Shift+F" + std::to_string(i % 12) + " VsystemVHDL\r\n";
            break;
        }
    }
    return content;
}

std::FILE* ConfigFile() {
    static std::FILE* file = [] {
        std::FILE* f = std::tmpfile();
        const std::string content = MakeConfigFile();
        std::fwrite(content.data(), 1, content.size(), f);
        return f;
    }();
    std::rewind(file);
    return file;
}

std::vector<std::string> PathValues() {
    std::vector<std::string> values;
    for (int i = 0; i < PathCount; ++i) {
        switch (i % 3) {
        case 0:
            values.push_back("$INSTALL\\templates\\file" + std::to_string(i) + ".tpl");
            break;
        case 1:
            values.push_back("$LIB/ieee/std_logic_" + std::to_string(i) + ".vhd");
            break;
        default:
            values.push_back("$HOME/$LIB/work" + std::to_string(i));
            break;
        }
    }
    return values;
}

void PlainLineRead(benchmark::State& state) {
    char buffer[LineCapacity];
    for (auto _ : state) {
        std::FILE* file = ConfigFile();
        long count = 0;
        while (std::fgets(buffer, LineCapacity, file) != nullptr)
            ++count;
        benchmark::DoNotOptimize(count);
    }
    state.SetItemsProcessed(state.iterations() * ConfigLines);
}
BENCHMARK(PlainLineRead)->Unit(benchmark::kMillisecond);

void MeaningfulLineRead(benchmark::State& state) {
    for (auto _ : state) {
        std::FILE* file = ConfigFile();
        long count = 0;
        while (std::optional<std::string> line = ReadMeaningfulLine(file, LineCapacity))
            ++count;
        benchmark::DoNotOptimize(count);
    }
    state.SetItemsProcessed(state.iterations() * ConfigLines);
}
BENCHMARK(MeaningfulLineRead)->Unit(benchmark::kMillisecond);

void PlainPathCopy(benchmark::State& state) {
    const std::vector<std::string> values = PathValues();
    std::string out;
    for (auto _ : state) {
        for (const std::string& value : values) {
            out.assign(value);
            benchmark::DoNotOptimize(out.data());
        }
    }
    state.SetItemsProcessed(state.iterations() * PathCount);
}
BENCHMARK(PlainPathCopy)->Unit(benchmark::kMillisecond);

void PathExpansion(benchmark::State& state) {
    const std::vector<std::string> values = PathValues();
    std::string out;
    for (auto _ : state) {
        for (const std::string& value : values) {
            const bool expanded = ExpandPathVariables(value, out);
            benchmark::DoNotOptimize(expanded);
        }
    }
    state.SetItemsProcessed(state.iterations() * PathCount);
}
BENCHMARK(PathExpansion)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ruvo

int main(int argc, char** argv) {
    ruvo::FakeHost host;
    host.programPath = "C:\\Program Files\\ruvo\\ruvo.exe";
    host.environment["HOME"] = "/home/designer";
    host.SetProfile("Directories", "LIB", "D:\\hdl\\lib");
    auto editor = std::make_unique<ruvo::Editor>(host);
    ruvo::InstallEditor(editor.get());

    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    ruvo::RatioReporter reporter(
        {{"MeaningfulLineRead", "PlainLineRead"}, {"PathExpansion", "PlainPathCopy"}});
    benchmark::RunSpecifiedBenchmarks(&reporter);
    benchmark::Shutdown();

    editor.reset();
    ruvo::InstallEditor(nullptr);
    return 0;
}
