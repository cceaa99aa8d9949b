#include "driver/progress.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#if __has_include(<unistd.h>)
#include <unistd.h>
#endif

namespace
{
using Clock = std::chrono::steady_clock;

constexpr Clock::duration silence = std::chrono::seconds(1);  // no line before
constexpr Clock::duration pause = std::chrono::milliseconds(100);
constexpr int line_width = 60;

struct State {
    Clock::time_point run_began{};
    const char* writing = nullptr;  // null: nothing to show
    Position size = 0;
    Position read = 0;
    Clock::time_point began{};
    Clock::time_point shown{};
    bool visible = false;
};
State state;

bool terminal_takes_it()
{
#if __has_include(<unistd.h>)
    const char* const kind = std::getenv("TERM");
    return isatty(STDERR_FILENO) != 0 && kind != nullptr && std::string_view(kind) != "dumb";
#else
    return false;
#endif
}

void show(Clock::time_point now)
{
    const double seconds = std::chrono::duration<double>(now - state.began).count();
    const double megabytes = static_cast<double>(state.read) / 1e6;
    const auto percent =
        static_cast<int>(std::min<Position>(100, 100 * state.read / std::max<Position>(1, state.size)));
    char line[line_width + 1];
    std::snprintf(line, sizeof line, "morvex: %s  %3i %%  %.0f MB/s", state.writing, percent,
                  seconds > 0.0 ? megabytes / seconds : 0.0);
    // Plain characters alone, so there is no colour or other control sequence to switch off.
    std::fprintf(stderr, "\r%-*s", line_width, line);
    state.shown = now;
    state.visible = true;
}

// Told by the stream of every piece that it has read.
void deck_read(std::size_t bytes)
{
    state.read += bytes;
    const Clock::time_point now = Clock::now();
    if (now - state.run_began > silence && now - state.shown > pause) show(now);
}
}  // namespace

void start_progress_clock()
{
    state.run_began = Clock::now();
}

Progress::Progress(const char* writing, InputStream& stream)
{
    if (!terminal_takes_it()) return;
    state.writing = writing;
    state.size = stream.size();
    state.read = 0;
    state.began = Clock::now();
    stream.watch(deck_read);
}

Progress::~Progress()
{
    if (state.visible) std::fprintf(stderr, "\r%*s\r", line_width, "");
    state.visible = false;
}
