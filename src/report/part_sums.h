// What the elements of one part add up to. Sums run in the order of the elements, each kind for itself, so that they
// are the same from a deck that mixes the kinds.
#pragma once

#include <array>
#include <cstddef>
#include <memory>

#include "report/count.h"
#include "report/element_shape.h"

namespace report
{

class PartSums
{
public:
    void add_solid(const Shape& shape);

    // `thickness` is the element's own, 0 where its section's counts; `corners` 3 or 4.
    void add_shell(const Shape& shape, const std::array<double, 4>& thickness, std::size_t corners);

    void add_particle(double mass, const Vector& at);

    // Volume, mass and centre, by the part's thickness and density.
    void give(PartCount& part) const;

private:
    struct Sum {
        double size = 0;
        Vector moment{};

        void add(double factor, const Sum& other);
    };

    // Of solids and shells.
    [[nodiscard]] Sum volume_of(const PartCount& part) const;

    struct Shells {
        Sum own;                        // volume of what has its own thickness
        std::array<Sum, 4> by_section;  // area that takes the thickness of that corner of the section
        Sum area;                       // of all
    };
    struct Particles {
        Sum mass;
        Sum number;
    };

    Sum solids_;  // volume
    std::unique_ptr<Shells> shells_;
    std::unique_ptr<Particles> particles_;
};

}  // namespace report
