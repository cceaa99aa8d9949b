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
    print(inpfile, " Material Definition: %10s %10i %10.3e   %20s\n", mid.text, mtyp, density, title.text);
}

void write_eos(const Word& eosid, int eostyp, const Title& title)
{
    text(inpfile, "\n!------------------------- EOSID     EOSTYP      Title");
    text(inpfile, " --------------------------------\n");
    print(inpfile, " EOS definition:%16s%11i%5s%20s\n", eosid.text, eostyp, " ", title.text);
}

void write_singly(std::initializer_list<Labelled> parameters)
{
    for (const Labelled& parameter : parameters) write_group({parameter});
}

void write_blank_slots(int count)
{
    for (int slot = 0; slot < count; ++slot) write_group({blank});
}
