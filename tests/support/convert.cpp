#include "support/convert.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "reader/keyword.h"
#include "reader/run.h"

namespace fs = std::filesystem;

TemporaryName::TemporaryName()
{
    std::string name = (fs::temp_directory_path() / "morvex-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
    path_ = name;
}

TemporaryName::~TemporaryName()
{
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

TemporaryFolder::TemporaryFolder() : before_(fs::current_path())
{
    fs::current_path(path());
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    fs::current_path(before_, ignored);
}

std::string contents(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void write_file(const fs::path& file, std::string_view text)
{
    std::ofstream stream(file, std::ios::binary);
    stream << text;
    if (!stream.flush()) throw std::runtime_error("cannot write " + file.string());
}

void reset_run()
{
    infile.close();
    infile_geom.close();
    for (OutputStream* stream : {&inpfile, &geomfile, &setfile, &accelfile, &outfile, &keyword_of}) stream->close();
    deck_index.clear();
    copy_index.clear();
    cbuffer[0] = '\0';
    file_names = {};
    for (int* flag : {&cardflag, &setflag, &geomflag, &defflag, &stndflag, &contflag, &icflag, &lcflag, &tranflag,
                      &amrflag, &sphflag, &plotflag, &accelflag, &debflag, &edflag})
        *flag = 0;
    run_settings = {};
    counts = {};
    particle_count_position = 0;
}

namespace
{
template <class Action>
Written run(Action&& action, std::string_view deck)
{
    const TemporaryFolder folder;
    inpfile.open("deck");
    outfile.open("log");
    setfile.open("sets");
    geomfile.open("geometry");
    accelfile.open("accelerometers");
    infile.open_text(deck, stream_window);
    particle_sections.reset();
    blast_segments.reset();
    testing::internal::CaptureStdout();
    action();
    Written written;
    written.terminal = testing::internal::GetCapturedStdout();
    infile.close();
    for (OutputStream* stream : {&inpfile, &outfile, &setfile, &geomfile, &accelfile}) stream->close();
    written.deck = contents("deck");
    written.log = contents("log");
    written.sets = contents("sets");
    written.geometry = contents("geometry");
    written.accelerometers = contents("accelerometers");
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
