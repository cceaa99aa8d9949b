// Running the program as a user starts it.
#pragma once

#include <filesystem>
#include <string>

struct Outcome {
    int status = -1;  // exit status; 128 and the signal's number when a signal ended it
    std::string out;  // standard output
    std::string err;  // standard error
};

// Runs a shell command in the present folder, with `input` typed on standard input, and the clock at 5 March 2024.
Outcome run_command(const std::string& command, const std::string& input = "");

// The program itself, and the variant with the smallest window, 128 bytes. MORVEX_TEST_PROGRAM and MORVEX_TEST_VARIANT
// in the environment name commands to run in their place: programs for another system, say, in its emulator.
std::string program();
std::string tiny_window_program();
