#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace railwright::bench {

/// Something that is measured, at each of its sizes.
struct Row {
    /// The kind of its documents, a slash, and what is done with them.
    std::string Name;
    std::vector<std::int64_t> Sizes = {};
    /// Rows of the same kind that this one is held against.
    std::vector<std::string> Yardsticks = {};
    /// Prints a figure that is counted, not a time.
    bool IsFigure = false;

    std::string Kind() const { return Name.substr(0, Name.find('/')); }
};

/// Collects the runs of the benches and prints them as one table.
class Table final : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context&) override { return true; }
    void ReportRuns(const std::vector<Run>& runs) override;
    /// @param bytes the length of the file of each kind and size.
    void Print(const std::vector<Row>& rows, const std::map<std::string, std::int64_t>& bytes) const;
    bool Failed = false;

private:
    /// The median of what each row came to at each of its sizes: nanoseconds, or the figure.
    std::map<std::string, std::map<std::int64_t, double>> results;
};

} // namespace railwright::bench
