#include "report/part_sums.h"

#include <cmath>

namespace report
{

void PartSums::Sum::add(double factor, const Sum& other)
{
    size += factor * other.size;
    moment += factor * other.moment;
}

void PartSums::add_solid(const Shape& shape)
{
    solids_.add(1, {shape.size, shape.moment});
}

void PartSums::add_shell(const Shape& shape, const std::array<double, 4>& thickness, std::size_t corners)
{
    const Sum whole{shape.size, shape.moment};
    const double share = 1 / static_cast<double>(corners);
    area_.add(1, whole);
    for (std::size_t i = 0; i < corners; ++i) {
        if (thickness[i] != 0)
            shells_.add(share * thickness[i], whole);
        else
            shells_by_section_[i].add(share, whole);
    }
}

void PartSums::add_particle(double mass, const Vector& at)
{
    particles_.add(mass, {1, at});
    points_.add(1, {1, at});
}

void PartSums::give(PartCount& part) const
{
    Sum volume = solids_;
    volume.add(1, shells_);
    for (std::size_t i = 0; i < 4; ++i) {
        // a section that gives one thickness means it for all corners
        const double thickness = part.thickness[i] != 0 ? part.thickness[i] : part.thickness[0];
        volume.add(thickness, shells_by_section_[i]);
    }
    Sum mass = particles_;
    if (part.has_density) mass.add(part.density, volume);
    part.mass = mass.size;
    part.volume = volume.size;
    if (part.has_density && part.density > 0) part.volume += particles_.size / part.density;
    for (const Sum& sum : {mass, volume, area_, points_}) {
        if (sum.size == 0 || !std::isfinite(sum.size)) continue;
        part.centre = (1 / sum.size) * sum.moment;
        break;
    }
}

}  // namespace report
