// Parts and materials: the "Part Descriptions" section of the main deck.
#pragma once

#include "reader/pass.h"

// The section with its banner, column headers and six passes. Failure definitions stand before hourglass definitions,
// and these before the materials, though failure and material pass read the same keywords.
void part_descriptions();

// The pass tables, in the order in which the section runs them; for docs and tests.
extern const Pass part_keywords;
extern const Pass section_keywords;
extern const Pass eos_keywords;
extern const Pass failure_keywords;
extern const Pass hourglass_keywords;
extern const Pass material_keywords;

// The handlers. Each is called with its keyword line in cbuffer and converts the first definition of the block; part
// alone converts all of them.

void part();  // *PART

// Element formulations.
void sectionsolid();  // *SECTION_SOLID
void sectionshell();  // *SECTION_SHELL
void sectionsph();    // *SECTION_SPH

// Equations of state.
void eosmgrun();       // *EOS_GRUNEISEN
void eosigrb();        // *EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE
void eosjwl();         // *EOS_JWL
void eoslinearpoly();  // *EOS_LINEAR_POLYNOMIAL_TITLE

// Materials.
void matelastic();                  // *MAT_ELASTIC
void matelasticplastichydro();      // *MAT_ELASTIC_PLASTIC_HYDRO
void matheburn();                   // *MAT_HIGH_EXPLOSIVE_BURN
void matisotropicelasticfail();     // *MAT_ISOTROPIC_ELASTIC_FAILURE
void matisotropicelasticplas();     // *MAT_ISOTROPIC_ELASTIC_PLASTIC
void matjohnsoncook();              // *MAT_JOHNSON_COOK
void matjohnsonholmquistceramic();  // *MAT_JOHNSON_HOLMQUIST_CERAMICS
void matmooney();                   // *MAT_MOONEY-RIVLIN_RUBBER
void matnull();                     // *MAT_NULL
void matplastickinematic();         // *MAT_PLASTIC_KINEMATIC
void matrigid();                    // *MAT_RIGID
void matsimpjohnsoncook();          // *MAT_SIMPLIFIED_JOHNSON_COOK
void matsteinberg();                // *MAT_STEINBERG_TITLE
void matviscoelastic();             // *MAT_VISCOELASTIC

// The solver's material types.
namespace mtyp
{
inline constexpr int elastic = 1;
inline constexpr int plastic_kinematic = 3;
inline constexpr int viscoelastic = 6;
inline constexpr int high_explosive_burn = 8;
inline constexpr int null = 9;
inline constexpr int elastic_plastic_hydro = 10;
inline constexpr int steinberg = 11;
inline constexpr int isotropic_elastic_plastic = 12;
inline constexpr int isotropic_elastic_failure = 13;
inline constexpr int johnson_cook = 15;
inline constexpr int rigid = 20;
inline constexpr int mooney_rivlin_rubber = 27;
inline constexpr int johnson_holmquist_ceramics = 43;
inline constexpr int simplified_johnson_cook = 98;  // of failure definitions alone: the material is a johnson_cook
}  // namespace mtyp

// The failure definition of a material keyword, under the material's identifier. `type` is that of mtyp that the
// failure pass gives the keyword. Nothing is logged. Sets edflag.
void failure(int type);

void hourglass();  // *HOURGLASS
