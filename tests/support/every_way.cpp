#include "support/every_way.h"

#include <cstddef>
#include <string>

#include "reader/run.h"

namespace
{
struct Way {
    std::size_t window;
    bool fast;
    bool indexed;
};

constexpr Way ways[] = {
    {256 * 1024, false, false},  // the one that defines what is written
    {256 * 1024, true, true},    // the program's own
    {256 * 1024, true, false},  {97, true, true},  {97, false, true},
    {64, true, true},           {64, true, false}, {64, false, false},
};

KeywordIndex keyword_lines(std::string_view deck)
{
    KeywordIndex index;
    for (std::size_t i = 0; i < deck.size(); ++i)
        if (deck[i] == '*' && (i == 0 || deck[i - 1] == '\n')) index.push_back(i);
    return index;
}

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
}  // namespace

Written convert_every_way(void (*section)(), std::string_view deck)
{
    const std::size_t window_before = stream_window;
    const bool fast_before = fast_cards;
    const KeywordIndex index = keyword_lines(deck);
    section_at_hand = section;
    Written first;
    Counts first_counts;
    for (const Way& way : ways) {
        SCOPED_TRACE(testing::Message() << "window " << way.window << ", fast " << way.fast << ", index "
                                        << way.indexed);
        stream_window = way.window;
        fast_cards = way.fast;
        index_at_hand = way.indexed ? &index : nullptr;
        counts = {};
        Written written = convert(section_with_index, deck);
        if (&way == ways) {
            first = std::move(written);
            first_counts = counts;
            continue;
        }
        expect_same("main deck", written.deck, first.deck);
        expect_same("debug log", written.log, first.log);
        expect_same("terminal", written.terminal, first.terminal);
        expect_same("set file", written.sets, first.sets);
        expect_same("geometry file", written.geometry, first.geometry);
        EXPECT_TRUE(equal(counts, first_counts));
    }
    stream_window = window_before;
    fast_cards = fast_before;
    return first;
}
