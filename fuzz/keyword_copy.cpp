// The keyword copy and the two indexes that are made with it, against a plain second copying of the same text, seen
// through windows of several sizes.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz.h"
#include "plain_text.h"
#include "reader/keyword_copy.h"
#include "reader/run.h"
#include "support/keyword_lines.h"

namespace
{
constexpr std::string_view filtered[] = {
    "*NODE",          "*ELEMENT_SHELL_THICKNESS",
    "*ELEMENT_SHELL", "*ELEMENT_SPH",
    "*ELEMENT_SOLID", "*SET_NODE",
    "*SET_PART",      "*SET_SEGMENT",
    "*SET_SHELL",     "*SET_SOLID",
};

std::string copy_plainly(std::string_view deck)
{
    std::string copy;
    std::size_t at = 0;
    while (at < deck.size()) {
        std::size_t length = 0;
        while (length < 49 && at + length < deck.size())
            if (deck[at + length++] == '\n') break;
        const std::string_view piece = deck.substr(at, length);
        at += length;
        bool last = false;
        for (const std::string_view prefix : filtered) {
            last = piece.starts_with(prefix);
            while (last && at < deck.size() && deck[at] != '*') {
                const std::size_t newline = deck.find('\n', at);
                at = newline == std::string_view::npos ? deck.size() : newline + 1;
            }
        }
        if (!last) copy += piece;
    }
    return copy;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view deck(reinterpret_cast<const char*>(data), size);
    const std::string expected = copy_plainly(deck);
    for (const std::size_t window : {128U, 129U, 213U, 4096U}) {
        static std::string copy;
        infile_geom.open_text(deck, window);
        keyword_of.open(copy);
        keyword_writer();
        infile_geom.close();
        keyword_of.close();
        expect(copy == expected, "another keyword copy");
        expect(positions(deck_index) == PlainText::keyword_lines(deck), "another index of the deck");
        expect(positions(copy_index) == PlainText::keyword_lines(expected), "another index of the copy");
    }
    return 0;
}
