#include "loading/contact_cards.h"

#include "reader/keyword.h"

ContactCards read_contact_cards()
{
    Card card;
    card.first();
    const ContactCards::Sides sides{card.integer(), card.integer(), card.integer(), card.integer(),
                                    card.integer(), card.integer(), card.integer(), card.integer()};
    card.another();
    const ContactCards::Friction friction{card.real(), card.real(),    card.real(), card.real(),
                                          card.real(), card.integer(), card.real(), card.real()};
    card.another();
    const ContactCards::Scales scales{card.real(), card.real(), card.real(), card.real(),
                                      card.real(), card.real(), card.real(), card.real()};
    ContactCards cards{.sides = sides, .friction = friction, .scales = scales, .erosion = {}, .a = {}};

    cards.eroding = keyword_is("*CONTACT_ERODING");
    if (cards.eroding) {
        card.another();
        cards.erosion = {card.integer(), card.integer(), card.integer()};
    }

    cards.has_a = card.next();
    if (cards.has_a)  // its blank fields are zeros, not the defaults
        cards.a = {card.integer(), card.real(),    card.integer(), card.real(),
                   card.real(),    card.integer(), card.integer(), card.integer()};
    return cards;
}
