// The "Part Descriptions" section: parts, then the definitions that they name, one pass over the keyword copy for each
// kind.
#include "materials/materials.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
constexpr PassRow part_rows[] = {
    {"*PART_ADAPTIVE", skipped}, {"*PART_COMPOSITE", skipped}, {"*PART_MODES", skipped},
    {"*PART_SENSOR", skipped},   {"*PART_MOVE", skipped},      {"*PART", part},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(part_rows));

constexpr PassRow section_rows[] = {
    {"*SECTION_SOLID", sectionsolid},
    {"*SECTION_SHELL", sectionshell},
    {"*SECTION_SPH", sectionsph},
    {"*SECTION", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(section_rows));

constexpr PassRow eos_rows[] = {
    {"*EOS_GRUNEISEN", eosmgrun},
    {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", eosigrb},
    {"*EOS_JWL", eosjwl},
    {"*EOS_LINEAR_POLYNOMIAL_TITLE", eoslinearpoly},  // sic: without a title it is skipped
    {"*EOS", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(eos_rows));

// An option of *MAT_ELASTIC, the fluid for instance.
bool elastic_option()
{
    return !keyword_is("*MAT_ELASTIC_TITLE");
}

// The failure and material tables list the same materials, in the same order.
constexpr PassRow failure_rows[] = {
    {"*MAT_ELASTIC_PLASTIC_HYDRO", [] { failure(10); }},
    {"*MAT_ELASTIC_", passed_over, elastic_option},
    {"*MAT_ELASTIC", [] { failure(1); }},
    {"*MAT_HIGH_EXPLOSIVE_BURN", [] { failure(8); }},
    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", [] { failure(13); }},
    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", [] { failure(12); }},
    {"*MAT_JOHNSON_COOK", [] { failure(15); }},
    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", [] { failure(43); }},
    {"*MAT_MOONEY-RIVLIN_RUBBER", [] { failure(6); }},  // sic: the material itself is of type 27
    {"*MAT_NULL", [] { failure(9); }},
    {"*MAT_PLASTIC_KINEMATIC", [] { failure(3); }},
    {"*MAT_RIGID", [] { failure(20); }},
    {"*MAT_SIMPLIFIED_JOHNSON_COOK", [] { failure(98); }},
    {"*MAT_VISCOELASTIC_THERMAL", passed_over},
    {"*MAT_VISCOELASTIC_HILL_FOAM", passed_over},
    {"*MAT_VISCOELASTIC", [] { failure(6); }},
    {"*MAT_STEINBERG_TITLE", [] { failure(11); }},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(failure_rows));

constexpr PassRow hourglass_rows[] = {
    {"*HOURGLASS", hourglass},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(hourglass_rows));

constexpr PassRow material_rows[] = {
    {"*MAT_ELASTIC_PLASTIC_HYDRO", matelasticplastichydro},
    {"*MAT_ELASTIC_", skipped, elastic_option},
    {"*MAT_ELASTIC", matelastic},
    {"*MAT_HIGH_EXPLOSIVE_BURN", matheburn},
    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", matisotropicelasticfail},
    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", matisotropicelasticplas},
    {"*MAT_JOHNSON_COOK", matjohnsoncook},
    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", matjohnsonholmquistceramic},
    {"*MAT_MOONEY-RIVLIN_RUBBER", matmooney},
    {"*MAT_NULL", matnull},
    {"*MAT_PLASTIC_KINEMATIC", matplastickinematic},
    {"*MAT_RIGID", matrigid},
    {"*MAT_SIMPLIFIED_JOHNSON_COOK", matsimpjohnsoncook},
    {"*MAT_VISCOELASTIC_THERMAL", skipped},
    {"*MAT_VISCOELASTIC_HILL_FOAM", skipped},
    {"*MAT_VISCOELASTIC", matviscoelastic},
    {"*MAT_STEINBERG_TITLE", matsteinberg},  // sic: without a title it is skipped
    {"*MAT", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(material_rows));
}  // namespace

const Pass part_keywords{"parts", part_rows};
const Pass section_keywords{"element sections", section_rows};
const Pass eos_keywords{"equations of state", eos_rows};
const Pass failure_keywords{"failure definitions", failure_rows};
const Pass hourglass_keywords{"hourglass definitions", hourglass_rows};
const Pass material_keywords{"materials", material_rows};

void part_descriptions()
{
    banner(inpfile, "Part Descriptions");
    text(inpfile, "\n");

    print(inpfile, "!---------------- %7s%11s%11s%11s%11s%11s%11s%11s%8s -------------\n", "PID", "FORMID", "MID",
          "EOSID", "FAILID", "HGID", "TMID", "GRAV", "Title");
    run_pass(part_keywords);
    text(inpfile, "\n\n");

    run_pass(section_keywords);
    text(inpfile, "\n");

    run_pass(eos_keywords);
    text(inpfile, "\n\n");

    print(inpfile, "!---------------------- FAILID%11s%11s%11s%11s%11s%11s%11s%11s\n", "FSTRAIN", "DTMIN", "MINRVOL",
          "MAXRVOL", "SKEW", "ASPECT", "PMAX", "SCALEJ");
    run_pass(failure_keywords);
    text(inpfile, "\n\n");

    print(inpfile, "!--------------------------------------- HGID%8s%8s%8s%8s%8s\n", "IHQ", "QH", "IBQ", "Q1", "Q2");
    print(inpfile, "!Hourglass formulation definition:          2%8i%8.2f%8i%8.2f%8.2f\n", 1, 0.1, 1, 1.5, 0.06);
    run_pass(hourglass_keywords);
    text(inpfile, "\n");

    run_pass(material_keywords);
    text(inpfile, "\n\n");
}
