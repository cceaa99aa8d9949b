#include "driver/faults.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include "reader/run.h"

void report_fault(std::string_view file, std::string_view reason)
{
    if (is_faulty(file)) return;
    faulty_files.emplace_back(file);
    tell(file, reason);
}

void tell(std::string_view file, std::string_view reason)
{
    std::string line = "morvex: ";
    line.append(file).append(": ").append(reason).append("\n");
    std::fputs(line.c_str(), stderr);
}

bool is_faulty(std::string_view file)
{
    return std::find(faulty_files.begin(), faulty_files.end(), file) != faulty_files.end();
}

int fault_status()
{
    return faulty_files.empty() ? 0 : 2;
}
