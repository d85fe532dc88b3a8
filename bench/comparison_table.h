// Prints the runs of benchmark templates as one table: a line for each errand and its arguments, a column for
// each competitor, the template's argument. The cells are the counter "row" in nanoseconds; the last column
// tells how often the first competitor's time goes into the best of the others'.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <map>
#include <string>
#include <vector>

class ComparisonTable : public benchmark::BenchmarkReporter {
  public:
    explicit ComparisonTable(std::vector<std::string> competitors) : m_competitors(std::move(competitors)) {}

    bool ReportContext(const Context& context) override {
        PrintBasicContext(&std::cerr, context);
        return true;
    }

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                continue;
            }
            const std::string& name = run.run_name.function_name;  // "Load<Ours>"
            const size_t open = name.find('<');
            const std::string line = name.substr(0, open) + " " + run.run_name.args;
            if (m_cells.find(line) == m_cells.end()) m_lines.push_back(line);
            m_cells[line][name.substr(open + 1, name.size() - open - 2)] = run.counters.at("row").value * 1e9;
            std::fprintf(stderr, "%s\n", run.benchmark_name().c_str());  // it takes a while
        }
    }

    void Finalize() override {
        std::printf("%-46s", "ns a row");
        for (const std::string& competitor : m_competitors)
            std::printf("%10s", competitor.c_str());
        std::printf("%10s\n", "ahead");
        for (const std::string& line : m_lines)
            PrintLine(line, m_cells[line]);
    }

  private:
    void PrintLine(const std::string& line, const std::map<std::string, double>& cells) const {
        std::printf("%-46s", line.c_str());
        double best = 0;
        for (size_t i = 0; i < m_competitors.size(); ++i) {
            const auto cell = cells.find(m_competitors[i]);
            if (cell == cells.end()) {
                std::printf("%10s", "-");
                continue;
            }
            std::printf("%10.1f", cell->second);
            if (i > 0) best = best > 0 ? std::min(best, cell->second) : cell->second;
        }
        const auto first = cells.find(m_competitors.front());
        if (first == cells.end() || best <= 0) {
            std::printf("\n");
        } else {
            std::printf("%9.2fx\n", best / first->second);
        }
    }

    std::vector<std::string> m_competitors;
    std::vector<std::string> m_lines;  // in the order of the runs
    std::map<std::string, std::map<std::string, double>> m_cells;
};
