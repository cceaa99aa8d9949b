// What materials and equations of state share: a title, a header, a definition line, and groups of parameters. A member
// of the family reads its cards in order, writes its groups in order and logs what it left out.
#pragma once

#include <initializer_list>

#include "reader/card.h"
#include "reader/deck_lines.h"

// The title card when the keyword has one, and the default title otherwise.
Title title_if(bool titled, const char* otherwise);

// The header and definition line of a material, and those of an equation of state.
void write_material(const Word& mid, int mtyp, float density, const Title& title);
void write_eos(const Word& eosid, int eostyp, const Title& title);

// A slot that the solver leaves unused.
inline constexpr Labelled blank{"blank", 0};

// Each parameter as a group of its own.
void write_singly(std::initializer_list<Labelled> parameters);

// That many blank slots, each a group of its own.
void write_blank_slots(int count);
