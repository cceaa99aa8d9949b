#include "report/count.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <string_view>
#include <tuple>

#include "report/written_digits.h"

namespace report
{

namespace
{
// ---- what the written digits hold ----------------------------------------------------------------------------------

// Coordinates (%.13e) and masses of particles (%.8e) are written with more digits than single precision has, and both
// counts take them as single precision: they are the same bits. What is summed of them alone differs by nothing, since
// both sums run in the same order; this is left for the division at the end.
constexpr double same = 1e-12;

// Densities and thicknesses are written with three digits behind the first one (%.3e).
constexpr int definition_digits = 3;

// Of a value that is not known more closely than that, a shell's own thickness: at most half a unit of the fourth digit
// in proportion to the value.
constexpr double four_digits = 0.0005125;

// In proportion to the value.
double written_tolerance(double value)
{
    return value == 0 ? 0 : half_of_last_digit(value, definition_digits) / std::abs(value);
}

bool is_near(double a, double b, double tolerance)
{
    if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
    return a == b || std::abs(a - b) <= tolerance;
}

bool is_near_in_proportion(double a, double b, double tolerance)
{
    return is_near(a, b, tolerance * std::max(std::abs(a), std::abs(b)));
}

bool is_near_as_written(double in, double out)
{
    return is_near(in, out, half_of_last_digit(out, definition_digits));
}

// ---- words ---------------------------------------------------------------------------------------------------------

std::string text_of(std::size_t number)
{
    return std::to_string(number);
}

std::string text_of(std::int64_t number)
{
    return std::to_string(number);
}

std::string text_of(double number)
{
    char text[32];
    const auto [end, error] = std::to_chars(text, text + sizeof text, number);
    return {text, error == std::errc{} ? end : text};
}

std::string text_of(const std::array<double, 3>& point)
{
    return "(" + text_of(point[0]) + ", " + text_of(point[1]) + ", " + text_of(point[2]) + ")";
}

std::string_view words(SetKind kind)
{
    switch (kind) {
    case SetKind::node:
        return "node set";
    case SetKind::part:
        return "part set";
    case SetKind::segment:
        return "segment set";
    case SetKind::shell:
        return "shell set";
    case SetKind::solid:
        return "solid set";
    case SetKind::other:
        break;
    }
    return "element set";
}

// ---- comparing -----------------------------------------------------------------------------------------------------

class Comparison
{
public:
    Comparison(const Count& in, const Count& out, const Asked& asked) : in_(&in), out_(&out), asked_(asked) {}

    std::vector<std::string> differences()
    {
        if (asked_.geometry) mesh();
        if (asked_.geometry || asked_.main_deck) parts();
        if (asked_.sets) sets();
        return std::move(found_);
    }

private:
    template <class Value>
    void tell(const std::string& what, const Value& in, const Value& out)
    {
        found_.push_back(what + ": " + text_of(in) + " in the deck, " + text_of(out) + " in the written files");
    }

    template <class Value>
    void exact(const std::string& what, const Value& in, const Value& out)
    {
        if (in != out) tell(what, in, out);
    }

    // Of things whose number is the same.
    void identical(const std::string& what, std::size_t in, std::size_t out, std::uint64_t digest_in,
                   std::uint64_t digest_out)
    {
        if (in == out && digest_in != digest_out)
            found_.push_back(what + " are not the same in the deck and in the written files");
    }

    void mesh()
    {
        exact("nodes", in_->nodes, out_->nodes);
        exact("solids", in_->solids, out_->solids);
        exact("shells", in_->shells, out_->shells);
        exact("particles", in_->particles, out_->particles);
        identical("numbers or coordinates of nodes", in_->nodes, out_->nodes, in_->node_digest, out_->node_digest);
        identical("numbers, parts or nodes of solids", in_->solids, out_->solids, in_->solid_digest,
                  out_->solid_digest);
        identical("numbers, parts or nodes of shells", in_->shells, out_->shells, in_->shell_digest,
                  out_->shell_digest);
        identical("nodes, parts or masses of particles", in_->particles, out_->particles, in_->particle_digest,
                  out_->particle_digest);
        corner("lower corner of the bounding box", in_->box.low, out_->box.low);
        corner("upper corner of the bounding box", in_->box.high, out_->box.high);
        if (!is_near_in_proportion(in_->smallest_edge, out_->smallest_edge, same))
            tell("smallest edge", in_->smallest_edge, out_->smallest_edge);
    }

    void corner(const std::string& what, const std::array<double, 3>& in, const std::array<double, 3>& out)
    {
        for (std::size_t i = 0; i < 3; ++i)
            if (!is_near(in[i], out[i], 0)) return tell(what, in, out);
    }

    // Both lists are in the order of the numbers.
    void parts()
    {
        auto in = in_->parts.begin();
        auto out = out_->parts.begin();
        while (in != in_->parts.end() || out != out_->parts.end()) {
            if (out == out_->parts.end() || (in != in_->parts.end() && in->id < out->id))
                only_one(*in++, "the deck");
            else if (in == in_->parts.end() || out->id < in->id)
                only_one(*out++, "the written files");
            else
                part(*in++, *out++);
        }
    }

