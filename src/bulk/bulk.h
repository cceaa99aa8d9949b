// Bulk data: the geometry file and the set file, read from the deck itself.
#pragma once

#include "reader/pass.h"

// "Set Definitions" in the set file, and the index of the sets in the main deck.
void set_section();

// "Geometry Definitions" in the geometry file.
void geometry_section();

// The pass tables, for docs and tests.
extern const Pass set_keywords;
extern const Pass node_keywords;
extern const Pass shell_keywords;
extern const Pass solid_keywords;
extern const Pass sph_element_keywords;

// Kinds of sets that setcard converts.
enum class SetType { node = 1, solid = 2, shell = 3, part = 4 };

void setcard(SetType type);  // *SET_NODE, *SET_SOLID, *SET_SHELL, *SET_PART
void setsegment();           // *SET_SEGMENT

// Each converts one block and adds its cards to the running count of its kind.
void node();     // *NODE
void eshell();   // *ELEMENT_SHELL
void eshellt();  // *ELEMENT_SHELL_THICKNESS, *ELEMENT_SHELL_BETA
void esolid();   // *ELEMENT_SOLID
void esph();     // *ELEMENT_SPH
