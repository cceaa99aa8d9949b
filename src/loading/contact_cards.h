// The cards of a *CONTACT block, as contacts and tied nodes read them.
#pragma once

#include "reader/card.h"

// Fields have their names of the keyword format. Cards that are absent leave their defaults.
struct ContactCards {
    struct Sides {
        int ssid, msid, sstyp, mstyp, sboxid, mboxid, spr, mpr;
    };
    struct Friction {
        float fs, fd, dc, vc, vdc;
        int penchk;
        float bt, dt;
    };
    struct Scales {
        float sfs, sfm, sst, mst, sfst, sfmt, fsf, vsf;
    };
    struct Erosion {
        int isym = 0, erosop = 0, iadj = 0;
    };
    struct CardA {
        int soft = 0;
        float sofscl = 1.0f;
        int lcidab = 0;
        float maxpar = 0.0f, sbopt = 0.0f;
        int depth = 0, bsort = 10, frcfrq = 0;
    };

    Sides sides;        // card 1
    Friction friction;  // card 2
    Scales scales;      // card 3
    Erosion erosion;    // card 4, of the eroding contacts alone
    CardA a;
    bool eroding = false;  // card 4 was read
    bool has_a = false;    // card A was read
};

// Reads the block that infile stands in, from card 1 on. Cards B and C are left unread.
ContactCards read_contact_cards();
