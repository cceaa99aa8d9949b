#include "support/whole_run.h"

#include <fcntl.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

#include "driver/file_names.h"
#include "driver/sections.h"
#include "reader/keyword_copy.h"
#include "reader/run.h"
#include "support/convert.h"

namespace fs = std::filesystem;

namespace
{
constexpr std::array<int*, 13> run_flags = {&cardflag, &setflag,  &geomflag, &defflag, &stndflag, &contflag, &icflag,
                                            &lcflag,   &tranflag, &amrflag,  &sphflag, &plotflag, &accelflag};

// Standard output goes nowhere as long as it lives.
class Silence
{
public:
    Silence()
    {
        std::fflush(stdout);
        const int nowhere = open("/dev/null", O_WRONLY);
        dup2(nowhere, STDOUT_FILENO);
        close(nowhere);
    }
    ~Silence()
    {
        std::fflush(stdout);
        dup2(kept_, STDOUT_FILENO);
        close(kept_);
    }
    Silence(const Silence&) = delete;
    Silence& operator=(const Silence&) = delete;

private:
    int kept_ = dup(STDOUT_FILENO);
};

// The folder of all runs of this process: in memory where the system has such a place, which is ten times as fast.
class RunFolder
{
public:
    RunFolder()
    {
        std::string name =
            (access("/dev/shm", W_OK) == 0 ? fs::path("/dev/shm") : fs::temp_directory_path()) / "morvex-runs-XXXXXX";
        if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
        path_ = name;
    }
    ~RunFolder()
    {
        std::error_code ignored;
        fs::remove_all(path_, ignored);
    }
    RunFolder(const RunFolder&) = delete;
    RunFolder& operator=(const RunFolder&) = delete;
    [[nodiscard]] const fs::path& path() const { return path_; }

private:
    fs::path path_;
};

// Inside that folder as long as it lives.
class InRunFolder
{
public:
    InRunFolder()
    {
        static const RunFolder folder;
        fs::current_path(folder.path());
    }
    ~InRunFolder()
    {
        std::error_code ignored;
        fs::current_path(before_, ignored);
    }
    InRunFolder(const InRunFolder&) = delete;
    InRunFolder& operator=(const InRunFolder&) = delete;

private:
    fs::path before_ = fs::current_path();
};

void run_sections()
{
    bool opened = outfile.open(debug_file_name) && infile_geom.open(file_names.deck, stream_window);
    if (accelflag == 1) opened = accelfile.open(accel_file_name) && opened;
    if (cardflag == 1) opened = inpfile.open(file_names.card) && opened;
    if (geomflag == 1) opened = geomfile.open(file_names.geom) && opened;
    if (setflag == 1) opened = setfile.open(file_names.sets) && opened;
    if (!opened) throw std::runtime_error("a file of the run cannot be opened");
    print(outfile, "Opening %s file\n", file_names.deck);
    keyword_writer();
    infile_geom.close();
    write_sections();
    if (cardflag == 1 && defflag == 1 && sphflag == 1) {
        char line[64];
        const int length =
            std::snprintf(line, sizeof line, " Initial number of SPH per processor  : %10i", counts.particles);
        inpfile.overwrite(particle_count_position, {line, static_cast<std::size_t>(length)});
    }
    text(outfile, "\n **************** FINISHED **************** \n");
    for (OutputStream* const stream : {&inpfile, &geomfile, &setfile, &accelfile, &outfile}) stream->close();
}
}  // namespace

bool RunOutputs::same_model(const RunOutputs& other) const
{
    return deck == other.deck && geometry == other.geometry && sets == other.sets &&
           accelerometers == other.accelerometers;
}

RunOutputs run_whole(std::string_view deck, const RunFlags& flags)
{
    setenv("SOURCE_DATE_EPOCH", "1709640000", 1);  // 2024-03-05: the main deck carries the day of the run
    const InRunFolder folder;
    write_file("model.k", deck);
    reset_run();
    for (std::size_t i = 0; i < flags.size(); ++i) *run_flags[i] = flags[i];
    debflag = 1;
    if (!set_file_names("model.k")) throw std::runtime_error("the deck's name does not fit");
    {
        const Silence silence;
        run_sections();
    }
    const auto output = [](int flag, const char* name) { return flag == 1 ? contents(name) : std::string(); };
    return {output(cardflag, file_names.card),  output(geomflag, file_names.geom), output(setflag, file_names.sets),
            output(accelflag, accel_file_name), contents(debug_file_name),         contents(keyword_copy_name)};
}
