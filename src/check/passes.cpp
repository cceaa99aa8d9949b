#include "check/passes.h"

#include <algorithm>
#include <cstring>

#include "bulk/bulk.h"
#include "controls/controls.h"
#include "deck/keyword_line.h"
#include "driver/driver.h"
#include "loading/loading.h"
#include "materials/materials.h"
#include "reader/control_flags.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace check
{
namespace
{
int& flag(std::string_view name)
{
    return *std::find_if(control_flags.begin(), control_flags.end(), [=](const ControlFlag& row) {
                return row.name == name;
            })->variable;
}

bool runs(const GatedPass& gated)
{
    return std::all_of(gated.flags.begin(), gated.flags.end(), [](std::string_view name) { return flag(name) == 1; });
}

// The row that the keyword line in cbuffer matches with the flags as they are; null when there is none.
const PassRow* row_of(const Pass& pass)
{
    for (const PassRow& row : pass.rows)
        if (keyword_is(row.prefix) && (row.only_if.holds == nullptr || row.only_if.holds())) return &row;
    return nullptr;
}

bool converts(const PassRow* row)
{
    return row != nullptr && row->action.treatment == Treatment::converted;
}

void load(std::string_view line)
{
    const std::string kept = deck::to_upper(line.substr(0, longest_prefix));
    std::memcpy(cbuffer, kept.c_str(), kept.size() + 1);
}

void add_setting(std::string& settings, std::string_view name)
{
    if (settings.find(name) != std::string::npos) return;
    settings.append(settings.empty() ? "" : ", ").append(name).append("=1");
}

// What of the pass's gate is shut.
void add_shut(std::string& settings, const GatedPass& gated)
{
    for (const std::string_view name : gated.flags)
        if (flag(name) != 1) add_setting(settings, name);
}

// True when contacts would be converted if only contflag were 1.
bool converts_with_contacts(const Pass& pass)
{
    const int kept = contflag;
    contflag = 1;
    const bool found = converts(row_of(pass));
    contflag = kept;
    return found;
}

Expectation expect_of(std::string_view line)
{
    load(line);
    Expectation found;
    bool skipped_by_one = false, last_look = false;
    const std::span<const GatedPass> all = passes();
    for (std::size_t i = 0; i < all.size(); ++i) {
        const PassRow* const row = row_of(*all[i].pass);
        const bool gate_open = runs(all[i]);
        if (converts(row) && gate_open) {
            found.converted_by |= PassSet{1} << i;
        } else if (converts(row)) {
            add_shut(found.settings, all[i]);
        } else if (converts_with_contacts(*all[i].pass)) {
            add_setting(found.settings, "contflag");
            add_shut(found.settings, all[i]);
        } else if (row != nullptr && row->action.treatment == Treatment::skipped) {
            (row->prefix.empty() ? last_look : skipped_by_one) = true;
        } else if (row != nullptr && row->action.treatment == Treatment::end_of_pass && row->prefix != "*END") {
            skipped_by_one = true;
        }
    }
    if (found.converted_by != 0)
        found.outcome = Outcome::converted;
    else if (!found.settings.empty())
        found.outcome = Outcome::passed_over;
    else if (skipped_by_one)
        found.outcome = Outcome::skipped;
    else if (last_look)
        found.outcome = Outcome::not_known;
    return found;
}
}  // namespace

std::span<const GatedPass> passes()
{
    static const std::vector<GatedPass> table = {
        {&control_keywords, {"cardflag"}},
        {&history_keywords, {"cardflag"}},
        {&contact_keywords, {"cardflag"}},
        {&boundary_keywords, {"cardflag", "icflag"}},
        {&curve_keywords, {"cardflag", "lcflag"}},
        {&part_keywords, {"cardflag"}},
        {&section_keywords, {"cardflag"}},
        {&eos_keywords, {"cardflag"}},
        {&failure_keywords, {"cardflag"}},
        {&hourglass_keywords, {"cardflag"}},
        {&material_keywords, {"cardflag"}},
        {&sph_keywords, {"cardflag", "sphflag"}},
        {&sph_part_keywords, {"cardflag", "sphflag"}},
        {&set_keywords, {"setflag"}},
        {&accelerometer_keywords, {"accelflag"}},
        {&node_keywords, {"geomflag"}},
        {&shell_keywords, {"geomflag"}},
        {&solid_keywords, {"geomflag"}},
        {&sph_element_keywords, {"geomflag"}},
        {&unhandled_keywords, {"cardflag"}},
    };
    return table;
}

std::size_t index_of(const Pass& pass)
{
    const std::span<const GatedPass> all = passes();
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const GatedPass& gated) { return gated.pass == &pass; });
    return static_cast<std::size_t>(found - all.begin());
}

const Expectation& Expectations::of(std::string_view line)
{
    const std::string_view kept = line.substr(0, longest_prefix);
    if (const auto known = known_.find(kept); known != known_.end()) return known->second;
    Expectation found = expect_of(kept);
    if (found.outcome == Outcome::skipped) {
        const deck::KeywordLine keyword = deck::read_keyword_line(kept);
        found.wants_title = !deck::ends_in_option(keyword.name, "TITLE") &&
                            expect_of(keyword.name + "_TITLE").outcome == Outcome::converted;
    }
    return known_.emplace(kept, std::move(found)).first->second;
}
}  // namespace check
