// Decks that people really wrote, from the folder that MORVEX_REAL_DECKS names. Without one, ctest has none of these
// tests.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <climits>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "support/runs.h"

namespace fs = std::filesystem;

namespace
{
class RealDecks : public testing::Test
{
protected:
    void SetUp() override
    {
        const char* const folder = std::getenv("MORVEX_REAL_DECKS");
        ASSERT_TRUE(folder != nullptr && fs::is_directory(folder)) << "MORVEX_REAL_DECKS names no folder";
        for (const auto& entry : fs::directory_iterator(folder))
            if (entry.is_regular_file() && entry.path().extension() != ".md")
                decks_.push_back(fs::canonical(entry.path()));
        std::sort(decks_.begin(), decks_.end());
        ASSERT_FALSE(decks_.empty());
    }

    [[nodiscard]] const std::vector<fs::path>& decks() const { return decks_; }

private:
    std::vector<fs::path> decks_;
};

// ---- the geometry file as a plain program makes it: every line by itself, every field by the rule ------------------

std::string upper(std::string_view line)
{
    std::string text(line.substr(0, 49));
    for (char& c : text) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
    return text;
}

std::vector<std::string_view> lines_of(std::string_view text)
{
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const std::size_t length = std::min(text.find('\n'), text.size());
        lines.push_back(text.substr(0, length));
        text.remove_prefix(std::min(length + 1, text.size()));
    }
    return lines;
}

// A card's fields one after the other.
class Fields
{
public:
    explicit Fields(std::string_view line) : line_(line) {}

    double number(std::size_t width)
    {
        if (line_.size() < width) line_ = {};
        if (line_.empty()) return 0;
        const std::string field(line_.substr(0, width));
        line_.remove_prefix(width);
        return field.back() == ' ' ? 0 : std::atof(field.c_str());
    }

    long long_integer(std::size_t width) { return whole<long>(number(width)); }
    int integer(std::size_t width) { return whole<int>(number(width)); }
    double real(std::size_t width) { return static_cast<double>(static_cast<float>(number(width))); }

private:
    template <class Integer>
    static Integer whole(double value)
    {
        constexpr double limit = sizeof(Integer) == 8 ? 9223372036854775808.0 : 2147483648.0;
        const bool inside = value > -limit - 1 && value < limit;
        return inside ? static_cast<Integer>(value) : (sizeof(Integer) == 8 ? static_cast<Integer>(LONG_MIN) : INT_MIN);
    }

    std::string_view line_;
};

[[gnu::format(printf, 1, 2)]] std::string formatted(const char* format, ...)
{
    char text[400];
    std::va_list values;
    va_start(values, format);
    std::vsnprintf(text, sizeof text, format, values);
    va_end(values);
    return text;
}

std::string node_row(std::string_view card, std::string_view)
{
    Fields f(card);
    const long long nid = f.long_integer(8);
    const double x = f.real(16);
    const double y = f.real(16);
    const double z = f.real(16);
    const int tc = f.integer(8);
    const int rc = f.integer(8);
    return formatted("%8lli %20.13e %20.13e %20.13e %5i %5i\n", nid, x, y, z, tc, rc);
}

std::string shell_row(std::string_view card, std::string_view)
{
    Fields f(card);
    long long n[6];
    for (long long& number : n) number = f.long_integer(8);
    return formatted("%8lli %8lli %10lli %10lli %10lli %10lli\n", n[0], n[1], n[2], n[3], n[4], n[5]) +
           "        0.000e+00  0.000e+00  0.000e+00  0.000e+00  0.000e+00\n";
}

std::string thick_shell_row(std::string_view card, std::string_view second)
{
    Fields f(card);
    int n[6];
    for (int& number : n) number = f.integer(8);
    Fields g(second);
    double t[5];
    for (double& thickness : t) thickness = g.real(16);
    return formatted("%8i %8i %10i %10i %10i %10i\n", n[0], n[1], n[2], n[3], n[4], n[5]) +
           formatted("%6s %10.3e %10.3e %10.3e %10.3e %10.3e\n", " ", t[0], t[1], t[2], t[3], t[4]);
}