    void only_one(const PartCount& part, const std::string& where)
    {
        const bool has_elements = part.solids + part.shells + part.particles > 0;
        if ((asked_.main_deck && part.definitions > 0) || (asked_.geometry && has_elements))
            found_.push_back("part " + std::to_string(part.id) + " is only in " + where);
    }

    void part(const PartCount& in, const PartCount& out)
    {
        const std::string name = "part " + std::to_string(in.id) + ": ";
        if (asked_.main_deck) {
            exact(name + "definitions", in.definitions, out.definitions);
            exact(name + "section", in.section, out.section);
            exact(name + "material", in.material, out.material);
            if (in.has_density != out.has_density || !is_near_as_written(in.density, out.density))
                tell(name + "density", in.density, out.density);
            for (std::size_t i = 0; i < in.thickness.size(); ++i)
                if (!is_near_as_written(in.thickness[i], out.thickness[i]))
                    tell(name + "thickness t" + std::to_string(i + 1) + " of its section", in.thickness[i],
                         out.thickness[i]);
        }
        if (asked_.geometry) {
            exact(name + "solids", in.solids, out.solids);
            exact(name + "shells", in.shells, out.shells);
            exact(name + "particles", in.particles, out.particles);
        }
        if (asked_.geometry && (asked_.main_deck || (in.shells == 0 && in.particles == 0))) sizes(name, in, out);
    }

    void sizes(const std::string& name, const PartCount& in, const PartCount& out)
    {
        const double thickness = in.shells > 0 ? four_digits : 0;
        const double density = written_tolerance(out.density);
        // what particles fill is their mass by the density
        const double volume = std::max(thickness, in.particles > 0 ? density / (1 - density) : 0) + same;
        const double mass = density + thickness + density * thickness + same;
        if (!is_near_in_proportion(in.volume, out.volume, volume)) tell(name + "volume", in.volume, out.volume);
        if (asked_.main_deck && !is_near_in_proportion(in.mass, out.mass, mass)) tell(name + "mass", in.mass, out.mass);
        const double centre = centre_tolerance(in, mass);
        for (std::size_t i = 0; i < 3; ++i)
            if (!is_near(in.centre[i], out.centre[i], centre)) return tell(name + "centre", in.centre, out.centre);
    }

    // One density for all weights moves no centre. Where weights are off by at most e in proportion, each by its own,
    // it moves by at most 2 e / (1 - e) of the model's extent.
    [[nodiscard]] double centre_tolerance(const PartCount& part, double e) const
    {
        double extent = 0;
        for (std::size_t i = 0; i < 3; ++i) {
            const double size = in_->box.high[i] - in_->box.low[i];
            extent += size * size;
        }
        extent = std::sqrt(extent);
        const bool one_weight = part.shells == 0 && (part.solids == 0 || part.particles == 0);
        double tolerance = one_weight ? same * extent : 2 * e / (1 - e) * extent;
        for (const double coordinate : part.centre) tolerance = std::max(tolerance, same * std::abs(coordinate));
        return tolerance;
    }

    void sets()
    {
        std::vector<SetCount> in = in_->sets, out = out_->sets;
        const auto is_of_some = [](const SetCount& set) { return set.kind == SetKind::other; };
        if (std::any_of(out.begin(), out.end(), is_of_some)) {  // the main deck alone tells of which elements
            merge_elements(in);
            merge_elements(out);
        }
        auto a = in.begin();
        auto b = out.begin();
        const auto before = [](const SetCount& x, const SetCount& y) {
            return std::tie(x.kind, x.id) < std::tie(y.kind, y.id);
        };
        while (a != in.end() || b != out.end()) {
            if (b == out.end() || (a != in.end() && before(*a, *b)))
                found_.push_back(name_of(*a++) + " is only in the deck");
            else if (a == in.end() || before(*b, *a))
                found_.push_back(name_of(*b++) + " is only in the written files");
            else
                set(*a++, *b++);
        }
    }

    static void merge_elements(std::vector<SetCount>& sets)
    {
        for (SetCount& set : sets)
            if (set.kind == SetKind::shell || set.kind == SetKind::solid) set.kind = SetKind::other;
        std::sort(sets.begin(), sets.end(), [](const SetCount& a, const SetCount& b) {
            return std::tie(a.kind, a.id, a.members, a.digest) < std::tie(b.kind, b.id, b.members, b.digest);
        });
    }

    static std::string name_of(const SetCount& set)
    {
        return std::string(words(set.kind)) + " " + std::to_string(set.id);
    }

    void set(const SetCount& in, const SetCount& out)
    {
        exact(name_of(in) + ": members", in.members, out.members);
        identical(name_of(in) + ": members", in.members, out.members, in.digest, out.digest);
    }

    const Count* in_;
    const Count* out_;
    Asked asked_;
    std::vector<std::string> found_;
};
}  // namespace

Asked asked_for(const std::vector<std::pair<std::string, int>>& settings)
{
    Asked asked;
    for (const auto& [name, value] : settings) {
        if (name == "cardflag") asked.main_deck = value == 1;
        if (name == "geomflag") asked.geometry = value == 1;
        if (name == "setflag") asked.sets = value == 1;
    }
    return asked;
}

std::vector<std::string> differences(const Count& in, const Count& out, const Asked& asked)
{
    return Comparison(in, out, asked).differences();
}

}  // namespace report
