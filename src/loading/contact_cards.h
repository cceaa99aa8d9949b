// The cards of a *CONTACT block, as contacts and tied nodes read them.
#pragma once

// Fields have their names of the keyword format. Cards that are absent leave their defaults.
struct ContactCards {
    // card 1: the sides
    int ssid, msid, sstyp, mstyp, sboxid, mboxid, spr, mpr;
    // card 2: friction
    float fs, fd, dc, vc, vdc;
    int penchk;
    float bt, dt;
    // card 3: scale factors
    float sfs, sfm, sst, mst, sfst, sfmt, fsf, vsf;
    // card 4: erosion, of the eroding contacts alone
    bool eroding = false;
    int isym = 0, erosop = 0, iadj = 0;
    // card A
    bool has_a = false;
    int soft = 0;
    float sofscl = 1.0f;
    int lcidab = 0;
    float maxpar = 0.0f, sbopt = 0.0f;
    int depth = 0, bsort = 10, frcfrq = 0;
};

// Reads the block that infile stands in, from card 1 on. Cards B and C are left unread.
ContactCards read_contact_cards();
