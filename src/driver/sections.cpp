#include "driver/sections.h"

#include <optional>

#include "bulk/bulk.h"
#include "controls/controls.h"
#include "driver/driver.h"
#include "driver/faults.h"
#include "driver/progress.h"
#include "loading/loading.h"
#include "materials/materials.h"
#include "reader/deck_lines.h"
#include "reader/observer.h"
#include "reader/run.h"

namespace
{
enum class Reads { nothing, copy, deck };

struct Section {
    bool (*wanted)();
    Reads reads;
    void (*write)();
    const char* progress = nullptr;  // what a long run says that it is writing
};

bool card()
{
    return cardflag == 1;
}

void after_amr()
{
    text(inpfile, "\n\n\n");
}

void unhandled_report()
{
    run_pass(unhandled_keywords);
}

constexpr Section sections[] = {
    {card, Reads::copy, control_pass},  // writes nothing; fills run_settings
    {card, Reads::nothing, header},
    {card, Reads::nothing, problem_title},
    {card, Reads::nothing, timing_control},
    {[] { return card() && standalone(); }, Reads::nothing, status_file},
    {card, Reads::copy, history},
    {card, Reads::nothing, global_control},
    {card, Reads::copy, contact_section},
    {[] { return card() && icflag == 1; }, Reads::copy, boundary_section},
    {[] { return card() && comprehensive(); }, Reads::nothing, discrete_elements},
    {[] { return card() && lcflag == 1; }, Reads::copy, load_curves},
    {[] { return card() && tranflag == 1; }, Reads::nothing, transformations},
    {card, Reads::copy, part_descriptions},
    {[] { return card() && amrflag == 1; }, Reads::nothing, amr_section},
    {card, Reads::nothing, after_amr},
    {[] { return card() && sphflag == 1; }, Reads::copy, sph_control},
    {[] { return setflag == 1; }, Reads::deck, set_section, "set file"},
    {[] { return accelflag == 1; }, Reads::copy, accelerometers},
    {[] { return card() && plotflag == 1; }, Reads::nothing, plot_options},
    {card, Reads::nothing, restart_control},
    {card, Reads::nothing, partition},
    {[] { return geomflag == 1; }, Reads::deck, geometry_section, "geometry file"},
    {card, Reads::copy, unhandled_report},
    {card, Reads::nothing, included_files},
};

const char* name_of(Reads source)
{
    return source == Reads::deck ? file_names.deck : keyword_copy_name;
}

void close_infile(Reads source)
{
    if (const std::string failure = infile.failure(); !failure.empty()) {
        report_fault(name_of(source), failure);
        if (source == Reads::copy) cardflag = accelflag = 0;  // what was made from it is not whole
    }
    infile.close();
}

void open_infile(Reads source)
{
    const bool deck = source == Reads::deck;
    infile.open(deck ? deck_source : copy_source, stream_window);
    infile.use_index(deck ? &deck_index : &copy_index);
    if (observer != nullptr) observer->reads_deck(deck);
}
}  // namespace

void write_sections()
{
    Reads source = Reads::nothing;
    for (const Section& section : sections) {
        if (!section.wanted()) continue;
        if (section.reads != Reads::nothing && section.reads != source) {
            if (source != Reads::nothing) close_infile(source);
            source = section.reads;
            open_infile(source);
        }
        std::optional<Progress> progress;
        if (section.progress != nullptr) progress.emplace(section.progress, infile);
        section.write();
    }
    if (source != Reads::nothing) close_infile(source);
}

void included_files()
{
    banner(inpfile, "Included Files");
    text(inpfile, "\n");
    print(inpfile, "#Include: \"%s\"\n", file_names.geom);
    print(inpfile, "#Include: \"%s\"\n", file_names.sets);
    if (accelflag == 1) text(inpfile, "#Include: \"accel_def.kinc\"\n");
    text(inpfile, "#Include: \"/opt/Software/Kestrune/getting_started/include/kestrune.mat_latest\"\n");
    if (stndflag == 1)
        text(inpfile, "#Include: \"/opt/Software/Kestrune/getting_started/include/ort_standards.kinc_latest\"\n");
    if (stndflag == 2) text(inpfile, "#Include: \"/opt/Software/Kestrune/includes/zel_general/zel_standards.kinc\"\n");
    text(inpfile, "\n\n");
}
