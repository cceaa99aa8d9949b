// Points, directions and velocities.
#pragma once

#include "reader/card.h"

struct Vector {
    float x, y, z;
};

// The card's next three fields.
inline Vector read_vector(Card& card)
{
    return {card.real(), card.real(), card.real()};
}
