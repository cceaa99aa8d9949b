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
    if (!shells_) shells_ = std::make_unique<Shells>();
    const Sum whole{shape.size, shape.moment};
    const double share = 1 / static_cast<double>(corners);
    shells_->area.add(1, whole);
    for (std::size_t i = 0; i < corners; ++i) {
        if (thickness[i] != 0)
            shells_->own.add(share * thickness[i], whole);
        else
            shells_->by_section[i].add(share, whole);
    }
}

void PartSums::add_particle(double mass, const Vector& at)
{
    if (!particles_) particles_ = std::make_unique<Particles>();
    particles_->mass.add(mass, {1, at});
    particles_->number.add(1, {1, at});
}

PartSums::Sum PartSums::volume_of(const PartCount& part) const
{
    Sum volume = solids_;
    if (!shells_) return volume;
    volume.add(1, shells_->own);
    for (std::size_t i = 0; i < 4; ++i) {
        // a section that gives one thickness means it for all corners
        const double thickness = part.thickness[i] != 0 ? part.thickness[i] : part.thickness[0];
        volume.add(thickness, shells_->by_section[i]);
    }
    return volume;
}

void PartSums::give(PartCount& part) const
{
    const Sum volume = volume_of(part);
    const Particles particles = particles_ ? *particles_ : Particles{};
    Sum mass = particles.mass;
    if (part.has_density) mass.add(part.density, volume);
    part.mass = mass.size;
    part.volume = volume.size;
    if (part.has_density && part.density > 0) part.volume += particles.mass.size / part.density;
    for (const Sum& sum : {mass, volume, shells_ ? shells_->area : Sum{}, particles.number}) {
        if (sum.size == 0 || !std::isfinite(sum.size)) continue;
        part.centre = (1 / sum.size) * sum.moment;
        break;
    }
}

}  // namespace report
