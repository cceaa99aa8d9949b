// Check of a deck, whatever it holds: every finding stands in the deck, and all formats can be written.
//
// The first thirteen bytes are the flags in the order of the control file, as digits; the rest is the deck.
#include "check/check.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "check/formats.h"
#include "deck/fault.h"
#include "fuzz.h"
#include "reader/control_flags.h"
#include "support/convert.h"

namespace
{
constexpr char deck_name[] = "model.k";

void check_places(const check::Result& result, std::string_view deck)
{
    const auto lines = static_cast<std::size_t>(std::count(deck.begin(), deck.end(), '\n')) + 1;
    for (const check::Finding& found : result.findings) {
        expect(check::find_code(found.code) != nullptr, "an unknown code");
        expect(found.place.file != deck_name || found.place.line <= lines, "a finding behind the deck's end");
    }
}

void write_all(const check::Result& result)
{
    std::ostringstream stream;
    check::write_text(stream, result, {});
    check::write_json(stream, result);
    check::write_sarif(stream, result);
    expect(stream.good(), "findings that cannot be written");
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    if (input.size() < control_flags.size()) return 0;
    const std::string_view deck = input.substr(control_flags.size());
    const TemporaryFolder folder;
    write_file(deck_name, deck);
    check::Options options;
    for (std::size_t i = 0; i < control_flags.size(); ++i)
        options.settings.emplace_back(control_flags[i].name, input[i] & 3);
    const check::Result folded = check::check_deck(deck_name, options);
    options.all = true;
    const check::Result all = check::check_deck(deck_name, options);
    check_places(all, deck);
    write_all(all);
    const check::Totals one = check::totals(folded), other = check::totals(all);
    expect(one.errors == other.errors && one.warnings == other.warnings && one.notes == other.notes,
           "folding that loses findings");
    expect(contents(deck_name) == deck, "the deck was changed");
    return 0;
}
