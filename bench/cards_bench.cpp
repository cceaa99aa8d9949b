// Whole blocks of cards, from text in memory to rows in the output's buffer.
// What is written goes nowhere, so that the disk has no part in it.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <benchmark/benchmark.h>

#include "bulk/bulk.h"
#include "reader/keyword.h"
#include "reader/pass.h"
#include "reader/run.h"

namespace
{
constexpr int cards = 10'000;

constexpr std::string_view node_card = " 1234567     123.4567890   -4.56789012e-02             0.0       0       0\n";
constexpr std::string_view element_card =
    " 1234567       1   10001   10002   10103   10102   20001   20002   20103   20102\n";
constexpr std::string_view shell_card =
    " 1234567       2   10001   10002   10103   10102       0       0       0       0\n";
constexpr std::string_view thickness_card =
    "       1.5000000       1.5000000       1.2500000       1.2500000             0.0\n";
constexpr std::string_view particle_card = " 1234567       3  4.71238898e-06\n";
constexpr std::string_view set_card =
    "      1001      1002      1003      1004      1005      1006      1007      1008\n";
constexpr std::string_view segment_card =
    "     10001     10002     10103     10102       0.0       0.0       0.0       0.0\n";

// The rows' file. A closed stream would not do: print drops its values before they are formatted.
constexpr char nowhere[] = "/dev/null";

// A block whose handler is entered behind its keyword line.
std::string block_of(std::string_view head, std::string_view card, std::string_view second_card = {})
{
    std::string deck(head);
    for (int i = 0; i < cards; ++i) deck.append(card).append(second_card);
    return deck += "*END\n";
}

void convert(benchmark::State& state, void (*handler)(), const std::string& deck)
{
    if (!geomfile.open(nowhere) || !setfile.open(nowhere)) state.SkipWithError("there is no /dev/null");
    for (auto _ : state) {
        infile.open_text(deck, stream_window);
        handler();
    }
    infile.close();
    geomfile.close();
    setfile.close();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(deck.size()));
    state.SetItemsProcessed(state.iterations() * cards);
}

void node_set()
{
    setcard(SetType::node);
}

void nodes(benchmark::State& state)
{
    convert(state, node, block_of("", node_card));
}
void solids(benchmark::State& state)
{
    convert(state, esolid, block_of("", element_card));
}
void shells(benchmark::State& state)
{
    convert(state, eshell, block_of("", shell_card));
}
void thick_shells(benchmark::State& state)
{
    convert(state, eshellt, block_of("", shell_card, thickness_card));
}
void particles(benchmark::State& state)
{
    convert(state, esph, block_of("", particle_card));
}
void set_members(benchmark::State& state)
{
    convert(state, node_set, block_of("         1\n", set_card));
}
void segments(benchmark::State& state)
{
    convert(state, setsegment, block_of("         1\n", segment_card));
}

BENCHMARK(nodes);
BENCHMARK(solids);
BENCHMARK(shells);
BENCHMARK(thick_shells);
BENCHMARK(particles);
BENCHMARK(set_members);
BENCHMARK(segments);

// ---- finding things ------------------------------------------------------------------------------------------------

// A block that a pass does not own, with no index to jump by.
void skip_block(benchmark::State& state)
{
    const std::string deck = block_of("", element_card);
    for (auto _ : state) {
        infile.open_text(deck, stream_window);
        infile.to_keyword();
        benchmark::DoNotOptimize(infile.position());
    }
    infile.close();
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(deck.size()));
}
BENCHMARK(skip_block);

// A pass over small blocks that are all some other pass's: what a keyword costs each pass.
void pass_over_keywords(benchmark::State& state)
{
    std::string deck;
    KeywordIndex index;
    for (int i = 0; i < cards; ++i) {
        index.add(deck.size(), "*MAT_ELASTIC");
        deck += "*MAT_ELASTIC\n         2 7.850e-09  210000.0       0.3\n";
    }
    index.add(deck.size(), "*END");
    deck += "*END\n";
    infile.open_text(deck, stream_window);
    infile.use_index(&index);
    for (auto _ : state) run_pass(sph_element_keywords);
    infile.close();
    state.SetItemsProcessed(state.iterations() * cards);
}
BENCHMARK(pass_over_keywords);
}  // namespace
