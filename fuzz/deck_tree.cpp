// A deck with its include files, whatever they hold: all of the main deck's lines are delivered, each once, and reading
// ends.
//
// The input is up to four files, a NUL character between them: the main deck, then a.k, b.k and c.k.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "deck/deck_reader.h"
#include "fuzz.h"
#include "support/convert.h"

namespace
{
constexpr const char* names[] = {"main.k", "a.k", "b.k", "c.k"};
constexpr deck::ReaderLimits limits{.depth = 40, .inclusions = 200};

std::string as_it_stood(std::string_view text, bool carriage_return, bool newline)
{
    std::string line(text);
    if (carriage_return) line += '\r';
    if (newline) line += '\n';
    return line;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const TemporaryFolder folder;
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    std::string main_deck;
    for (const char* const name : names) {
        const std::string_view text = rest.substr(0, rest.find('\0'));
        rest.remove_prefix(text.size() == rest.size() ? text.size() : text.size() + 1);
        write_file(name, text);
        if (name == names[0]) main_deck = text;
    }
    std::string delivered;
    deck::DeckReader reader(
        names[0],
        [](const deck::Problem& problem) {
            expect(!problem.code.empty() && !problem.message.empty(), "a problem without words");
        },
        limits);
    while (reader.next_block()) {
        const deck::Block& block = reader.block();
        if (block.file == 0 && !block.keyword.text.empty())
            delivered += as_it_stood(block.keyword.text, block.carriage_return, block.newline);
        for (deck::Line line; reader.next_line(line);)
            if (line.file == 0) delivered += as_it_stood(line.text, line.carriage_return, line.newline);
    }
    expect(delivered == main_deck, "lines of the main deck that are lost or changed");
    expect(reader.files().size() <= limits.inclusions + 1, "more include files than are allowed");
    return 0;
}
