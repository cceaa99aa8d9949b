// The mesh in the page is the surface, and no text in it is markup.
#include "report/mesh_data.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

#include "report/small_mesh.h"

namespace
{
using nlohmann::json;
using report::Surface;

std::string page_of(const Surface& surface)
{
    std::ostringstream stream;
    report::write_mesh_data(stream, surface);
    return stream.str();
}

std::string element(const std::string& page, const std::string& id)
{
    const std::string mark = "id=\"" + id + "\">";
    const std::size_t begin = page.find(mark);
    if (begin == std::string::npos) return "";
    return page.substr(begin + mark.size(), page.find("</script>", begin) - begin - mark.size());
}

std::vector<std::uint8_t> bytes_of(const std::string& base64)
{
    constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    EXPECT_EQ(base64.size() % 4, 0U);
    std::vector<std::uint8_t> bytes;
    std::uint32_t bits = 0;
    int count = 0;
    for (const char digit : base64) {
        if (digit == '=') break;
        bits = bits << 6U | static_cast<std::uint32_t>(alphabet.find(digit));
        if ((count += 6) < 8) continue;
        count -= 8;
        bytes.push_back(static_cast<std::uint8_t>(bits >> static_cast<unsigned>(count)));
    }
    return bytes;
}

std::vector<std::int64_t> unpacked(const std::vector<std::uint8_t>& bytes, std::size_t apart)
{
    std::vector<std::int64_t> numbers;
    std::uint64_t value = 0;
    unsigned shift = 0;
    for (const std::uint8_t byte : bytes) {
        value |= std::uint64_t{byte & 127U} << shift;
        shift += 7;
        if (byte > 127) continue;
        const auto half = static_cast<std::int64_t>(value / 2);
        const std::int64_t difference = value % 2 == 0 ? half : -half - 1;
        const std::int64_t before = numbers.size() < apart ? 0 : numbers[numbers.size() - apart];
        numbers.push_back(static_cast<std::int32_t>(static_cast<std::uint32_t>(before + difference)));
        value = 0;
        shift = 0;
    }
    return numbers;
}

std::vector<std::int64_t> whole(const std::string& page, const std::string& name)
{
    const json about = json::parse(element(page, "mesh"))["arrays"][name];
    EXPECT_EQ(about["type"], "u8");
    const auto numbers =
        unpacked(bytes_of(element(page, about["element"].get<std::string>())), about["packed"].get<std::size_t>());
    EXPECT_EQ(numbers.size(), about["count"].get<std::size_t>());
    return numbers;
}

template <class Rows>
std::vector<std::int64_t> flat(const Rows& rows)
{
    std::vector<std::int64_t> numbers;
    for (const auto& row : rows) numbers.insert(numbers.end(), row.begin(), row.end());
    return numbers;
}

template <class Number>
std::vector<std::int64_t> wide(const std::vector<Number>& numbers)
{
    return {numbers.begin(), numbers.end()};
}

TEST(MeshData, HoldsTheSurface)
{
    SmallMesh mesh;
    mesh.block({9, 4, 3}, 2, {0.1, 0.2, 0.3});
    mesh.shell(700, 3, {1, 2, 12, 11});
    mesh.particle(5, 8);
    mesh.sets = {{report::SetKind::node, 6, "Rim", {{1}, {2}, {60}}}};
    const Surface surface = mesh.surface();
    const std::string page = page_of(surface);
    EXPECT_EQ(whole(page, "node_numbers"), wide(surface.node_numbers));
    EXPECT_EQ(whole(page, "element_numbers"), wide(surface.element_numbers));
    EXPECT_EQ(whole(page, "element_corners"), flat(surface.corners));
    EXPECT_EQ(whole(page, "faces"), flat(surface.faces));
    EXPECT_EQ(whole(page, "face_elements"), wide(surface.face_elements));
    EXPECT_EQ(whole(page, "particles"), wide(surface.particles));
    EXPECT_EQ(whole(page, "particle_numbers"), wide(surface.particle_numbers));
    EXPECT_EQ(whole(page, "members"), wide(surface.members));
    const auto bytes = bytes_of(element(page, "mesh-positions"));
    ASSERT_EQ(bytes.size(), 4 * surface.positions.size());
    EXPECT_EQ(std::memcmp(bytes.data(), surface.positions.data(), bytes.size()), 0);  // on a little-endian machine

    const json header = json::parse(element(page, "mesh"));
    EXPECT_EQ(header["solids"], surface.solids);
    EXPECT_EQ(header["all_faces"], surface.all_faces);
    EXPECT_EQ(header["all_particles"], 1);
    ASSERT_EQ(header["parts"].size(), 3U);
    EXPECT_EQ(header["parts"][1]["id"], 3);
    EXPECT_EQ(header["parts"][1]["first_face"], surface.parts[1].first_face);
    EXPECT_EQ(header["parts"][1]["faces"], 1);
    EXPECT_EQ(header["sets"][0]["title"], "Rim");
    EXPECT_EQ(header["sets"][0]["kind"], "node");
    EXPECT_EQ(header["sets"][0]["count"], 3);
}

TEST(MeshData, HoldsNumbersOfAnySize)
{
    Surface surface;
    surface.node_numbers = {-2147483647 - 1, 2147483647, -1, 0, 1, 2147483647, -2147483647 - 1};
    EXPECT_EQ(whole(page_of(surface), "node_numbers"), wide(surface.node_numbers));
}

TEST(MeshData, EndsArraysOfAnyLength)
{
    for (std::size_t count = 0; count <= 5; ++count) {
        Surface surface;
        surface.node_numbers.assign(count, 5);
        EXPECT_EQ(whole(page_of(surface), "node_numbers"), wide(surface.node_numbers));
    }
}

TEST(MeshData, IsAsLargeAsItSays)
{
    SmallMesh mesh;
    mesh.block({9, 9, 9}, 2);
    const Surface surface = mesh.surface();
    const std::string page = page_of(surface);
    std::size_t size = 0;
    const json header = json::parse(element(page, "mesh"));
    for (const auto& [name, about] : header["arrays"].items())
        size += bytes_of(element(page, about["element"].get<std::string>())).size();
    EXPECT_EQ(report::mesh_size(surface), size);
}

TEST(MeshData, TakesNoTitleForMarkup)
{
    Surface surface;
    surface.parts.push_back({.id = 1, .title = "</script><b>&\xFF"});
    surface.sets.push_back({.title = "<!-- \xE2\x80\xA8"});
    const std::string page = page_of(surface);
    EXPECT_EQ(page.find("</script><b>"), std::string::npos);
    EXPECT_EQ(page.find("<!--"), std::string::npos);
    const json header = json::parse(element(page, "mesh"));
    EXPECT_EQ(header["parts"][0]["title"], "</script><b>&\xEF\xBF\xBD");
    EXPECT_EQ(header["sets"][0]["title"], "<!-- \xE2\x80\xA8");
}
}  // namespace
