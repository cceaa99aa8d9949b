// Failure definitions: when the elements of a material are deleted. A material's definition stands under its own
// identifier; the material keywords are read once for these and once more for the materials.
#include <string_view>

#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/keyword.h"
#include "reader/run.h"

namespace
{
struct Criteria {
    float fstrain = 1.5f;
    float dtmin = -0.5f;
    float minrvol = 0.5f;
    float maxrvol = 5.0f;
    float skew = 0.0f;
    float aspect = 0.0f;
    float pmax = 0.0f;
    float scalej = 0.1f;
};

// Whether the keyword line ends in TITLE, judged by three of its letters.
bool ends_in_title()
{
    const std::string_view line = cbuffer;
    const std::size_t length = line.size();
    return length >= 5 && line[length - 1] == 'E' && line[length - 2] == 'L' && line[length - 5] == 'T';
}

// The criteria that a material's cards set, read from behind its identifier on card 1. Fields are read also where they
// are not used: what is unread when the handler ends is where the search for the next keyword begins.
Criteria read_criteria(Card& card, int type)
{
    Criteria criteria;
    float unused;
    switch (type) {
    case mtyp::plastic_kinematic:  // card 2: SRC, SRP, FS
        card.another(unused, unused, criteria.fstrain);
        break;
    case mtyp::null:  // RO, PC, MU, TEROD, CEROD
        card.read(unused, unused, unused, criteria.maxrvol, criteria.minrvol);
        break;
    case mtyp::elastic_plastic_hydro:  // RO, G, SIGY, EH, PC, FS
        card.read(unused, unused, unused, unused, unused, unused);
        criteria.fstrain = 0.0f;  // sic: whatever FS is
        break;
    case mtyp::steinberg:  // RO, G0, SIGO, BETA, N
        card.read(unused, unused, unused, unused, unused);
        break;
    case mtyp::isotropic_elastic_failure:  // card 2: EPF, PRF, REM, TREM
        card.another(unused, unused, unused, unused);
        criteria.fstrain = 0.0f;  // sic: whatever EPF is; the material has it as "fs"
        break;
    case mtyp::johnson_cook:  // RO, G, E, PR, DTF; sic: DTF does not become the minimum time step
        card.read(unused, unused, unused, unused, unused);
        break;
    case mtyp::simplified_johnson_cook:  // card 2: A, B, N, C, PSFAIL
        card.another(unused, unused, unused, unused, criteria.fstrain);
        break;
    default:
        break;
    }
    return criteria;
}
}  // namespace

// *MAT_ELASTIC, *MAT_ELASTIC_PLASTIC_HYDRO, *MAT_HIGH_EXPLOSIVE_BURN, *MAT_ISOTROPIC_ELASTIC_FAILURE,
// *MAT_ISOTROPIC_ELASTIC_PLASTIC, *MAT_JOHNSON_COOK, *MAT_JOHNSON_HOLMQUIST_CERAMICS, *MAT_MOONEY-RIVLIN_RUBBER,
// *MAT_NULL, *MAT_PLASTIC_KINEMATIC, *MAT_RIGID, *MAT_SIMPLIFIED_JOHNSON_COOK, *MAT_STEINBERG_TITLE, *MAT_VISCOELASTIC
void failure(int type)
{
    if (ends_in_title()) skip_title();
    Card card;
    Word mid;
    card.first(mid);
    const Criteria c = read_criteria(card, type);

    print(inpfile, " Failure definition:%10s %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e\n", mid.text,
          c.fstrain, c.dtmin, c.minrvol, c.maxrvol, c.skew, c.aspect, c.pmax, c.scalej);

    const bool deletes_nothing = c.fstrain == 0.0f && c.dtmin == -0.5f && c.minrvol == 0.5f && c.maxrvol == 5.0f;
    if (!deletes_nothing) edflag = 1;
}
