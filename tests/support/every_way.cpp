#include "support/every_way.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "bulk/bulk.h"
#include "reader/run.h"
#include "support/keyword_lines.h"
#include "support/plain_bulk.h"

namespace
{
// The sections with their second derivations.
constexpr std::array<std::array<void (*)(), 2>, 3> derivations = {{
    {set_section, plain_set_section},
    {geometry_section, plain_geometry_section},
    {bulk_sections,
     [] {
         plain_set_section();
         plain_geometry_section();
     }},
}};

struct Way {
    std::size_t window;
    bool indexed;
};

constexpr Way ways[] = {{256 * 1024, true}, {256 * 1024, false}, {161, true}, {128, true}, {128, false}};

bool equal(const Counts& a, const Counts& b)
{
    return a.node_sets == b.node_sets && a.nodes == b.nodes && a.shells == b.shells && a.solids == b.solids &&
           a.particles == b.particles;
}

// Only whether they are equal: the files are long, and the line that differs tells more.
void expect_same(std::string_view name, std::string_view text, std::string_view expected)
{
    if (text == expected) return;
    std::size_t at = 0;
    while (at < text.size() && at < expected.size() && text[at] == expected[at]) ++at;
    const std::size_t line = expected.rfind('\n', at) == std::string_view::npos ? 0 : expected.rfind('\n', at) + 1;
    ADD_FAILURE() << name << " differs at character " << at << ":\n"
                  << text.substr(line, 200) << "\ninstead of\n"
                  << expected.substr(line, 200);
}

void (*section_at_hand)() = nullptr;
const KeywordIndex* index_at_hand = nullptr;

void section_with_index()
{
    infile.use_index(index_at_hand);
    section_at_hand();
}

Written convert_in_way(void (*section)(), std::string_view deck, std::size_t window, const KeywordIndex* index)
{
    stream_window = window;
    section_at_hand = section;
    index_at_hand = index;
    counts = {};
    return convert(section_with_index, deck);
}

void (*plain_derivation(void (*section)()))()
{
    for (const auto& [derived, plain] : derivations)
        if (derived == section) return plain;
    throw std::logic_error("a section without a second derivation");
}
}  // namespace

void bulk_sections()
{
    set_section();
    geometry_section();
}

Written convert_every_way(void (*section)(), std::string_view deck)
{
    const std::size_t window_before = stream_window;
    const KeywordIndex index = index_of(deck);
    const Written expected = convert_in_way(plain_derivation(section), deck, 256 * 1024, nullptr);
    const Counts expected_counts = counts;
    for (const Way& way : ways) {
        SCOPED_TRACE(testing::Message() << "window " << way.window << ", index " << way.indexed);
        const Written written = convert_in_way(section, deck, way.window, way.indexed ? &index : nullptr);
        expect_same("main deck", written.deck, expected.deck);
        expect_same("debug log", written.log, expected.log);
        expect_same("terminal", written.terminal, expected.terminal);
        expect_same("set file", written.sets, expected.sets);
        expect_same("geometry file", written.geometry, expected.geometry);
        EXPECT_TRUE(equal(counts, expected_counts));
    }
    stream_window = window_before;
    return expected;
}
