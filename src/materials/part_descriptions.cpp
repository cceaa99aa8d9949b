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
    {"*PART", handler<part>, "Part definition", "without `ADPOPT`; the cards of options are read as further parts"},  // every other option
    {"*END", end_of_pass},
};
// clang-format on
static_assert(every_row_reachable(part_rows));

constexpr PassRow section_rows[] = {
    {"*SECTION_SOLID", handler<sectionsolid>, "Element formulation definition", "`ELFORM` 1 and 2"},
    {"*SECTION_SHELL", handler<sectionshell>, "Element formulation definition",
     "`ELFORM` 0 to 5; without `ICOMP`, `SETYP`, `MAREA`, `IDOF`, `EDGSET`"},
    {"*SECTION_SPH", handler<sectionsph>, "Element formulation definition",
     "the formulation alone, none of its fields"},
    {"*SECTION", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(section_rows));

constexpr PassRow eos_rows[] = {
    {"*EOS_GRUNEISEN", handler<eosmgrun>, "EOS definition, type 4"},
    {"*EOS_IGNITION_AND_GROWTH_OF_REACTION_IN_HE", handler<eosigrb>, "EOS definition, type 7"},
    {"*EOS_JWL", handler<eosjwl>, "EOS definition, type 2"},
    // sic: without a title it is skipped
    {"*EOS_LINEAR_POLYNOMIAL_TITLE", handler<eoslinearpoly>, "EOS definition, type 1",
     "not without `_TITLE`; `V0` is 1"},
    {"*EOS", skipped},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(eos_rows));

// An option of *MAT_ELASTIC, the fluid for instance.
constexpr Condition elastic_option{"unless `TITLE` follows", [] { return !keyword_is("*MAT_ELASTIC_TITLE"); }};

// The failure and material tables list the same materials, in the same order.
constexpr PassRow failure_rows[] = {
    {"*MAT_ELASTIC_PLASTIC_HYDRO", handler<failure, mtyp::elastic_plastic_hydro>, "Failure definition"},
    {"*MAT_ELASTIC_", passed_over, "", "", elastic_option},
    {"*MAT_ELASTIC", handler<failure, mtyp::elastic>, "Failure definition"},
    {"*MAT_HIGH_EXPLOSIVE_BURN", handler<failure, mtyp::high_explosive_burn>, "Failure definition"},
    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", handler<failure, mtyp::isotropic_elastic_failure>, "Failure definition"},
    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", handler<failure, mtyp::isotropic_elastic_plastic>, "Failure definition"},
    {"*MAT_JOHNSON_COOK", handler<failure, mtyp::johnson_cook>, "Failure definition"},
    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", handler<failure, mtyp::johnson_holmquist_ceramics>, "Failure definition"},
    // sic: the material itself is of another type
    {"*MAT_MOONEY-RIVLIN_RUBBER", handler<failure, mtyp::viscoelastic>, "Failure definition"},
    {"*MAT_NULL", handler<failure, mtyp::null>, "Failure definition"},
    {"*MAT_PLASTIC_KINEMATIC", handler<failure, mtyp::plastic_kinematic>, "Failure definition"},
    {"*MAT_RIGID", handler<failure, mtyp::rigid>, "Failure definition"},
    {"*MAT_SIMPLIFIED_JOHNSON_COOK", handler<failure, mtyp::simplified_johnson_cook>, "Failure definition"},
    {"*MAT_VISCOELASTIC_THERMAL", passed_over},
    {"*MAT_VISCOELASTIC_HILL_FOAM", passed_over},
    {"*MAT_VISCOELASTIC", handler<failure, mtyp::viscoelastic>, "Failure definition"},
    {"*MAT_STEINBERG_TITLE", handler<failure, mtyp::steinberg>, "Failure definition"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(failure_rows));

constexpr PassRow hourglass_rows[] = {
    {"*HOURGLASS", handler<hourglass>, "Hourglass formulation definition",
     "types up to 5; viscosity type 1; without `QB` and `QW`"},
    {"*END", end_of_pass},
};
static_assert(every_row_reachable(hourglass_rows));

constexpr PassRow material_rows[] = {
    {"*MAT_ELASTIC_PLASTIC_HYDRO", handler<matelasticplastichydro>, "Material Definition, type 10",
     "without `CHARL`; no failure strain in the failure definition"},
    {"*MAT_ELASTIC_", skipped, "", "", elastic_option},
    {"*MAT_ELASTIC", handler<matelastic>, "Material Definition, type 1", "`E` and `PR`"},
    {"*MAT_HIGH_EXPLOSIVE_BURN", handler<matheburn>, "Material Definition, type 8",
     "`BETA` 1 and 2; without `K`, `G`, `SIGY`"},
    {"*MAT_ISOTROPIC_ELASTIC_FAILURE", handler<matisotropicelasticfail>, "Material Definition, type 13",
     "without `REM` and `TREM`"},
    {"*MAT_ISOTROPIC_ELASTIC_PLASTIC", handler<matisotropicelasticplas>, "Material Definition, type 12"},
    {"*MAT_JOHNSON_COOK", handler<matjohnsoncook>, "Material Definition, type 15", "without `VP`, `RATEOP`, `C2/P`"},
    {"*MAT_JOHNSON_HOLMQUIST_CERAMICS", handler<matjohnsonholmquistceramic>, "Material Definition, type 43",
     "not with `_TITLE`"},
    {"*MAT_MOONEY-RIVLIN_RUBBER", handler<matmooney>, "Material Definition, type 27", "`A`, `B`, `PR`"},
    {"*MAT_NULL", handler<matnull>, "Material Definition, type 9", "without `YM` and `PR`"},
    {"*MAT_PLASTIC_KINEMATIC", handler<matplastickinematic>, "Material Definition, type 3", "without strain rates"},
    {"*MAT_RIGID", handler<matrigid>, "Material Definition, type 20",
     "constraints `CON1` and `CON2`; without coupling and local axes"},
    {"*MAT_SIMPLIFIED_JOHNSON_COOK", handler<matsimpjohnsoncook>, "Material Definition, type 15",
     "without `VP`, `SIGMAX`, `SIGSAT`"},
    {"*MAT_VISCOELASTIC_THERMAL", skipped},
    {"*MAT_VISCOELASTIC_HILL_FOAM", skipped},
    {"*MAT_VISCOELASTIC", handler<matviscoelastic>, "Material Definition, type 6"},
    // sic: without a title it is skipped
    {"*MAT_STEINBERG_TITLE", handler<matsteinberg>, "Material Definition, type 11",
     "not without `_TITLE`; without `FLAG`"},
    {"*MAT", skipped, "",
     "among them *MAT_PIECEWISE_LINEAR_PLASTICITY and all numeric names, such as *MAT_003 and *MAT_024"},
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
