#include "driver/faults.h"

#include <cstdio>
#include <set>
#include <string>

namespace
{
std::set<std::string>& reported()
{
    static std::set<std::string> files;
    return files;
}
}  // namespace

void report_fault(std::string_view file, std::string_view reason)
{
    if (!reported().emplace(file).second) return;
    std::string line = "morvex: ";
    line.append(file).append(": ").append(reason).append("\n");
    std::fputs(line.c_str(), stderr);
}

int fault_status()
{
    return reported().empty() ? 0 : 2;
}
