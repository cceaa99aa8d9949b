#include "report/ledger.h"

#include <algorithm>

#include "deck/keyword_line.h"

namespace report
{

std::string_view words(Outcome outcome)
{
    constexpr std::string_view words[] = {"converted", "skipped", "passed over", "not known", "after the end"};
    return words[static_cast<std::size_t>(outcome)];
}

bool is_lost(const Ledger& ledger, const Block& block)
{
    if (block.outcome == Outcome::converted || deck::is_of(block.keyword, "*COMMENT")) return false;
    const auto is_note = [&](std::size_t finding) { return ledger.findings[finding].severity == deck::Severity::note; };
    if (block.outcome == Outcome::after_the_end && block.findings.empty()) return false;  // its author has cut it off
    return block.findings.empty() || !std::all_of(block.findings.begin(), block.findings.end(), is_note);
}

Totals totals(const Ledger& ledger)
{
    Totals sums;
    for (const Block& block : ledger.blocks) ++sums.by_outcome[static_cast<std::size_t>(block.outcome)];
    sums.blocks = ledger.blocks.size();
    return sums;
}

}  // namespace report
