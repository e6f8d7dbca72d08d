// Runs the rows: ratios by Google Benchmark, how cost grows, and peak memory.
#include "bench/ratio.h"

#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/wait.h>
#include <unistd.h>

#include <QApplication>
#include <algorithm>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <string_view>

namespace marlowick::bench {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kFewestPairs = 5;
constexpr int kMostPairs = 2000;
constexpr double kLongEnough = 1.5;  // seconds of one case's pairs

double seconds(Case& measured, void (Case::*part)()) {
    measured.prepare();
    const Clock::time_point start = Clock::now();
    (measured.*part)();
    return std::chrono::duration<double>(Clock::now() - start).count();
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

struct Pairs {
    std::vector<double> floors;
    std::vector<double> routines;
    std::vector<double> ratios;
};

// Either goes first in turn, so that neither always finds what the other left in the caches.
Pairs runPairs(Case& measured, bool once) {
    Pairs pairs;
    double spent = 0;
    bool floorFirst = true;
    const int fewest = once ? 1 : kFewestPairs;
    for (int count = 0; count < fewest || (!once && spent < kLongEnough && count < kMostPairs);
         ++count) {
        double floor = floorFirst ? seconds(measured, &Case::floor) : 0;
        const double routine = seconds(measured, &Case::routine);
        floor = floorFirst ? floor : seconds(measured, &Case::floor);
        pairs.floors.push_back(floor);
        pairs.routines.push_back(routine);
        pairs.ratios.push_back(routine / floor);
        spent += floor + routine;
        floorFirst = !floorFirst;
    }
    return pairs;
}

void measure(benchmark::State& state, const Row& row, int size, bool once) {
    const std::unique_ptr<Case> measured = row.make(size);
    for (auto _ : state) {
        const Pairs pairs = runPairs(*measured, once);
        const double routine = median(pairs.routines);
        state.SetIterationTime(routine);
        state.counters["floor_ms"] = median(pairs.floors) * 1e3;
        state.counters["routine_ms"] = routine * 1e3;
        state.counters["ratio"] = median(pairs.ratios);
        state.counters["to_reach"] = row.toReach;
        state.counters["pairs"] = static_cast<double>(pairs.ratios.size());
    }
}

class Table : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& /*context*/) override {
        std::printf("%-66s %12s %12s %7s %8s\n", "", "floor ms", "routine ms", "ratio", "to reach");
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            const auto counter = [&](const char* name) { return run.counters.at(name).value; };
            std::printf("%-66s %12.4f %12.4f %7.2f %8.1f%s\n", run.run_name.function_name.c_str(),
                        counter("floor_ms"), counter("routine_ms"), counter("ratio"),
                        counter("to_reach"),
                        counter("ratio") > counter("to_reach") ? "  above" : "");
            std::fflush(stdout);
        }
    }
};

std::string titleOf(const Row& row, int size) {
    std::string title = row.name;
    const std::size_t mark = title.find('#');
    if (mark != std::string::npos) {
        title.replace(mark, 1, std::to_string(size));
    }
    return title;
}

void registerRows(bool small) {
    for (const Row& row : rows()) {
        if (row.sizes.empty()) {
            continue;
        }
        for (const int size : small ? std::vector<int>{row.smallSize} : row.sizes) {
            benchmark::RegisterBenchmark(
                titleOf(row, size).c_str(),
                [row, size, small](benchmark::State& state) { measure(state, row, size, small); })
                ->Iterations(1)
                ->UseManualTime()
                ->Unit(benchmark::kMillisecond);
        }
    }
}

// The slope of a line through the logarithms, by least squares: 1 is a cost that grows as the work.
double exponentOf(const std::vector<std::pair<double, double>>& points) {
    double x = 0;
    double y = 0;
    double xx = 0;
    double xy = 0;
    const auto count = static_cast<double>(points.size());
    for (const auto& [size, time] : points) {
        const double a = std::log(size);
        const double b = std::log(time);
        x += a;
        y += b;
        xx += a * a;
        xy += a * b;
    }
    return (count * xy - x * y) / (count * xx - x * x);
}

