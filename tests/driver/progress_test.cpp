// The progress line of long runs, on a terminal of the test's own.
#include "driver/progress.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "support/convert.h"

namespace
{
using namespace std::chrono_literals;

// Standard error is a terminal while this lives.
class Terminal
{
public:
    explicit Terminal(const char* kind) : master_(posix_openpt(O_RDWR | O_NOCTTY)), before_(dup(STDERR_FILENO))
    {
        if (kind != nullptr)
            setenv("TERM", kind, 1);
        else
            unsetenv("TERM");
        const bool ready = grantpt(master_) == 0 && unlockpt(master_) == 0;
        const int terminal = ready ? open(ptsname(master_), O_RDWR | O_NOCTTY) : -1;
        EXPECT_GE(terminal, 0);
        dup2(terminal, STDERR_FILENO);
        close(terminal);
        fcntl(master_, F_SETFL, O_NONBLOCK);
    }
    ~Terminal()
    {
        dup2(before_, STDERR_FILENO);
        close(before_);
        close(master_);
    }
    Terminal(const Terminal&) = delete;
    Terminal& operator=(const Terminal&) = delete;

    // What has been shown since the last look.
    [[nodiscard]] std::string shown() const
    {
        char text[1000];
        const ssize_t length = read(master_, text, sizeof text);
        return length > 0 ? std::string(text, static_cast<std::size_t>(length)) : std::string();
    }

private:
    int master_;
    int before_;
};

// A deck of 25 windows.
class ProgressLine : public testing::Test
{
protected:
    static constexpr std::size_t window = 4096;

    ProgressLine()
    {
        write_file("deck.k", std::string(25 * window, 'x'));
        stream_.open("deck.k", window);
        start_progress_clock();
    }

    TemporaryFolder folder_;
    InputStream stream_;
};

TEST_F(ProgressLine, ComesAfterASecondAndIsWipedAtTheEnd)
{
    const Terminal terminal("xterm");
    {
        const Progress progress("set file", stream_);
        stream_.next();
        EXPECT_EQ(terminal.shown(), "");
        std::this_thread::sleep_for(1100ms);
        stream_.seek(5 * window);
        stream_.next();
        // Two windows of 25 have been read.
        const std::string line = "morvex: set file    8 %  0 MB/s";
        EXPECT_EQ(terminal.shown(), "\r" + line + std::string(60 - line.size(), ' '));
        stream_.seek(10 * window);
        stream_.next();
        EXPECT_EQ(terminal.shown(), "") << "a second line at once";
    }
    EXPECT_EQ(terminal.shown(), "\r" + std::string(60, ' ') + "\r");
}

// A file that is read in several passes is a hundred per cent read from its first end on.
TEST_F(ProgressLine, ShowsWholePerCentAndAHundredAtTheMost)
{
    write_file("deck.k", std::string(7 * window, 'x'));
    stream_.open("deck.k", window);
    const Terminal terminal("xterm");
    const Progress progress("geometry file", stream_);
    const auto read_window = [&](Position number) {
        stream_.seek(number * window);
        stream_.next();
    };
    read_window(0);
    read_window(1);
    EXPECT_EQ(terminal.shown(), "");
    std::this_thread::sleep_for(1100ms);
    read_window(2);  // three of seven: 42.9
    EXPECT_TRUE(terminal.shown().starts_with("\rmorvex: geometry file   42 %  "));
    for (Position number = 0; number < 7; ++number) read_window(number);
    std::this_thread::sleep_for(150ms);
    read_window(0);  // eleven
    EXPECT_TRUE(terminal.shown().starts_with("\rmorvex: geometry file  100 %  "));
}

TEST_F(ProgressLine, StaysAwayFromAShortRun)
{
    const Terminal terminal("xterm");
    {
        const Progress progress("set file", stream_);
        while (!stream_.at_end()) stream_.next();
    }
    EXPECT_EQ(terminal.shown(), "");
}

TEST_F(ProgressLine, StaysAwayFromTerminalsThatCannotGoBack)
{
    for (const char* const kind : {"dumb", static_cast<const char*>(nullptr)}) {
        const Terminal terminal(kind);
        start_progress_clock();
        std::this_thread::sleep_for(1100ms);
        const Progress progress("set file", stream_);
        stream_.rewind();
        while (!stream_.at_end()) stream_.next();
        EXPECT_EQ(terminal.shown(), "");
    }
}

TEST_F(ProgressLine, StaysAwayFromAFile)
{
    setenv("TERM", "xterm", 1);
    testing::internal::CaptureStderr();
    std::this_thread::sleep_for(1100ms);
    {
        const Progress progress("set file", stream_);
        stream_.next();
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}
}  // namespace