std::string solid_row(std::string_view card, std::string_view)
{
    Fields f(card);
    long long n[10];
    for (long long& number : n) number = f.long_integer(8);
    return formatted("%8lli %8lli %8lli %8lli %8lli %8lli %8lli %8lli %8lli %8lli\n", n[0], n[1], n[2], n[3], n[4],
                     n[5], n[6], n[7], n[8], n[9]);
}

std::string particle_row(std::string_view card, std::string_view)
{
    Fields f(card);
    const int nid = f.integer(8);
    const int pid = f.integer(8);
    const double mass = f.real(16);
    return formatted("%8i %8i %16.8e\n", nid, pid, mass);
}

using RowWriter = std::string (*)(std::string_view card, std::string_view second);

struct Row {
    std::string_view prefix;
    RowWriter write;  // null: the block is skipped
};

struct Kind {
    std::string heading;
    std::vector<Row> rows;
};

const std::vector<Kind>& kinds()
{
    static const std::vector<Kind> all = {
        {"\nNode Definition:\n"
         "!--- nid                    x                    y                    z    tc    rc\n",
         {{"*NODE_RIGID", nullptr}, {"*NODE_SCALAR", nullptr}, {"*NODE_TRANSFORM", nullptr}, {"*NODE", node_row}}},
        {"\n Shell Element Definition:\n"
         "!--- eid      pid         n1         n2         n3         n4\n"
         "!------------- t1         t2         t3         t4       beta\n",
         {{"*ELEMENT_SHELL_BETA", thick_shell_row},
          {"*ELEMENT_SHELL_DOF", nullptr},
          {"*ELEMENT_SHELL_MCID", nullptr},
          {"*ELEMENT_SHELL_OFFSET", nullptr},
          {"*ELEMENT_SHELL_THICKNESS", thick_shell_row},
          {"*ELEMENT_SHELL", shell_row}}},
        {"\n Solid Element Definition:\n"
         "!--- eid      pid       n1       n2       n3       n4       n5       n6       n7       n8\n",
         {{"*ELEMENT_SOLID_ORTHO", nullptr},
          {"*ELEMENT_SOLID_DOF", nullptr},
          {"*ELEMENT_SOLID_TET", nullptr},
          {"*ELEMENT_SOLID", solid_row}}},
        {"\n SPH Element Definition:\n"
         "!--- nid      pid             mass\n",
         {{"*ELEMENT_SPH", particle_row}}},
    };
    return all;
}

// What the geometry file must hold, and how many cards it was made from.
struct Geometry {
    std::string text;
    std::size_t cards = 0;
};

Geometry plain_geometry(std::string_view deck)
{
    const std::vector<std::string_view> lines = lines_of(deck);
    const std::string rule = "!" + std::string(48, '-') + "\n";
    Geometry geometry{rule + "! Geometry Definitions\n" + rule, 0};
    for (const Kind& kind : kinds()) {
        std::size_t of_kind = 0;
        std::size_t at = 0;
        const auto skip_comments = [&] {
            while (at < lines.size() && lines[at].starts_with('$')) ++at;
        };
        while (at < lines.size()) {
            const std::string_view line = lines[at++];
            if (!line.starts_with('*')) continue;
            const std::string keyword = upper(line);
            if (keyword.starts_with("*END")) break;
            const auto row = std::find_if(kind.rows.begin(), kind.rows.end(),
                                          [&](const Row& r) { return keyword.starts_with(r.prefix); });
            if (row == kind.rows.end() || row->write == nullptr) continue;
            if (of_kind == 0) geometry.text += kind.heading;
            for (skip_comments(); at < lines.size() && !lines[at].starts_with('*'); skip_comments()) {
                const std::string_view card = lines[at++];
                std::string_view second;
                if (row->write == thick_shell_row) {
                    skip_comments();
                    if (at < lines.size()) second = lines[at++];
                }
                geometry.text += row->write(card, second);
                ++of_kind;
            }
        }
        geometry.cards += of_kind;
    }
    geometry.text += "\n\n";
    return geometry;
}

