#include <cstddef>

#include "loading/contact_cards.h"
#include "loading/loading.h"
#include "reader/card.h"
#include "reader/keyword.h"
#include "reader/observer.h"
#include "reader/run.h"

namespace
{
// What follows the title behind its identifier, without its newline.
struct Heading {
    char text[80];
};

Heading read_heading()
{
    const Watched watched;
    Heading heading;
    std::size_t length = 0;
    for (char c = infile.next(); c != '\n'; c = infile.next())
        if (length < sizeof heading.text - 1) heading.text[length++] = c;
    heading.text[length] = '\0';
    return heading;
}

// The ID card: an identifier of ten columns, which is not used, then the heading. sic: it is read whether or not the
// keyword has one; and where it has, a character is lost unless comment lines stand before the card.
Heading read_id_card()
{
    if (keyword_ends_in("ID")) {
        const char c = infile.next();
        if (c == '$') comments(c);
    }
    int open = 1;
    fblanks(10, &open);
    return read_heading();
}

// Segment sets and node sets by the solver's numbers; others as they are.
int slave_type(int sstyp)
{
    switch (sstyp) {
    case 0:
        return 1;
    case 4:
        return 0;
    default:
        return sstyp;
    }
}
}  // namespace

// *CONTACT_AUTOMATIC_NODES_TO_SURFACE and *CONTACT_AUTOMATIC_SURFACE_TO_SURFACE as ties that can fail. The friction
// coefficients of the contact carry what a contact has no field for: FS the failure strain, FD the search radius.
void surfcon2tnodes()
{
    const Heading heading = read_id_card();
    const ContactCards cards = read_contact_cards();

    if (++counts.tied_nodes == 1) {
        text(inpfile, " Tied node definition:\n");
        print(inpfile, "!%9s %8s %8s %8s %8s %8s %7s %7s %7s %7s\n",  //
              "slvid", "stype", "mstrsid", "effstr", "pcut", "sn", "ss", "n", "m", "radius");
    }
    print(inpfile, " %9i %8i %8i %8.1f %8.1f %8.1f %7.1f %7.1f %7.1f %7.1f   !---%-80s\n",  //
          cards.ssid, slave_type(cards.sstyp), cards.msid,                                  //
          cards.fs, 0.0, 0.0, 0.0, 0.0, 0.0, cards.fd, heading.text);
}
