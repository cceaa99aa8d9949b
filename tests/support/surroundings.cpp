// What a run needs around it. Nothing here needs GoogleTest: the fuzzers use it, too.
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "reader/run.h"
#include "support/convert.h"

namespace fs = std::filesystem;

namespace
{
// With MORVEX_TEST_WINDOW in the environment, all tests read through a window of that many bytes: no byte may change.
[[maybe_unused]] const bool window_is_set = [] {
    const char* const window = std::getenv("MORVEX_TEST_WINDOW");
    if (window != nullptr) stream_window = std::strtoull(window, nullptr, 10);
    return window != nullptr;
}();
}  // namespace

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
    particle_sections.reset();
    blast_segments.reset();
    particle_count_position = 0;
}
