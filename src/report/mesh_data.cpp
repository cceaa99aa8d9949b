#include "report/mesh_data.h"

#include <array>
#include <bit>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <ostream>
#include <string>
#include <string_view>

#include "report/page_text.h"

namespace report
{

namespace
{
// Calls `visit.reals` or `visit.whole` for each array, with its name; of whole numbers with how far apart those lie
// that are much alike, how many there are, and a function from place to number.
template <class Visit>
void each_array(const Surface& surface, Visit& visit)
{
    visit.reals("positions", surface.positions);
    visit.whole("node_numbers", 1, surface.node_numbers.size(), [&](std::size_t i) { return surface.node_numbers[i]; });
    visit.whole("element_numbers", 1, surface.element_numbers.size(),
                [&](std::size_t i) { return surface.element_numbers[i]; });
    visit.whole("element_corners", 8, 8 * surface.corners.size(),
                [&](std::size_t i) { return surface.corners[i / 8][i % 8]; });
    visit.whole("faces", 4, 4 * surface.faces.size(), [&](std::size_t i) { return surface.faces[i / 4][i % 4]; });
    visit.whole("face_elements", 1, surface.face_elements.size(),
                [&](std::size_t i) { return surface.face_elements[i]; });
    visit.whole("particles", 1, surface.particles.size(), [&](std::size_t i) { return surface.particles[i]; });
    visit.whole("particle_numbers", 1, surface.particle_numbers.size(),
                [&](std::size_t i) { return surface.particle_numbers[i]; });
    visit.whole("members", 1, surface.members.size(), [&](std::size_t i) { return surface.members[i]; });
}

// Calls `take` with each byte of the packed numbers.
template <class NumberAt, class Take>
void pack(std::size_t apart, std::size_t count, const NumberAt& number_at, const Take& take)
{
    for (std::size_t i = 0; i < count; ++i) {
        const auto number = static_cast<std::uint32_t>(number_at(i));
        const std::uint32_t before = i < apart ? 0 : static_cast<std::uint32_t>(number_at(i - apart));
        const std::uint32_t difference = number - before;
        std::uint32_t rest = (difference << 1U) ^ (difference >> 31U != 0 ? ~std::uint32_t{0} : 0);
        for (; rest > 127; rest >>= 7U) take(static_cast<std::uint8_t>((rest & 127U) | 128U));
        take(static_cast<std::uint8_t>(rest));
    }
}

class Size
{
public:
    std::size_t bytes = 0;

    // Positions come last, and their number is known before.
    void reals(std::string_view /*name*/, const std::vector<float>& /*numbers*/) {}

    template <class NumberAt>
    void whole(std::string_view name, std::size_t apart, std::size_t count, const NumberAt& number_at)
    {
        if (name != "members") pack(apart, count, number_at, [this](std::uint8_t /*byte*/) { ++bytes; });
    }
};

class Header
{
public:
    nlohmann::ordered_json arrays = nlohmann::ordered_json::object();

    void reals(const std::string& name, const std::vector<float>& /*numbers*/)
    {
        arrays[name] = {{"type", "f32"}, {"element", "mesh-" + name}};
    }

    template <class NumberAt>
    void whole(const std::string& name, std::size_t apart, std::size_t count, const NumberAt& /*number_at*/)
    {
        arrays[name] = {{"type", "u8"}, {"element", "mesh-" + name}, {"packed", apart}, {"count", count}};
    }
};

class Base64
{
public:
    explicit Base64(std::ostream& stream) : stream_(&stream) {}

    void take(std::uint8_t byte)
    {
        bits_ = (bits_ << 8U) | byte;
        if (++bytes_ == 3) flush(4);
    }

    void finish()
    {
        if (bytes_ > 0) {
            const std::size_t digits = bytes_ + 1;
            bits_ <<= 8 * (3 - bytes_);
            flush(digits);
            text_.append(4 - digits, '=');
        }
        *stream_ << text_;
        text_.clear();
    }

private:
    void flush(std::size_t digits)
    {
        constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
        for (std::size_t i = 0; i < digits; ++i) text_ += alphabet[(bits_ >> (18 - 6 * i)) & 63U];
        bits_ = 0;
        bytes_ = 0;
        constexpr std::size_t piece = 65536;
        if (text_.size() < piece) return;
        *stream_ << text_;
        text_.clear();
    }

    std::ostream* stream_;
    std::uint32_t bits_ = 0;
    std::size_t bytes_ = 0;
    std::string text_;
};

class Write
{
public:
    explicit Write(std::ostream& stream) : stream_(&stream) {}

    void reals(std::string_view name, const std::vector<float>& numbers)
    {
        element(name, [&](Base64& base64) {
            for (const float number : numbers) {
                const auto bits = std::bit_cast<std::uint32_t>(number);
                for (unsigned shift = 0; shift < 32; shift += 8) base64.take(static_cast<std::uint8_t>(bits >> shift));
            }
        });
    }

    template <class NumberAt>
    void whole(std::string_view name, std::size_t apart, std::size_t count, const NumberAt& number_at)
    {
        element(name, [&](Base64& base64) {
            pack(apart, count, number_at, [&base64](std::uint8_t byte) { base64.take(byte); });
        });
    }

private:
    template <class WriteArray>
    void element(std::string_view name, const WriteArray& write)
    {
        *stream_ << R"(<script type="text/plain" id="mesh-)" << name << "\">";
        Base64 base64(*stream_);
        write(base64);
        base64.finish();
        *stream_ << "</script>\n";
    }

    std::ostream* stream_;
};

const char* word(SetKind kind)
{
    switch (kind) {
    case SetKind::node:
        return "node";
    case SetKind::part:
        return "part";
    case SetKind::segment:
        return "segment";
    case SetKind::shell:
        return "shell";
    case SetKind::solid:
        return "solid";
    case SetKind::other:
        break;
    }
    return "other";
}

nlohmann::ordered_json header_of(const Surface& surface)
{
    nlohmann::ordered_json header;
    header["all_faces"] = surface.all_faces;
    header["all_particles"] = surface.all_particles;
    header["solids"] = surface.solids;
    header["parts"] = nlohmann::ordered_json::array();
    for (const Surface::Part& part : surface.parts)
        header["parts"].push_back({{"id", part.id},
                                   {"title", part.title},
                                   {"section", part.section},
                                   {"material", part.material},
                                   {"outcome", part.outcome},
                                   {"first_face", part.first_face},
                                   {"faces", part.faces},
                                   {"first_particle", part.first_particle},
                                   {"particles", part.particles}});
    header["sets"] = nlohmann::ordered_json::array();
    for (const Surface::Members& set : surface.sets)
        header["sets"].push_back({{"title", set.title},
                                  {"kind", word(set.kind)},
                                  {"id", set.id},
                                  {"first", set.first},
                                  {"count", set.count},
                                  {"all", set.all},
                                  {"laid", set.laid}});
    Header arrays;
    each_array(surface, arrays);
    header["arrays"] = std::move(arrays.arrays);
    return header;
}
}  // namespace

std::size_t mesh_size(const Surface& surface)
{
    Size size;
    each_array(surface, size);
    return size.bytes + 3 * sizeof(float) * surface.node_numbers.size();
}

void write_mesh_data(std::ostream& stream, const Surface& surface)
{
    stream << R"(<script type="application/json" id="mesh">)" << in_script(header_of(surface)) << "</script>\n";
    Write write(stream);
    each_array(surface, write);
}

}  // namespace report
