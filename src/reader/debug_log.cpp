#include "reader/debug_log.h"

#include <cstdarg>
#include <cstddef>
#include <cstdio>

#include "reader/format.h"
#include "reader/run.h"

namespace
{
constexpr std::size_t longest_warning = 1023;
}

void log_recognized()
{
    print(outfile, "\n%s . . . recognized keyword\n", cbuffer);
}

void log_skipped()
{
    print(outfile, "\n%s . . . skipped\n", cbuffer);
}

void log_ignored_title()
{
    text(outfile, "ignored title line\n");
}

void log_unused_heading()
{
    text(outfile, "unused variables:\n");
}

void log_fields(std::initializer_list<Field> fields)
{
    for (const Field& field : fields)
        if (field.is_real)
            print(outfile, "%10s:%10.3e\n", field.name, field.real);
        else
            print(outfile, "%10s:%10i\n", field.name, field.integer);
}

void log_unused(std::initializer_list<Field> fields)
{
    if (fields.size() == 0) {
        text(outfile, "no unused variables\n");
        return;
    }
    log_unused_heading();
    log_fields(fields);
}

void warn(const char* format, ...)
{
    std::va_list values;
    va_start(values, format);
    char line[longest_warning + 1];
    if (warnings != nullptr)
        warnings->print(format, values);
    else if (format_values(line, sizeof line, format, values) >= 0)
        std::fputs(line, stdout);
    va_end(values);
}
