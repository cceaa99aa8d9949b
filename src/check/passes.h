// The converter's passes, and what they make of a keyword line.
#pragma once

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "reader/pass.h"

namespace check
{

// A bit for each pass, in the order of passes().
using PassSet = std::uint32_t;

// A pass and the flags that must be 1 for it to run.
struct GatedPass {
    const Pass* pass;
    std::vector<std::string_view> flags;
};

std::span<const GatedPass> passes();

// The place of a pass in passes(); the table's size when it is not there.
std::size_t index_of(const Pass& pass);

enum class Outcome {
    converted,    // some pass has a handler for it
    passed_over,  // one would have with other settings
    skipped,      // a pass says so
    not_known,    // only the last look at the deck meets it
    none          // no pass cares
};

// What the tables say of a keyword with the flags of the run.
struct Expectation {
    Outcome outcome = Outcome::none;
    PassSet converted_by = 0;
    std::string settings;      // what would have it converted: "lcflag=1"
    bool wants_title = false;  // it is skipped, and with _TITLE it would be converted
};

// Looks keywords up, each once. The flags must stay as they are while it lives.
class Expectations
{
public:
    // `line` is a keyword line as it stands.
    const Expectation& of(std::string_view line);

private:
    std::map<std::string, Expectation, std::less<>> known_;
};

}  // namespace check
