// The keywords behind the SPH section: *CONTROL_SPH, and the parts that are made of particles.
#include <algorithm>
#include <string>
#include <vector>

#include "controls/controls.h"
#include "reader/card.h"
#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
// The SECIDs of all *SECTION_SPH keywords, sorted. Leaves infile where it stands.
std::vector<std::string> find_particle_sections()
{
    const Position here = infile.position();
    infile.rewind();
    std::vector<std::string> secids;
    for (keyword(); !keyword_is("*END"); keyword()) {
        if (!keyword_is("*SECTION_SPH")) continue;
        if (keyword_is("*SECTION_SPH_TITLE")) skip_title();
        Card card;
        Word secid;
        card.first(secid);
        secids.emplace_back(secid.text);
    }
    infile.seek(here);
    std::sort(secids.begin(), secids.end());
    return secids;
}

// True when a *SECTION_SPH has this SECID, character for character.
bool is_particle_section(const char* secid)
{
    if (!particle_sections) particle_sections = find_particle_sections();
    return std::binary_search(particle_sections->begin(), particle_sections->end(), secid);
}

constexpr PassRow sph_rows[] = {
    {"*CONTROL_SPH", handler<csph>, "values of the deactivation lines", "`BOXID`, `DT`, `NMNEIGH`, `START`, `MAXV`"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(sph_rows));

// clang-format off
constexpr PassRow sph_part_rows[] = {
    {"*PART_ADAPTIVE", passed_over},
    {"*PART_COMPOSITE", passed_over},
    {"*PART_MODES", passed_over},
    {"*PART_SENSOR", passed_over},
    {"*PART_MOVE", passed_over},
    {"*PART", handler<partsph>, "Smoothing length, for parts whose section is a *SECTION_SPH"},  // every other option
    {"*END", end_of_pass},
};
// clang-format on
static_assert(every_row_reachable(sph_part_rows));

}  // namespace

const Pass sph_keywords{"SPH", sph_rows};
const Pass sph_part_keywords{"SPH part", sph_part_rows};

// *CONTROL_SPH
void csph()
{
    Card card;
    int ncbs, idim, form;
    card.first(ncbs, run_settings.sph_boxid, run_settings.sph_dt, idim, run_settings.sph_memory, form,
               run_settings.sph_start, run_settings.sph_maxv);

    log_recognized();
    text(outfile, "ignore optional card 2\n");
    log_unused({{"ncbs", ncbs}, {"idim", idim}, {"form", form}});
}

// *PART: the smoothing length of a part whose section is a *SECTION_SPH; one part a block
void partsph()
{
    constexpr double factor = 1.5;  // of the smoothing length
    skip_title();
    Card card;
    int pid;
    Word secid;
    card.first(pid, secid);

    if (is_particle_section(secid.text))
        print(inpfile,
              " Smoothing length                     : %5i%5.1f%5i"
              "   !--- pid; factor; neighbors\n",
              pid, factor, run_settings.sph_memory);
}
