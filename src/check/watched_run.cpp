#include "check/watched_run.h"

#include <string>

#include "check/watch.h"
#include "deck/fault.h"
#include "driver/conversion.h"
#include "driver/file_names.h"
#include "reader/run.h"

namespace check
{
namespace
{
// What a watched run sets beside the streams, put back at its end.
class Surroundings
{
public:
    Surroundings(Watch& watch, OutputStream& warned) : warnings_(warnings), observer_(observer)
    {
        warnings = &warned;
        observer = &watch;
    }
    ~Surroundings()
    {
        warnings = warnings_;
        observer = observer_;
    }
    Surroundings(const Surroundings&) = delete;
    Surroundings& operator=(const Surroundings&) = delete;

private:
    OutputStream* warnings_;
    Observer* observer_;
};
}  // namespace

Reading watched_run(const std::filesystem::path& deck, const ControlFile& settings)
{
    reset_run();
    const std::string name = deck.string();
    if (!deck_source.open(name.c_str())) throw deck::Fault(name + ": it cannot be read");
    take_settings(settings);
    set_file_names("deck.k");  // stands in outputs alone
    Watch watch;
    OutputStream warned;
    std::string copy;
    outfile.open(Watch::take_log, &watch);
    keyword_of.open(copy);
    warned.open(static_cast<OutputStream::Sink>(nullptr), nullptr);
    {
        const Surroundings watched(watch, warned);
        begin_conversion();
        convert_deck();
    }
    outfile.close();
    Reading reading = watch.take_reading();
    const bool read_whole = faulty_files.empty();
    keyword_of.close();
    infile.close();
    copy_source.close();
    deck_source.close();
    if (!read_whole) throw deck::Fault(name + ": it cannot be read");
    return reading;
}
}  // namespace check
