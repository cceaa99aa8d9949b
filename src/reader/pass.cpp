#include "reader/pass.h"

#include "reader/debug_log.h"
#include "reader/keyword.h"
#include "reader/run.h"

void skipped()
{
    log_skipped();
}

void passed_over()
{
}

void end_of_pass()
{
}

void run_pass(const Pass& pass)
{
    infile.rewind();
    for (;;) {
        keyword();
        const std::string_view line = cbuffer;
        for (const PassRow& row : pass.rows) {
            if (!line.starts_with(row.prefix) || (row.only_if != nullptr && !row.only_if())) continue;
            if (row.action == end_of_pass) return;
            row.action();
            break;
        }
    }
}

const PassRow* first_match(const Pass& pass, std::string_view line)
{
    for (const PassRow& row : pass.rows)
        if (line.starts_with(row.prefix)) return &row;
    return nullptr;
}
