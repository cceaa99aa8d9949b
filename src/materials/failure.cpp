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

// Fields that are read and dropped.
void pass_fields(Card& card, int count)
{
    while (count-- > 0) card.real();
}

// Whether the keyword line ends in TITLE, judged by three of its letters.
bool ends_in_title()
{
    const std::string_view line = cbuffer;
    const std::size_t length = line.size();
    return length >= 5 && line[length - 1] == 'E' && line[length - 2] == 'L' && line[length - 5] == 'T';
}

// The criteria that a material's cards set, read from behind its identifier on card 1. Fields are read also where they
// are not used: what is unread when the handler ends is where the search for the next keyword begins.
Criteria read_criteria(Card& card, int mtyp)
{
    Criteria criteria;
    switch (mtyp) {
    case mtyp::plastic_kinematic:  // *MAT_PLASTIC_KINEMATIC: SRC, SRP, FS
        card.another();
        pass_fields(card, 2);
        criteria.fstrain = card.real();
        break;
    case mtyp::null:  // *MAT_NULL: RO, PC, MU, TEROD, CEROD
        pass_fields(card, 3);
        criteria.maxrvol = card.real();
        criteria.minrvol = card.real();
        break;
    case mtyp::elastic_plastic_hydro:  // *MAT_ELASTIC_PLASTIC_HYDRO: RO, G, SIGY, EH, PC, FS
        pass_fields(card, 6);
        criteria.fstrain = 0.0f;  // sic: whatever FS is
        break;
    case mtyp::steinberg:  // *MAT_STEINBERG_TITLE: RO, G0, SIGO, BETA, N
        pass_fields(card, 5);
        break;
    case mtyp::isotropic_elastic_failure:  // *MAT_ISOTROPIC_ELASTIC_FAILURE: EPF, PRF, REM, TREM
        card.another();
        pass_fields(card, 4);
        criteria.fstrain = 0.0f;  // sic: whatever EPF is; the material has it as "fs"
        break;
    case mtyp::johnson_cook:   // *MAT_JOHNSON_COOK: RO, G, E, PR, DTF
        pass_fields(card, 5);  // sic: DTF does not become the minimum time step
        break;
    case mtyp::simplified_johnson_cook:  // *MAT_SIMPLIFIED_JOHNSON_COOK: A, B, N, C, PSFAIL
        card.another();
        pass_fields(card, 4);
        criteria.fstrain = card.real();
        break;
    default:
        break;
    }
    return criteria;
}
}  // namespace

void failure(int mtyp)
{
    if (ends_in_title()) skip_title();
    Card card;
    card.first();
    const Word mid = card.word();
    const Criteria c = read_criteria(card, mtyp);

    print(inpfile, " Failure definition:%10s %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e %10.3e\n", mid.text,
          c.fstrain, c.dtmin, c.minrvol, c.maxrvol, c.skew, c.aspect, c.pmax, c.scalej);

    const bool deletes_nothing = c.fstrain == 0.0f && c.dtmin == -0.5f && c.minrvol == 0.5f && c.maxrvol == 5.0f;
    if (!deletes_nothing) edflag = 1;
}
