#include "benches/Table.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <iostream>
#include <sstream>

namespace railwright::bench {
namespace {

using Results = std::map<std::int64_t, double>;

std::string Rounded(double value) {
    std::ostringstream out;
    out << std::fixed << std::setprecision(value < 10 ? 2 : value < 100 ? 1 : 0) << value;
    return out.str();
}

/// The exponent of the power of the size that the times follow, from 1000 up where there are two such sizes.
double Order(const Results& times) {
    const auto large = std::distance(times.lower_bound(1000), times.end());
    double n = 0, x = 0, y = 0, xx = 0, xy = 0;
    for (auto at = large >= 2 ? times.lower_bound(1000) : times.begin(); at != times.end(); ++at) {
        const double a = std::log(static_cast<double>(at->first));
        const double b = std::log(at->second);
        n += 1, x += a, y += b, xx += a * a, xy += a * b;
    }
    return (n * xy - x * y) / (n * xx - x * x);
}

} // namespace

void Table::ReportRuns(const std::vector<Run>& runs) {
    std::vector<double> found;
    for (const Run& run : runs) {
        if (run.error_occurred) {
            std::cerr << run.benchmark_name() << ": " << run.error_message << '\n';
            Failed = true;
        } else if (run.run_type == Run::RT_Iteration) {
            const auto figure = run.counters.find("figure");
            found.push_back(figure == run.counters.end() ? run.GetAdjustedRealTime() : figure->second.value);
        }
    }
    if (found.empty())
        return;
    std::sort(found.begin(), found.end());
    const auto& name = runs.front().run_name;
    results[name.function_name][std::stoll(name.args)] = found[found.size() / 2];
    std::cerr << name.str() << '\n';
}

void Table::Print(const std::vector<Row>& rows, const std::map<std::string, std::int64_t>& bytes) const {
    std::string kind;
    std::vector<std::int64_t> columns;
    const auto print = [&](const std::string& label, const Results& values) {
        std::cout << std::left << std::setw(36) << label << std::right;
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const auto at = values.upper_bound(i == 0 ? 0 : columns[i - 1]);
            const bool isThere = at != values.end() && at->first <= columns[i];
            std::cout << std::setw(10) << (isThere ? Rounded(at->second) : "");
        }
    };
    for (const Row& row : rows) {
        const auto found = results.find(row.Name);
        if (found == results.end())
            continue;
        const Results& times = found->second;
        const std::string its = row.Name.substr(0, row.Name.find('/'));
        const bool isPerByte = its == "Terrain";
        if (its != kind) {
            kind = its;
            columns = row.Sizes;
            Results header;
            std::cout << '\n'
                      << std::left << std::setw(36)
                      << (kind + (isPerByte ? ", ns per byte" : ", ns per node"));
            for (const std::int64_t column : columns)
                std::cout << std::right << std::setw(10) << column;
            std::cout << "     order\n";
        }
        Results shown = times;
        if (!row.IsFigure)
            for (auto& [size, value] : shown)
                value /= static_cast<double>(isPerByte ? bytes.at(kind + std::to_string(size)) : size);
        print(row.Name, shown);
        if (!row.IsFigure && times.size() > 1)
            std::cout << "    n^" << Rounded(isPerByte ? Order(times) / 2 : Order(times));
        std::cout << '\n';
        for (const std::string& yardstick : row.Yardsticks) {
            const auto plain = results.find(kind + '/' + yardstick);
            Results ratios;
            if (plain != results.end())
                for (const auto& [size, time] : times)
                    if (const auto same = plain->second.find(size); same != plain->second.end())
                        ratios[size] = time / same->second;
            if (!ratios.empty()) {
                print("    / " + yardstick, ratios);
                std::cout << '\n';
            }
        }
    }
}

} // namespace railwright::bench
