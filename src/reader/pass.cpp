#include "reader/pass.h"

#include "reader/keyword.h"
#include "reader/observer.h"
#include "reader/run.h"

namespace
{
// The initials of the lines that a row can match; all for an observer, who is told of every line.
Initials initials_of(const Pass& pass)
{
    Initials initials;
    for (const PassRow& row : pass.rows) {
        if (row.prefix.size() < 2 || observer != nullptr) return Initials::all();
        initials.add(row.prefix[1]);
    }
    return initials;
}

// The row that the keyword line in cbuffer matches; null when there is none.
const PassRow* matching_row(const Pass& pass)
{
    const std::string_view line = cbuffer;
    for (const PassRow& row : pass.rows)
        if (line.starts_with(row.prefix) && (row.only_if.holds == nullptr || row.only_if.holds())) return &row;
    return nullptr;
}
}  // namespace

void run_pass(const Pass& pass)
{
    if (observer != nullptr) observer->pass_begins(pass);
    const Initials wanted = initials_of(pass);
    infile.rewind();
    for (;;) {
        infile.to_keyword(wanted);
        keyword();
        const PassRow* const row = matching_row(pass);
        if (observer != nullptr) observer->row_begins(row);
        if (row == nullptr) continue;
        if (row->action.treatment == Treatment::end_of_pass) return;
        row->action.run();
        if (observer != nullptr) observer->row_ends();
    }
}

const PassRow* first_match(const Pass& pass, std::string_view line)
{
    for (const PassRow& row : pass.rows)
        if (line.starts_with(row.prefix)) return &row;
    return nullptr;
}
