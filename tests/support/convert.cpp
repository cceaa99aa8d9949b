#include "support/convert.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
template <class Action>
Written run(Action&& action, std::string_view deck)
{
    Written written;
    inpfile.open(written.deck);
    outfile.open(written.log);
    setfile.open(written.sets);
    geomfile.open(written.geometry);
    accelfile.open(written.accelerometers);
    infile.open_text(deck, stream_window);
    particle_sections.reset();
    blast_segments.reset();
    testing::internal::CaptureStdout();
    action();
    written.terminal = testing::internal::GetCapturedStdout();
    infile.close();
    for (OutputStream* stream : {&inpfile, &outfile, &setfile, &geomfile, &accelfile}) stream->close();
    return written;
}

template <class Test>
std::size_t count_lines(std::string_view text, Test&& test)
{
    std::size_t count = 0;
    while (!text.empty()) {
        const std::string_view line = text.substr(0, text.find('\n'));
        if (test(line)) ++count;
        text.remove_prefix(std::min(line.size() + 1, text.size()));
    }
    return count;
}
}  // namespace

Written convert(void (*procedure)(), std::string_view deck)
{
    return run(procedure, deck);
}

Written convert(const Pass& pass, std::string_view deck)
{
    return run([&] { run_pass(pass); }, deck);
}

Written convert_block(void (*handler)(), std::string_view deck)
{
    return run(
        [=] {
            keyword();
            handler();
        },
        deck);
}

std::size_t lines_equal(std::string_view text, std::string_view line)
{
    return count_lines(text, [=](std::string_view candidate) { return candidate == line; });
}

std::size_t lines_with(std::string_view text, std::string_view beginning)
{
    return count_lines(text, [=](std::string_view candidate) { return candidate.starts_with(beginning); });
}

std::string line_with(std::string_view text, std::string_view beginning)
{
    std::string found;
    count_lines(text, [&](std::string_view candidate) {
        if (found.empty() && candidate.starts_with(beginning)) found = candidate;
        return false;
    });
    return found;
}