// ---- runs ----------------------------------------------------------------------------------------------------------

using Outputs = std::vector<std::pair<std::string, std::string>>;

// Converts the deck, in a folder of its own, with every flag on.
Outputs convert_deck(const fs::path& deck, const std::string& command = program(), int stndflag = 0, int contflag = 1)
{
    const TemporaryFolder folder;
    fs::create_symlink(deck, "model.k");
    write_file("input.morvex", every_flag("model.k", stndflag, contflag));
    const Outcome outcome = run_command(command);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(files(), "accel_def.kinc debug.morvex input.morvex keywords.k model.card model.geom model.k model.sets");
    EXPECT_TRUE(contents("debug.morvex").ends_with("\n **************** FINISHED **************** \n"));
    return outputs("model.");
}

// Of large decks not every combination is tried, to keep the tests short.
bool is_large(const fs::path& deck)
{
    return fs::file_size(deck) > 500'000;
}

// The names of the outputs that differ: the outputs themselves are too long to be shown.
std::string difference(const Outputs& one, const Outputs& other)
{
    std::string names;
    for (std::size_t i = 0; i < one.size(); ++i)
        if (one[i] != other[i]) names += one[i].first + " ";
    return names;
}

std::string geometry_of(const Outputs& written)
{
    for (const auto& [name, text] : written)
        if (name == "model.geom") return text;
    return "no geometry file";
}
}  // namespace

TEST_F(RealDecks, GeometryEqualsAPlainConversionWhateverTheOtherFlags)
{
    std::size_t cards = 0;
    for (const fs::path& deck : decks()) {
        SCOPED_TRACE(deck.filename());
        const Geometry geometry = plain_geometry(contents(deck));
        cards += geometry.cards;
        for (const int stndflag : {0, 1, 2}) {
            for (const int contflag : {1, 2}) {
                if (is_large(deck) && (stndflag + contflag) % 2 == 0) continue;
                const std::string written = geometry_of(convert_deck(deck, program(), stndflag, contflag));
                EXPECT_TRUE(written == geometry.text) << "stndflag " << stndflag << ", contflag " << contflag;
            }
        }
    }
    EXPECT_GT(cards, 0u);
}

TEST_F(RealDecks, WindowDoesNotChangeAByte)
{
    for (const fs::path& deck : decks()) {
        SCOPED_TRACE(deck.filename());
        const Outputs written = convert_deck(deck);
        EXPECT_EQ(difference(convert_deck(deck, tiny_window_program()), written), "");
    }
}

TEST_F(RealDecks, ConvertingTwiceWritesTheSame)
{
    for (const fs::path& deck : decks()) {
        SCOPED_TRACE(deck.filename());
        const TemporaryFolder folder;
        fs::create_symlink(deck, "model.k");
        write_file("input.morvex", every_flag("model.k"));
        EXPECT_EQ(run_command(program()).status, 0);
        const Outputs first = outputs("model.");
        EXPECT_EQ(run_command(program(), "yes\n").status, 0);
        EXPECT_EQ(difference(outputs("model."), first), "");
    }
}

TEST_F(RealDecks, LocaleAndTimeZoneDoNotMatter)
{
    for (const fs::path& deck : decks()) {
        if (is_large(deck)) continue;
        SCOPED_TRACE(deck.filename());
        const Outputs written = convert_deck(deck);
        for (const char* surroundings : {"LC_ALL=de_DE.UTF-8 TZ=Pacific/Auckland ", "LC_ALL=tr_TR TZ=Etc/GMT+12 "})
            EXPECT_EQ(difference(convert_deck(deck, surroundings + program()), written), "") << surroundings;
    }
}
