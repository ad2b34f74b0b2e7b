// Colouring every line of a 100,000-line VHDL file with the shipped VHDL definitions, against a
// pass that only finds each line's length.
#include <benchmark/benchmark.h>

#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include "engine/editor.h"
#include "fake_host.h"
#include "lang/language_io.h"
#include "lang/language_table.h"
#include "lang/syntax_scanner.h"

namespace ruvo {
namespace {

constexpr int FileLines = 100000;

const char* const DesignUnit[] = {
    "library ieee;",
    "use ieee.std_logic_1164.all;",
    "use ieee.numeric_std.all;",
    "",
    "-- Synchronous counter with load and terminal count.",
    "entity counter is",
    "  generic (WIDTH : natural := 8);",
    "  port (",
    "    clk, rst_n : in  std_logic;",
    "    load       : in  std_logic;",
    "    din        : in  std_logic_vector(WIDTH - 1 downto 0);",
    "    q          : out std_logic_vector(WIDTH - 1 downto 0);",
    "    tc         : out std_logic  -- terminal count",
    "  );",
    "end entity counter;",
    "",
    "architecture rtl of counter is",
    "  signal count : unsigned(WIDTH - 1 downto 0) := (others => '0');",
    "  constant ALL_ONES : unsigned(WIDTH - 1 downto 0) := (others => '1');",
    "begin",
    "  process (clk, rst_n)",
    "  begin",
    "    if rst_n = '0' then",
    "      count <= (others => '0');",
    "    elsif rising_edge(clk) then",
    "      if load = '1' then",
    "        count <= unsigned(din);",
    "      else",
    "        count <= count + 1;  -- wraps around",
    "      end if;",
    "    end if;",
    "  end process;",
    "",
    "  q  <= std_logic_vector(count);",
    "  tc <= '1' when count = ALL_ONES else '0';",
    "  assert WIDTH > 0 report \"WIDTH must be positive\" severity failure;",
    "end architecture rtl;",
    "",
};

struct ColouringFixture {
    ColouringFixture() : editor(std::make_unique<Editor>(host)) {
        InstallEditor(editor.get());
        host.SetProfile("Languages", "1", "VHDL");
        host.SetProfile("VHDL", "File", std::string(RUVO_SOURCE_DIR) + "/config/vhdl.lsf");
        host.SetProfile("VHDL", "LineComment", "--");
        host.SetProfile("VHDL", "CaseSensitive", "no");
        LoadLanguages();
        language = &LanguageEntry(1);

        // The file goes through disk once so that the lines are separate heap strings, as
        // in a loaded buffer.
        const std::string path = "/tmp/ruvo_colouring_bench.vhd";
        {
            std::ofstream out(path);
            for (int i = 0; i < FileLines; ++i)
                out << DesignUnit[i % std::size(DesignUnit)] << "\n";
        }
        std::ifstream in(path);
        std::string line;
        while (std::getline(in, line)) {
            lines.push_back(std::make_unique<char[]>(line.size() + 1));
            std::memcpy(lines.back().get(), line.c_str(), line.size() + 1);
        }
        std::remove(path.c_str());
    }
    ~ColouringFixture() {
        editor.reset();
        InstallEditor(nullptr);
    }

    FakeHost host;
    std::unique_ptr<Editor> editor;
    const LanguageDef* language = nullptr;
    std::vector<std::unique_ptr<char[]>> lines;
};

ColouringFixture& Fixture() {
    static ColouringFixture fixture;
    return fixture;
}

void BM_ColourEveryLine(benchmark::State& state) {
    ColouringFixture& fixture = Fixture();
    ColourRun runs[MaxRunsPerLine];
    long totalRuns = 0;
    for (auto _ : state) {
        for (const auto& line : fixture.lines) {
            const int count = ScanLine(line.get(), fixture.language, runs, MaxRunsPerLine);
            totalRuns += count;
            benchmark::DoNotOptimize(runs[0]);
        }
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(fixture.lines.size()));
    state.counters["runs_per_line"] =
        static_cast<double>(totalRuns) /
        static_cast<double>(state.iterations() * static_cast<long>(fixture.lines.size()));
}
BENCHMARK(BM_ColourEveryLine)->Unit(benchmark::kMillisecond);

// The floor: touching every character of every line once.
void BM_LineLengthsOnly(benchmark::State& state) {
    ColouringFixture& fixture = Fixture();
    for (auto _ : state) {
        size_t total = 0;
        for (const auto& line : fixture.lines) {
            const char* text = line.get();
            benchmark::DoNotOptimize(text);
            total += std::strlen(text);
        }
        benchmark::DoNotOptimize(total);
    }
    state.SetItemsProcessed(state.iterations() * static_cast<long>(fixture.lines.size()));
}
BENCHMARK(BM_LineLengthsOnly)->Unit(benchmark::kMillisecond);

} // namespace
} // namespace ruvo

BENCHMARK_MAIN();
