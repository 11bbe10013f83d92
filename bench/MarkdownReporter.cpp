#include "MarkdownReporter.h"

#include <iomanip>
#include <sstream>

namespace {

/// The first two lines of a table with a column for each counter.
std::string Head(const benchmark::UserCounters& counters) {
    std::string names = "| |";
    std::string rule = "|---|";
    for (const auto& counter : counters) {
        names += " " + counter.first + " |";
        rule += "--:|";
    }
    return names + "\n" + rule + "\n";
}

std::string Row(const std::string& label, const benchmark::UserCounters& counters) {
    std::ostringstream row;
    row << "| " << label << " |" << std::fixed << std::setprecision(3);
    for (const auto& counter : counters) {
        row << " " << counter.second.value << " |";
    }
    row << "\n";
    return row.str();
}

}  // namespace

bool MarkdownReporter::ReportContext(const Context& /*context*/) {
    return true;
}

void MarkdownReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (run.error_occurred) {
            GetErrorStream() << run.benchmark_name() << ": " << run.error_message << "\n";
            continue;
        }
        if (const std::string head = Head(run.counters); head != columns_) {
            GetOutputStream() << "\n" << head;
            columns_ = head;
        }
        GetOutputStream() << Row(run.report_label, run.counters) << std::flush;
    }
}
