#include "Report.h"

#include <iostream>

bool ReportBroken(const std::string& path, int64_t lost, int64_t damaged) {
    if (lost == 0 && damaged == 0) {
        return false;
    }
    std::cerr << "vornplay: " << path << " is broken: " << lost << " frames lost, " << damaged
              << " damaged\n";
    return true;
}
