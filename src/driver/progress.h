// The progress line of long runs.
#pragma once

#include <chrono>

#include "reader/input_stream.h"

// While it lives, shows on standard error what is being written, per cent of the stream and MB/s, once the run has
// taken more than a second; wipes the line at its end. Nothing at all is shown unless the run's clock was started and
// standard error is a terminal that can go back to the beginning of a line.
class Progress
{
public:
    // `writing` says what is being written; `stream` is open on the deck.
    Progress(const char* writing, InputStream& stream);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

private:
    using Clock = std::chrono::steady_clock;

    void has_read(std::size_t bytes);
    void show(Clock::time_point now);

    const char* writing_;
    InputStream* watched_ = nullptr;
    Position read_ = 0;
    Clock::time_point began_{};
    Clock::time_point shown_{};
    bool visible_ = false;
};

// Starts the clock of the run.
void start_progress_clock();
