#include "materials/definition.h"

#include <cstdio>

#include "reader/run.h"

Title title_if(bool titled, const char* otherwise)
{
    if (titled) return readtitle();
    Title title;
    std::snprintf(title.text, sizeof title.text, "%s", otherwise);
    return title;
}

void write_material(const Word& mid, int mtyp, float density, const Title& title)
{
    text(inpfile, "\n!--------------------------- MID       MTYP    Density   Title ------------------------\n");
    print(inpfile, " Material Definition: %10s %10i %10.3e   %20s\n", mid.text, mtyp, wide(density), title.text);
}

void write_eos(const Word& eosid, int eostyp, const Title& title)
{
    text(inpfile, "\n!------------------------- EOSID     EOSTYP      Title");
    text(inpfile, " --------------------------------\n");
    print(inpfile, " EOS definition:%16s%11i%5s%20s\n", eosid.text, eostyp, " ", title.text);
}

namespace
{
void write_value(const Parameter& parameter)
{
    switch (parameter.form) {
    case Form::scientific:
        print(inpfile, "%10.3e", wide(parameter.real));
        break;
    case Form::one_decimal:
        print(inpfile, "%10.1f", wide(parameter.real));
        break;
    case Form::two_decimals:
        print(inpfile, "%10.2f", wide(parameter.real));
        break;
    case Form::whole:
        print(inpfile, "%10i", parameter.integer);
        break;
    }
}

// Both lines but for the last newline.
void write_open_group(std::span<const Parameter> group)
{
    print(inpfile, "!%9s", group.front().label);
    for (const Parameter& parameter : group.subspan(1)) print(inpfile, " %10s", parameter.label);
    text(inpfile, "\n");
    write_value(group.front());
    for (const Parameter& parameter : group.subspan(1)) {
        text(inpfile, " ");
        write_value(parameter);
    }
}
}  // namespace

void write_group(std::initializer_list<Parameter> group)
{
    write_open_group({group.begin(), group.size()});
    text(inpfile, "\n");
}

void write_group_blank_ended(std::span<const Parameter> group)
{
    write_open_group(group);
    text(inpfile, " \n");
}

void write_singly(std::initializer_list<Parameter> parameters)
{
    for (const Parameter& parameter : parameters) write_group({parameter});
}

void write_blank_slots(int count)
{
    for (int slot = 0; slot < count; ++slot) write_group({blank});
}
