// The material of Steinberg and others.
#include "materials/definition.h"
#include "materials/materials.h"
#include "reader/card.h"
#include "reader/keyword.h"

// *MAT_STEINBERG_TITLE
void matsteinberg()
{
    const Title title = title_if(keyword_is("*MAT_STEINBERG_TITL"), "Steinberg ");
    Card card;
    Word mid;
    float ro, g0, sigo, beta, n, gama, sigm;
    card.first(mid, ro, g0, sigo, beta, n, gama, sigm);
    float b, bp, h, f, a, tmo, gamo, sa;
    card.another(b, bp, h, f, a, tmo, gamo, sa);
    float pc, spall, rp, flag, mmn, mmx, eco, ec1;
    card.another(pc, spall, rp, flag, mmn, mmx, eco, ec1);
    float ec2, ec3, ec4, ec5, ec6, ec7, ec8, ec9;
    card.another(ec2, ec3, ec4, ec5, ec6, ec7, ec8, ec9);

    write_material(mid, mtyp::steinberg, ro, title);
    write_group({{"G0", g0},
                 {"sigma0", sigo},
                 {"beta", beta},
                 {"n", n},
                 {"gammai", gama},
                 {"epsflag", 0.0f},
                 {"sflag", 0.0f},
                 {"volflag", 0.0f}});
    write_group({{"sigmam", sigm}, {"b", b}, {"bprime", bp}, {"h", h}, {"f", f}});
    write_group({{"A", a},
                 {"Tm0", tmo},
                 {"gamma0", gamo},
                 {"a", sa},
                 {"pcut", pc},
                 {"Troom", 0.0f},
                 {"Debye", 0.0f},
                 {"fvol", 0.0f}});
    write_group({{"ispall", spall},
                 {"Rprime", rp},
                 {"fstrain", 0.0f},
                 {"nfit", 0.0f},
                 {"ivar", 0.0f},
                 {"minl", mmn},
                 {"maxl", mmx}});
    write_group({{"ec0", eco}, {"ec1", ec1}, {"ec2", ec2}, {"ec3", ec3}, {"ec4", ec4}});
    write_group({{"ec5", ec5}, {"ec6", ec6}, {"ec7", ec7}, {"ec8", ec8}, {"ec9", ec9}});
    // sic: no line at all in the debug log
}
