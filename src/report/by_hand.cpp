#include "report/by_hand.h"

#include <algorithm>
#include <optional>

#include "deck/line_file.h"

namespace report
{
namespace
{
constexpr std::size_t most_shown = 12;  // lines or blocks of one thing

// A "." at the end of `beginning` means that the keyword ends there.
bool begins(std::string_view keyword, std::string_view beginning)
{
    if (!beginning.ends_with('.')) return keyword.starts_with(beginning);
    return keyword == beginning.substr(0, beginning.size() - 1);
}

// What the list depends on.
class Conversion
{
public:
    explicit Conversion(const Ledger& ledger) : ledger_(ledger) {}

    [[nodiscard]] int setting(std::string_view name) const
    {
        for (const auto& [known, value] : ledger_.settings)
            if (known == name) return value;
        return 0;
    }
    [[nodiscard]] bool has(std::string_view beginning) const
    {
        return std::any_of(ledger_.blocks.begin(), ledger_.blocks.end(), [beginning](const Block& block) {
            return block.outcome != Outcome::after_the_end && begins(block.keyword, beginning);
        });
    }
    [[nodiscard]] bool converted(std::string_view beginning) const
    {
        return std::any_of(ledger_.blocks.begin(), ledger_.blocks.end(), [beginning](const Block& block) {
            return block.outcome == Outcome::converted && begins(block.keyword, beginning);
        });
    }

private:
    const Ledger& ledger_;
};

// Lines of the main deck: one that begins so, and as many behind it.
struct Label {
    std::string_view beginning;
    std::size_t more = 0;
};

// A row for each thing: told when `applies` says so, with the main deck's lines that `labels` name, and the deck's
// blocks whose keywords begin with one of `keywords`.
struct Row {
    std::string_view topic;
    std::string_view text;
    bool (*applies)(const Conversion&);
    std::vector<Label> labels;
    std::vector<std::string_view> keywords;
};

bool always(const Conversion&)
{
    return true;
}

const std::vector<Row>& rows()
{
    static const std::vector<Row> table = {
        {"Timing",
         "The termination time is a fixed value: put in your own.",
         always,
         {{" Termination time"}},
         {"*CONTROL_TERMINATION"}},
        {"Timing",
         "The time step scale factor and the plot state frequency refer to load curve 1. The main deck has one, called "
         "Plot Curve, with six points at zero: fill it in, or change these lines. If your deck has a curve 1 of its own, "
         "renumber one of the two.",
         [](const Conversion& run) { return run.setting("lcflag") == 1; },
         {{" Time step scale factor"}, {" Plot state frequency"}, {" Load curve definition:                1 "}},
         {"*CONTROL_TIMESTEP", "*DATABASE_BINARY_D3PLOT"}},
        {"Timing",
         "The time step scale factor and the plot state frequency refer to load curve 1, and no load curves were written "
         "(lcflag is not 1): change these lines, or convert again with lcflag 1.",
         [](const Conversion& run) { return run.setting("lcflag") != 1; },
         {{" Time step scale factor"}, {" Plot state frequency"}},
         {"*CONTROL_TIMESTEP", "*DATABASE_BINARY_D3PLOT"}},
        {"Timing",
         "The time history frequency is that of *DATABASE_NODOUT or *DATABASE_ELOUT, or 1.000e-06 when the deck has "
         "neither.",
         always,
         {{" Time history frequency"}},
         {"*DATABASE_NODOUT", "*DATABASE_ELOUT"}},
        {"Timing",
         "With *DATABASE_BINARY_D3DUMP the restart frequency is the time history's, and with *DATABASE_BINARY_RUNRSF the "
         "running restart frequency is: far too often, or 0. Without them they are fixed values.",
         always,
         {{" Restart frequency"}, {" Running restart frequency"}},
         {"*DATABASE_BINARY_D3DUMP", "*DATABASE_BINARY_RUNRSF"}},
        {"Title",
         "The title is cut after 46 characters, and the solver wants no \"-\" in it.",
         always,
         {{" Title  "}},
         {"*TITLE"}},
        {"Contact",
         "Every contact became part of one global contact; which sets were in contact with which was not carried over, nor "
         "was friction. To have pairs, set the scheme to 2, put your own sets into the pair lines, and replace the \"!\" "
         "before them with a blank. The options are those of the first contact.",
         [](const Conversion& run) { return run.converted("*CONTACT"); },
         {{" Contact scheme"}, {"!Contact set pair"}},
         {"*CONTACT"}},
        {"Contact",
         "The deck has no contact that was converted. The main deck has scheme 3 with standard values: turn it off, or "
         "choose.",
         [](const Conversion& run) { return !run.converted("*CONTACT"); },
         {{" Contact scheme"}},
         {"*CONTACT"}},
        {"Boundary conditions and loads",
         "Prescribed motions are written as comments, and end at 0.0002 whatever the deck says. Check lcid, sf and t_end, "
         "then replace the \"!\" before the value line and its title line with a blank.",
         [](const Conversion& run) { return run.has("*BOUNDARY_PRESCRIBED_MOTION"); },
         {{"!Prescribed motion", 2}},
         {"*BOUNDARY_PRESCRIBED_MOTION"}},
        {"Boundary conditions and loads",
         "Initial velocities have lost their rotations.",
         [](const Conversion& run) { return run.converted("*INITIAL_VELOCITY."); },
         {{" Initial velocity definition", 4}},
         {"*INITIAL_VELOCITY."}},
        {"Boundary conditions and loads",
         "The conversion factors of blast loads were passed on as they are: check them against the solver's units.",
         [](const Conversion& run) { return run.converted("*LOAD_BLAST"); },
         {{" Blast Load", 6}},
         {"*LOAD_BLAST"}},
        {"Parts and materials",
         "A part refers to its section as FORMID, its material as MID and as FAILID. Where a section, a material or an "
         "equation of state was skipped, the part refers to something that is not in the main deck: define it there.",
         [](const Conversion& run) { return run.has("*PART"); },
         {{" Part definition:"}},
         {"*PART"}},
        {"Parts and materials",
         "Failure definitions are standard values, except for what the material supplies.",
         [](const Conversion& run) { return run.has("*MAT"); },
         {{" Failure definition:"}},
         {}},
        {"Parts and materials",
         "Strain rate parameters were dropped.",
         [](const Conversion& run) { return run.converted("*MAT_PLASTIC_KINEMATIC"); },
         {},
         {"*MAT_PLASTIC_KINEMATIC"}},
        {"Parts and materials",
         "Global hourglass and bulk viscosity settings reach the main deck only with defflag 1 and stndflag 0.",
         [](const Conversion& run) {
             return (run.has("*CONTROL_HOURGLASS") || run.has("*CONTROL_BULK_VISCOSITY")) &&
                    !(run.setting("defflag") == 1 && run.setting("stndflag") == 0);
         },
         {{" Hourglass stabilization"}, {" Bulk viscosity type"}},
         {"*CONTROL_HOURGLASS", "*CONTROL_BULK_VISCOSITY"}},
        {"Particles",
         "The box outside of which particles are deactivated is -100 to 100 in each direction, whatever your units.",
         [](const Conversion& run) { return run.setting("sphflag") == 1; },
         {{" SPH deactivation:", 2}, {" Box Definition:", 2}},
         {"*CONTROL_SPH"}},
        {"Files",
         "The main deck includes a material library, and with stndflag a standards file. Change the path if yours is "
         "elsewhere.",
         always,
         {{"#Include: \"/"}},
         {}},
    };
    return table;
}

void take_blocks(const Ledger& ledger, const Row& row, ByHand& thing)
{
    for (std::size_t i = 0; i < ledger.blocks.size(); ++i) {
        const Block& block = ledger.blocks[i];
        const bool is_meant = std::any_of(row.keywords.begin(), row.keywords.end(),
                                          [&](std::string_view beginning) { return begins(block.keyword, beginning); });
        if (block.outcome == Outcome::after_the_end || !is_meant) continue;
        if (thing.all_blocks++ < most_shown) thing.blocks.push_back(i);
        for (const std::size_t finding : block.findings)
            if (ledger.findings[finding].code == "MD303") thing.findings.push_back(finding);
    }
}

// A row while the main deck goes by.
struct Open {
    const Row* row = nullptr;
    std::size_t more = 0;  // lines that still belong to the last one that began like a label

