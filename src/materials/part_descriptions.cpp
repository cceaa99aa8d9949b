// The "Part Descriptions" section: parts, then the definitions that they name, one pass over the keyword copy for each
// kind.
#include "materials/materials.h"
#include "reader/deck_lines.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
// clang-format off
constexpr PassRow part_rows[] = {
    {"*PART_ADAPTIVE", skipped},
    {"*PART_COMPOSITE", skipped},
    {"*PART_MODES", skipped},
    {"*PART_SENSOR", skipped},
    {"*PART_MOVE", skipped},
    {"*PART", part},  // every other option
    {"*END", end_of_pass},
};
// clang-format on
static_assert(every_row_reachable(part_rows));

constexpr Conversion part_conversions[] = {
    {part, "part", "Part definition"},
};

constexpr PassRow section_rows[] = {
    {"*SECTION_SOLID", sectionsolid},
    {"*SECTION_SHELL", sectionshell},
    {"*SECTION_SPH", sectionsph},
    {"*SECTION", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(section_rows));

constexpr Conversion section_conversions[] = {
    {sectionsolid, "sectionsolid", "Element formulation definition"},
    {sectionshell, "sectionshell", "Element formulation definition"},
    {sectionsph, "sectionsph", "Element formulation definition"},
};

constexpr PassRow eos_rows[] = {
    {"*EOS_GRUNEISEN", eosmgrun},
    {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", eosigrb},
    {"*EOS_JWL", eosjwl},
    {"*EOS_LINEAR_POLYNOMIAL_TITLE", eoslinearpoly},  // sic: without a title it is skipped
    {"*EOS", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(eos_rows));

constexpr Conversion eos_conversions[] = {
    {eosmgrun, "eosmgrun", "EOS definition, type 4"},
    {eosigrb, "eosigrb", "EOS definition, type 7"},
    {eosjwl, "eosjwl", "EOS definition, type 2"},
    {eoslinearpoly, "eoslinearpoly", "EOS definition, type 1"},
};

// An option of *MAT_ELASTIC, the fluid for instance.
bool elastic_option()
{
    return !keyword_is("*MAT_ELASTIC_TITLE");
}

template <int mtyp>
void failure_of()
{
    failure(mtyp);
}

// The failure and material tables list the same materials, in the same order.
constexpr PassRow failure_rows[] = {
    {"*MAT_ELASTIC_PLASTIC_HYDRO", failure_of<10>},
    {"*MAT_ELASTIC_", passed_over, elastic_option},
    {"*MAT_ELASTIC", failure_of<1>},
    {"*MAT_HIGH_EXPLOSIVE_BURN", failure_of<8>},
    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", failure_of<13>},
    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", failure_of<12>},
    {"*MAT_JOHNSON_COOK", failure_of<15>},
    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", failure_of<43>},
    {"*MAT_MOONEY-RIVLIN_RUBBER", failure_of<6>},  // sic: the material itself is of type 27
    {"*MAT_NULL", failure_of<9>},
    {"*MAT_PLASTIC_KINEMATIC", failure_of<3>},
    {"*MAT_RIGID", failure_of<20>},
    {"*MAT_SIMPLIFIED_JOHNSON_COOK", failure_of<98>},
    {"*MAT_VISCOELASTIC_THERMAL", passed_over},
    {"*MAT_VISCOELASTIC_HILL_FOAM", passed_over},
    {"*MAT_VISCOELASTIC", failure_of<6>},
    {"*MAT_STEINBERG_TITLE", failure_of<11>},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(failure_rows));

constexpr Conversion failure_conversions[] = {
    {failure_of<10>, "failure", "Failure definition"}, {failure_of<1>, "failure", "Failure definition"},
    {failure_of<8>, "failure", "Failure definition"},  {failure_of<13>, "failure", "Failure definition"},
    {failure_of<12>, "failure", "Failure definition"}, {failure_of<15>, "failure", "Failure definition"},
    {failure_of<43>, "failure", "Failure definition"}, {failure_of<6>, "failure", "Failure definition"},
    {failure_of<9>, "failure", "Failure definition"},  {failure_of<3>, "failure", "Failure definition"},
    {failure_of<20>, "failure", "Failure definition"}, {failure_of<98>, "failure", "Failure definition"},
    {failure_of<11>, "failure", "Failure definition"},
};

constexpr PassRow hourglass_rows[] = {
    {"*HOURGLASS", hourglass},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(hourglass_rows));

constexpr Conversion hourglass_conversions[] = {
    {hourglass, "hourglass", "Hourglass formulation definition"},
};

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

constexpr Conversion material_conversions[] = {
    {matelasticplastichydro, "matelasticplastichydro", "Material Definition, type 10"},
    {matelastic, "matelastic", "Material Definition, type 1"},
    {matheburn, "matheburn", "Material Definition, type 8"},
    {matisotropicelasticfail, "matisotropicelasticfail", "Material Definition, type 13"},
    {matisotropicelasticplas, "matisotropicelasticplas", "Material Definition, type 12"},
    {matjohnsoncook, "matjohnsoncook", "Material Definition, type 15"},
    {matjohnsonholmquistceramic, "matjohnsonholmquistceramic", "Material Definition, type 43"},
    {matmooney, "matmooney", "Material Definition, type 27"},
    {matnull, "matnull", "Material Definition, type 9"},
    {matplastickinematic, "matplastickinematic", "Material Definition, type 3"},
    {matrigid, "matrigid", "Material Definition, type 20"},
    {matsimpjohnsoncook, "matsimpjohnsoncook", "Material Definition, type 15"},
    {matviscoelastic, "matviscoelastic", "Material Definition, type 6"},
    {matsteinberg, "matsteinberg", "Material Definition, type 11"},
};
}  // namespace

const Pass part_keywords{"parts", part_rows, part_conversions};
const Pass section_keywords{"element sections", section_rows, section_conversions};
const Pass eos_keywords{"equations of state", eos_rows, eos_conversions};
const Pass failure_keywords{"failure definitions", failure_rows, failure_conversions};
const Pass hourglass_keywords{"hourglass definitions", hourglass_rows, hourglass_conversions};
const Pass material_keywords{"materials", material_rows, material_conversions};

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
