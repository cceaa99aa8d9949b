// Prepare of a deck with an include file, whatever they hold: it is refused with a reason, or written, and every change
// tells of a line that is there; the inputs stay as they are.
//
// The input is up to two files, a NUL character between them: the main deck, then a.k.
#include "prepare/prepare.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "deck/fault.h"
#include "fuzz.h"
#include "support/convert.h"

namespace
{
void prepare_deck(const char* name)
{
    const prepare::Preparation preparation(name);
    std::ostringstream stream;
    std::size_t told = 0;
    std::size_t last = 0;
    const prepare::Summary summary = preparation.write(stream, {.origins = false}, [&](const prepare::Change& change) {
        expect(!change.code.empty() && !change.message.empty(), "a change without words");
        ++told;
        last = std::max(last, change.line_in_output);
    });
    const std::string written = stream.str();
    const auto lines = static_cast<std::size_t>(std::count(written.begin(), written.end(), '\n'));
    expect(last <= lines + 1, "a change behind the end of what was written");
    expect(told == summary.changes, "changes that are counted otherwise than told");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view deck = input.substr(0, input.find('\0'));
    const std::string_view included = deck.size() < input.size() ? input.substr(deck.size() + 1) : std::string_view();
    const TemporaryFolder folder;
    write_file("model.k", deck);
    write_file("a.k", included);
    try {
        prepare_deck("model.k");
    } catch (const deck::Fault& fault) {
        expect(!deck::to_string(fault.problem()).empty(), "a fault without words");
    }
    expect(contents("model.k") == deck && contents("a.k") == included, "an input was changed");
    return 0;
}
