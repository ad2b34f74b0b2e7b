// Console report of a benchmark run, followed by each measured figure as a ratio against its
// plain baseline of the same run, in real time and in CPU time (which other programs of a busy
// machine do not disturb).
#pragma once

#include <benchmark/benchmark.h>

#include <cstdio>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace ruvo {

class RatioReporter : public benchmark::ConsoleReporter {
  public:
    // Pairs of (measured benchmark, baseline benchmark) by name.
    explicit RatioReporter(std::vector<std::pair<std::string, std::string>> ratios)
        : ratios_(std::move(ratios)) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs)
            times_[run.benchmark_name()] = {run.GetAdjustedRealTime(), run.GetAdjustedCPUTime()};
        ConsoleReporter::ReportRuns(runs);
    }
    void Finalize() override {
        ConsoleReporter::Finalize();
        for (const auto& [measured, baseline] : ratios_)
            PrintRatio(measured, baseline);
    }

  private:
    void PrintRatio(const std::string& measured, const std::string& baseline) const {
        auto m = times_.find(measured);
        auto b = times_.find(baseline);
        if (m == times_.end() || b == times_.end() || b->second.first <= 0 || b->second.second <= 0)
            return;
        std::printf("ratio %s / %s = %.2f (CPU time %.2f)\n", measured.c_str(), baseline.c_str(),
                    m->second.first / b->second.first, m->second.second / b->second.second);
    }
    std::vector<std::pair<std::string, std::string>> ratios_;
    std::map<std::string, std::pair<double, double>> times_; // real, CPU
};

} // namespace ruvo