// What grows must grow no faster than the work, but for what measuring adds.
constexpr double kMostExponent = 1.1;

// Of the rows whose names hold the text.
void printGrowth(bool small, std::string_view wanted) {
    std::printf("%-66s %s\n", "", "exponent, and milliseconds a size");
    for (const Row& row : rows()) {
        if (row.growth.empty() || row.name.find(wanted) == std::string::npos) {
            continue;
        }
        std::vector<std::pair<double, double>> points;
        for (const int size :
             small ? std::vector<int>{row.smallSize, 2 * row.smallSize} : row.growth) {
            const std::unique_ptr<Case> measured = row.make(size);
            std::vector<double> times;
            double spent = 0;
            while (times.size() < 3 || (spent < 0.5 && times.size() < 200)) {
                times.push_back(seconds(*measured, &Case::routine));
                spent += times.back();
            }
            points.emplace_back(size, median(times));
        }
        const double exponent = exponentOf(points);
        std::printf("%-66s %5.2f%s ", row.name.c_str(), exponent,
                    exponent > kMostExponent ? "  above" : "");
        for (const auto& [size, time] : points) {
            std::printf(" %.0f: %.3f", size, time * 1e3);
        }
        std::printf("\n");
        std::fflush(stdout);
    }
}

// In KiB, out of the kernel's own account of this process.
long memoryOf(std::string_view field) {
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.starts_with(field)) {
            return std::strtol(line.c_str() + field.size(), nullptr, 10);
        }
    }
    return 0;
}

// Each in a process of its own, so that none finds memory that another gave back.
void printMemory(bool small) {
    std::printf("%-66s %s\n", "", "peak MiB above the memory before");
    std::fflush(stdout);
    for (const Row& row : rows()) {
        if (row.sizes.empty()) {
            continue;
        }
        const int size = small ? row.smallSize : row.sizes.back();
        const pid_t child = fork();
        if (child == 0) {
            const std::unique_ptr<Case> measured = row.make(size);
            measured->prepare();
            // What making the data took and gave back counts neither before nor behind.
            ::malloc_trim(0);
            const long before = memoryOf("VmRSS:");
            std::ofstream("/proc/self/clear_refs") << "5";
            measured->routine();
            std::printf("%-66s %8.1f\n", titleOf(row, size).c_str(),
                        static_cast<double>(memoryOf("VmHWM:") - before) / 1024);
            std::fflush(stdout);
        }
        if (child == 0) {
            // The destructors of this copy have run; those of the program are the parent's.
            _exit(0);
        }
        waitpid(child, nullptr, 0);
    }
}

bool takeFlag(int& count, char** arguments, std::string_view flag) {
    for (int i = 1; i < count; ++i) {
        if (arguments[i] == flag) {
            std::copy(arguments + i + 1, arguments + count, arguments + i);
            --count;
            return true;
        }
    }
    return false;
}

}  // namespace

std::vector<Row> rows() {
    std::vector<Row> all;
    for (const auto page :
         {userFileRows, archiveRows, lookUpRows, catalogueRows, toolRows, meshRows, frameRows}) {
        for (Row& row : page()) {
            all.push_back(std::move(row));
        }
    }
    return all;
}

int run(int count, char** arguments) {
    const bool small = takeFlag(count, arguments, "--small");
    const bool growth = takeFlag(count, arguments, "--growth");
    const bool memory = takeFlag(count, arguments, "--memory");
    if (growth) {
        printGrowth(small, count > 1 ? arguments[1] : "");
        return 0;
    }
    if (memory) {
        printMemory(small);
        return 0;
    }
    benchmark::Initialize(&count, arguments);
    if (benchmark::ReportUnrecognizedArguments(count, arguments)) {
        return 1;
    }
    registerRows(small);
    Table table;
    benchmark::RunSpecifiedBenchmarks(&table);
    return 0;
}

}  // namespace marlowick::bench

int main(int count, char** arguments) {
    // Pictures are decoded and painted without a screen.
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(count, arguments);
    return marlowick::bench::run(count, arguments);
}