    void take(const deck::Line& line, ByHand& thing)
    {
        for (const Label& label : row->labels)
            if (line.text.starts_with(label.beginning)) {
                ++thing.written_places;
                more = label.more + 1;
                if (thing.written_places > most_shown) {
                    ++thing.written_left_out;
                    more = 0;
                }
            }
        if (more == 0) return;
        --more;
        constexpr std::size_t longest = 120;
        thing.written.emplace_back(line.number, line.text.substr(0, longest));
    }
};

std::optional<std::string> name_of(const Ledger& ledger, std::string_view role)
{
    for (const File& file : ledger.files)
        if (file.role == role) return file.name;
    return std::nullopt;
}
}  // namespace

std::string main_deck(const Ledger& ledger)
{
    return name_of(ledger, "main deck").value_or("");
}

std::string converted_deck(const Ledger& ledger)
{
    return name_of(ledger, "prepared deck").value_or(ledger.deck);
}

std::vector<ByHand> by_hand(const Ledger& ledger, const std::filesystem::path& folder)
{
    const std::string name = main_deck(ledger);
    if (name.empty()) return {};
    const Conversion run(ledger);
    std::vector<ByHand> list;
    std::vector<Open> open;
    for (const Row& row : rows()) {
        if (!row.applies(run)) continue;
        open.push_back({&row});
        list.push_back({row.topic, row.text, {}, {}, 0, {}, 0, 0});
        take_blocks(ledger, row, list.back());
    }
    deck::LineFile lines(folder / name);
    for (deck::Line line; lines.next(line);)
        for (std::size_t i = 0; i < open.size(); ++i) open[i].take(line, list[i]);
    return list;
}
}  // namespace report
