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
#include <utility>
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
            if (run.run_type == Run::RT_Aggregate) continue;
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(), run.error_message.c_str());
                continue;
            }
            const std::string& name = run.run_name.function_name;  // "Load<Ours>"
            const size_t open = name.find('<');
            const std::string line = name.substr(0, open) + " " + run.run_name.args;
            const auto place = std::pair(run.family_index, run.per_family_instance_index);
            const auto present = m_places.try_emplace(line, place).first;
            present->second = std::min(present->second, place);
            const double time = run.counters.at("row").value * 1e9;
            const auto [cell, isFirst] =
                m_cells[line].try_emplace(name.substr(open + 1, name.size() - open - 2), time);
            cell->second = std::min(cell->second, time);
            std::fprintf(stderr, "%s\n", run.benchmark_name().c_str());  // it takes a while
        }
    }

    void Finalize() override {
        std::printf("%-46s", "ns a row");
        for (const std::string& competitor : m_competitors)
            std::printf("%10s", competitor.c_str());
        std::printf("%10s\n", "ahead");
        std::vector<std::string> lines;
        for (const auto& [line, place] : m_places)
            lines.push_back(line);
        std::sort(lines.begin(), lines.end(), [this](const std::string& left, const std::string& right) {
            return m_places[left] < m_places[right];
        });
        for (const std::string& line : lines)
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
    std::map<std::string, std::pair<int64_t, int64_t>> m_places;  // as the benchmarks were registered
    std::map<std::string, std::map<std::string, double>> m_cells;
};
