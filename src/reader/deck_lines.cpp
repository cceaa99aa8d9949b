#include "reader/deck_lines.h"

#include "reader/run.h"

void banner(OutputStream& stream, std::string_view title)
{
    text(stream, rule);
    text(stream, "! ");
    text(stream, title);
    text(stream, "\n");
    text(stream, rule);
}

namespace
{
void write_value(const Labelled& value)
{
    switch (value.form) {
    case Form::scientific:
        print(inpfile, "%10.3e", value.real);
        break;
    case Form::one_decimal:
        print(inpfile, "%10.1f", value.real);
        break;
    case Form::two_decimals:
        print(inpfile, "%10.2f", value.real);
        break;
    case Form::whole:
        print(inpfile, "%10i", value.integer);
        break;
    }
}

// Both lines but for the last newline.
void write_open_group(std::span<const Labelled> group)
{
    print(inpfile, "!%9s", group.front().label);
    for (const Labelled& value : group.subspan(1)) print(inpfile, " %10s", value.label);
    text(inpfile, "\n");
    write_value(group.front());
    for (const Labelled& value : group.subspan(1)) {
        text(inpfile, " ");
        write_value(value);
    }
}
}  // namespace

void write_group(std::span<const Labelled> group)
{
    write_open_group(group);
    text(inpfile, "\n");
}

void write_group(std::initializer_list<Labelled> group)
{
    write_group(std::span(group.begin(), group.size()));
}

void write_group_blank_ended(std::span<const Labelled> group)
{
    write_open_group(group);
    text(inpfile, " \n");
}
