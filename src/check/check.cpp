#include "check/check.h"

#include <algorithm>

#include "check/collector.h"
#include "check/deck_check.h"
#include "check/watched_run.h"
#include "deck/fault.h"
#include "reader/control_flags.h"
#include "reader/run.h"

namespace fs = std::filesystem;

namespace check
{
namespace
{
// Ends the run, however the check ends.
class Run
{
public:
    Run() = default;
    ~Run() { reset_run(); }
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
};

ControlFile with_overrides(ControlFile settings, const Options& options)
{
    for (const auto& [name, value] : options.settings)
        if (!set_flag(settings, name, value)) throw deck::Fault("there is no setting " + name);
    return settings;
}
}  // namespace

ControlFile settings_for(const fs::path& deck)
{
    const fs::path beside = deck.parent_path() / control_file_name;
    const ControlFileRead read = readinputs(beside.string().c_str());
    const bool of_this =
        !read.missing && read.failure.empty() && fs::path(read.control.sourcefile).filename() == deck.filename();
    return of_this ? read.control : initial_settings();
}

Result check_deck(const fs::path& deck, const Options& options)
{
    const Run run;
    const ControlFile settings = with_overrides(settings_for(deck), options);
    Result result;
    result.deck = deck.generic_string();
    for (std::size_t i = 0; i < control_flags.size(); ++i)
        result.settings.emplace_back(control_flags[i].name, settings.values[i]);
    const Reading reading = watched_run(deck, settings);
    Collector findings(result.findings, options.all);
    find_all(deck, reading, findings, result.not_checked);
    sort(result);
    return result;
}
}  // namespace check
