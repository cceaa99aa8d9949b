#include "driver/progress.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>

#include "driver/system.h"
#include "reader/run.h"

namespace
{
constexpr auto silence = std::chrono::seconds(1);  // no line before
constexpr auto between_lines = std::chrono::milliseconds(100);
constexpr int line_width = 60;
}  // namespace

void start_progress_clock()
{
    run_began = std::chrono::steady_clock::now();
}

Progress::Progress(const char* writing, InputStream& stream) : writing_(writing)
{
    if (run_began == Clock::time_point{} || !progress_is_seen()) return;
    watched_ = &stream;
    began_ = Clock::now();
    stream.watch([](void* progress, std::size_t bytes) { static_cast<Progress*>(progress)->has_read(bytes); }, this);
}

Progress::~Progress()
{
    if (watched_ != nullptr) watched_->watch(nullptr, nullptr);
    if (visible_) std::fprintf(stderr, "\r%*s\r", line_width, "");
}

// Told by the stream of every piece that it has read.
void Progress::has_read(std::size_t bytes)
{
    read_ += bytes;
    const Clock::time_point now = Clock::now();
    if (now - run_began > silence && now - shown_ > between_lines) show(now);
}

void Progress::show(Clock::time_point now)
{
    const double seconds = std::chrono::duration<double>(now - began_).count();
    const double megabytes = static_cast<double>(read_) / 1e6;
    const auto percent =
        static_cast<int>(std::min<Position>(100, 100 * read_ / std::max<Position>(1, watched_->size())));
    char line[line_width + 1];
    std::snprintf(line, sizeof line, "morvex: %s  %3i %%  %.0f MB/s", writing_, percent,
                  seconds > 0.0 ? megabytes / seconds : 0.0);
    // Plain characters alone, so there is no colour or other control sequence to switch off.
    std::fprintf(stderr, "\r%-*s", line_width, line);
    shown_ = now;
    visible_ = true;
}
