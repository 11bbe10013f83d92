#pragma once

#include <benchmark/benchmark.h>

/// Writes the label and the counters of each benchmark as a row of a Markdown table.
class MarkdownReporter : public benchmark::BenchmarkReporter {
public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

private:
    std::string columns_;  ///< Head of the table being written.
};
