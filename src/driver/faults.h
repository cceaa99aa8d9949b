// Faults of the surroundings, not of the deck: a file that cannot be created, written or read.
#pragma once

#include <string_view>

// Writes "morvex: <file>: <reason>" to standard error and lets the run end with status 2. Only the first fault of a
// file is told: what follows comes of it.
void report_fault(std::string_view file, std::string_view reason);

// Writes the same line; the run's status stays.
void tell(std::string_view file, std::string_view reason);

// True when a fault of this file was told.
bool is_faulty(std::string_view file);

// 2 when a fault was reported, else 0.
int fault_status();
