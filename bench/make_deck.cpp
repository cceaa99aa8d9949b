// Writes keyword decks of any size for measuring: right-aligned cards in the shapes that pre-processors write, the same
// bytes for the same arguments on every machine.
//
//     make_deck --mix 140 --input input.morvex mix.k
//     make_deck --nodes 1000000 --solids 1000000 --seed 7 mesh.k
//     make_deck --bricks 1000000 cube.k
#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace
{
using Count = std::uint64_t;

// ---- arguments -----------------------------------------------------------------------------------------------------

struct Sizes {
    Count nodes = 0;
    Count solids = 0;
    Count shells = 0;
    Count thick_shells = 0;
    Count particles = 0;
    Count node_sets = 0;
    Count part_sets = 0;
    Count segment_sets = 0;
    Count shell_sets = 0;
    Count solid_sets = 0;
    Count members = 1000;
    Count keywords = 0;
    Count parts = 0;
    Count beams = 0;
    Count bricks = 0;
    Count curve_points = 0;
    Count block = 250'000;
    Count lower_case = 0;
    Count seed = 1;
};

struct Option {
    std::string_view name;
    Count Sizes::*size;
    const char* what;
};

constexpr Option options[] = {
    {"--nodes", &Sizes::nodes, "*NODE cards"},
    {"--solids", &Sizes::solids, "*ELEMENT_SOLID cards"},
    {"--shells", &Sizes::shells, "*ELEMENT_SHELL cards"},
    {"--thick-shells", &Sizes::thick_shells, "elements of *ELEMENT_SHELL_THICKNESS, two cards each"},
    {"--particles", &Sizes::particles, "*ELEMENT_SPH cards"},
    {"--node-sets", &Sizes::node_sets, "node sets"},
    {"--part-sets", &Sizes::part_sets, "part sets, of at most 20 members"},
    {"--segment-sets", &Sizes::segment_sets, "segment sets"},
    {"--shell-sets", &Sizes::shell_sets, "shell sets"},
    {"--solid-sets", &Sizes::solid_sets, "solid sets"},
    {"--members", &Sizes::members, "members of each set (1000)"},
    {"--keywords", &Sizes::keywords, "small keyword blocks of one card or a few, of ten kinds in turn, none a *PART"},
    {"--parts", &Sizes::parts, "parts, three blocks each: *PART, *SECTION_SOLID, *MAT_ELASTIC"},
    {"--bricks", &Sizes::bricks, "bricks of a whole mesh in ten parts, a cube of as many; not beside other mesh"},
    {"--beams", &Sizes::beams, "*ELEMENT_BEAM cards"},
    {"--curve-points", &Sizes::curve_points, "points of one *DEFINE_CURVE"},
    {"--block", &Sizes::block, "most cards of a node or element block (250000)"},
    {"--lower-case", &Sizes::lower_case, "1: the keyword lines of node, element and set blocks in lower case (0)"},
    {"--seed", &Sizes::seed, "seed of all that is random (1)"},
};

// A deck of about so many million bytes, of everything that bulk data consists of.
Sizes mix(Count megabytes)
{
    const double bytes = 1e6 * static_cast<double>(megabytes);
    const auto share = [=](double part, double bytes_each) { return static_cast<Count>(bytes * part / bytes_each); };
    Sizes sizes;
    sizes.members = 2000;
    const auto members = static_cast<double>(sizes.members);
    sizes.nodes = share(0.36, 73);
    sizes.solids = share(0.28, 81);
    sizes.shells = share(0.10, 81);
    sizes.thick_shells = share(0.08, 162);
    sizes.particles = share(0.05, 33);
    sizes.node_sets = share(0.05, members / 8 * 81);
    sizes.segment_sets = share(0.04, members * 81);
    sizes.shell_sets = share(0.02, members / 8 * 81);
    sizes.solid_sets = share(0.02, members / 8 * 81);
    sizes.part_sets = 10;
    return sizes;
}

Sizes mesh()
{
    Sizes sizes;
    sizes.nodes = 1'000'000;
    sizes.solids = 1'000'000;
    return sizes;
}

// ---- random numbers ------------------------------------------------------------------------------------------------

// The "splitmix" generator: small, and the same everywhere, which the standard distributions are not.
class Random
{
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    // 0 to limit - 1
    Count below(Count limit) { return next() % limit; }

private:
    std::uint64_t next()
    {
        std::uint64_t mixed = state_ += 0x9e3779b97f4a7c15;
        mixed = (mixed ^ (mixed >> 30)) * 0xbf58476d1ce4e5b9;
        mixed = (mixed ^ (mixed >> 27)) * 0x94d049bb133111eb;
        return mixed ^ (mixed >> 31);
    }

    std::uint64_t state_;
};

// ---- output --------------------------------------------------------------------------------------------------------

class Deck
{
public:
    explicit Deck(const char* name) : file_(std::fopen(name, "wb")) { buffer_.reserve(capacity + longest_line); }
    ~Deck() { close(); }
    Deck(const Deck&) = delete;
    Deck& operator=(const Deck&) = delete;

    // False when the file could not be created or written.
    bool close()
    {
        flush();
        if (file_ != nullptr && std::fclose(file_) != 0) good_ = false;
        const bool created = file_ != nullptr;
        file_ = nullptr;
        return created && good_;
    }

    Deck& text(std::string_view characters)
    {
        buffer_.append(characters);
        return *this;
    }
    void line(std::string_view characters)
    {
        text(characters);
        end();
    }

    // Right-aligned in the width.
    Deck& field(std::string_view characters, std::size_t width)
    {
        if (characters.size() < width) buffer_.append(width - characters.size(), ' ');
        return text(characters);
    }
    Deck& integer(Count value, std::size_t width)
    {
        std::array<char, 20> digits{};
        const auto* end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
        return field({digits.data(), end}, width);
    }

    void end()
    {
        buffer_ += '\n';
        if (buffer_.size() >= capacity) flush();
    }

private:
    static constexpr std::size_t capacity = std::size_t{1} << 18;
    static constexpr std::size_t longest_line = 1024;

    void flush()
    {
        if (file_ != nullptr && std::fwrite(buffer_.data(), 1, buffer_.size(), file_) != buffer_.size()) good_ = false;
        buffer_.clear();
    }

    std::FILE* file_;
    std::string buffer_;
    bool good_ = true;
};

// ---- real fields ---------------------------------------------------------------------------------------------------

// Digits of a value, the last `count` of them.
void put_digits(std::string& to, Count value, int count)
{
    std::array<char, 20> digits{};
    for (int i = count; i-- > 0; value /= 10) digits[static_cast<std::size_t>(i)] = static_cast<char>('0' + value % 10);
    to.append(digits.data(), static_cast<std::size_t>(count));
}

// As "%16.7f": a coordinate of so many ten-millionths.
std::string fixed_point(std::int64_t ten_millionths)
{
    std::string field = ten_millionths < 0 ? "-" : "";
    const auto size = static_cast<Count>(ten_millionths < 0 ? -ten_millionths : ten_millionths);
    field += std::to_string(size / 10'000'000);
    field += '.';
    put_digits(field, size % 10'000'000, 7);
    return field;
}

// As "%16.8e": random digits, with an exponent of least to least + span - 1.
std::string scientific(Random& random, bool negative, int least, Count span)
{
    std::string field = negative ? "-" : "";
    field += static_cast<char>('1' + random.below(9));
    field += '.';
    put_digits(field, random.below(100'000'000), 8);
    const int exponent = least + static_cast<int>(random.below(span));
    field += exponent < 0 ? "e-" : "e+";
    put_digits(field, static_cast<Count>(std::abs(exponent)), 2);
    return field;
}

// A coordinate: most in decimal form, some with an exponent, some whole or half numbers, as decks from several sources
// hold them.
std::string coordinate(Random& random, Count grid_index)
{
    constexpr std::int64_t spacing = 25'000'000;  // 2.5
    const auto on_grid = static_cast<std::int64_t>(grid_index) * spacing - 100 * spacing;
    const Count form = random.below(20);
    if (form < 12) return fixed_point(on_grid + static_cast<std::int64_t>(random.below(20'000'000)) - 10'000'000);
    if (form < 16) return scientific(random, on_grid < 0, -6, 9);
    if (form < 18) return "0.0";
    const std::int64_t tenths = on_grid / 1'000'000;
    const std::string whole = std::to_string(tenths / 10);
    return form < 19 ? whole
                     : (tenths < 0 && tenths > -10 ? "-0." : whole + ".") + std::to_string(std::abs(tenths % 10));
}

// ---- the deck's contents -------------------------------------------------------------------------------------------

// The bricks that the solids, the shells and the segments are cut from: node numbers of a block with equal sides.
class Grid
{
public:
    explicit Grid(Count nodes) : nodes_(std::max<Count>(nodes, 8))
    {
        side_ = std::max<Count>(2, static_cast<Count>(std::cbrt(static_cast<double>(nodes_))));
    }

    [[nodiscard]] Count nodes() const { return nodes_; }
    [[nodiscard]] std::array<Count, 3> place(Count node) const
    {
        return {node % side_, node / side_ % side_, node / side_ / side_};
    }

    // The corners of a cell; the first four make a quadrilateral.
    [[nodiscard]] std::array<Count, 8> corners(Count cell) const
    {
        const Count up = side_ * side_;
        std::array<Count, 8> corners = {0, 1, side_ + 1, side_, up, up + 1, up + side_ + 1, up + side_};
        for (Count& corner : corners) corner = 1 + (cell + corner) % nodes_;
        return corners;
    }

private:
    Count nodes_;
    Count side_ = 2;
};

class Writer
{
public:
    Writer(Deck& deck, const Sizes& sizes) : deck_(deck), sizes_(sizes), grid_(sizes.nodes), random_(sizes.seed) {}

    void write()
    {
        head();
        many_keywords();
        parts();
        curve();
        beams();
        bricks();
        nodes();
        solids();
        shells();
        thick_shells();
        particles();
        sets();
        deck_.line("*END");
    }

private:
    // The line of a node, element or set block.
    void bulk_keyword(std::string_view keyword)
    {
        std::string text(keyword);
        if (sizes_.lower_case != 0)
            for (char& c : text) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
        deck_.line(text);
    }

    // The cards of one kind, in blocks; `card` takes the number of a card, from 0.
    template <class Card>
    void blocks(std::string_view keyword, std::string_view comment, Count count, Card card)
    {
        for (Count done = 0; done < count; ++done) {
            if (done % std::max<Count>(sizes_.block, 1) == 0) {
                bulk_keyword(keyword);
                deck_.line(comment);
            }
            card(done);
        }
    }

    // What a model has besides its mesh.
    void head()
    {
        deck_.line("$# a generated deck");
        deck_.line("*KEYWORD");
        deck_.line("*TITLE");
        deck_.line("generated deck for measuring");
        deck_.line("*CONTROL_TERMINATION");
        deck_.line("$#  endtim    endcyc     dtmin    endeng    endmas");
        deck_.line("     0.002         0       0.0       0.0       0.0");
        deck_.line("*CONTROL_TIMESTEP");
        deck_.line("$#  dtinit    tssfac      isdo    tslimt     dt2ms      lctm");
        deck_.line("       0.0       0.9         0       0.0       0.0         0");
        deck_.line("*DATABASE_BINARY_D3PLOT");
        deck_.line("$#      dt      lcdt");
        deck_.line("    0.0001         0");
        deck_.line("*SECTION_SOLID");
        deck_.line("$#   secid    elform");
        deck_.line("         1         1");
        deck_.line("*SECTION_SHELL");
        deck_.line("$#   secid    elform      shrf       nip");
        deck_.line("         2         2       1.0         3");
        deck_.line("$#      t1        t2        t3        t4");
        deck_.line("       1.5       1.5       1.5       1.5");
        deck_.line("*SECTION_SPH");
        deck_.line("$#   secid      cslh      hmin      hmax");
        deck_.line("         3       1.2       0.2       2.0");
        deck_.line("*MAT_ELASTIC");
        deck_.line("$#     mid        ro         e        pr");
        deck_.line("         1 7.850e-09  210000.0       0.3");
        for (Count part = 1; part <= 3; ++part) write_part(part, part, 1);
        deck_.line("*BOUNDARY_SPC_SET");
        deck_.line("$#    nsid       cid      dofx      dofy      dofz     dofrx     dofry     dofrz");
        deck_.line("         1         0         1         1         1         0         0         0");
        deck_.line("*INITIAL_VELOCITY_GENERATION");
        deck_.line("$#nsid/pid      styp     omega        vx        vy        vz     ivatn      icid");
        deck_.line("         1         2       0.0       0.0       0.0  -12500.0         0         0");
        deck_.line("         0         0         0         0         0         0         0         0");
    }

    void write_part(Count pid, Count secid, Count mid)
    {
        deck_.line("*PART");
        deck_.text("part ").integer(pid, 1).end();
        deck_.line("$#     pid     secid       mid     eosid      hgid      grav    adpopt      tmid");
        deck_.integer(pid, 10).integer(secid, 10).integer(mid, 10);
        for (int i = 0; i < 5; ++i) deck_.integer(0, 10);
        deck_.end();
    }

    void many_keywords()
    {
        for (Count i = 0; i < sizes_.keywords; ++i) small_block(i % 10, 1 + i / 10);
    }

    void small_block(Count kind, Count number)
    {
        switch (kind) {
        case 0:
            bulk_keyword("*NODE");
            write_node(number - 1);
            break;
        case 1:
            bulk_keyword("*ELEMENT_SOLID");
            write_solid(number - 1);
            break;
        case 2:
            bulk_keyword("*ELEMENT_SHELL");
            write_shell(number - 1);
            break;
        case 3:
            bulk_keyword("*SET_NODE_LIST");
            deck_.integer(number, 10).end();
            deck_.integer(number, 10).integer(number + 1, 10).end();
            break;
        case 4:
            deck_.line("*MAT_ELASTIC");
            deck_.integer(number + 1, 10).text(" 7.850e-09  210000.0       0.3").end();
            break;
        case 5:
            deck_.line("*SECTION_SOLID");
            deck_.integer(number + 3, 10).integer(1, 10).end();
            break;
        case 6:
            deck_.line("*BOUNDARY_SPC_NODE");
            deck_.integer(number, 10).integer(0, 10);
            for (int i = 0; i < 6; ++i) deck_.integer(1, 10);
            deck_.end();
            break;
        case 7:
            deck_.line("*DEFINE_CURVE");
            deck_.integer(number, 10).integer(0, 10).text("       1.0       1.0       0.0       0.0         0").end();
            deck_.line("                 0.0                 0.0");
            deck_.line("                 1.0                 1.0");
            break;
        case 8:
            deck_.line("*LOAD_NODE_POINT");
            deck_.integer(number, 10).integer(1, 10).integer(number, 10).text("       1.0").integer(0, 10).end();
            break;
        default:
            deck_.line("*ELEMENT_MASS");
            deck_.integer(number, 8).integer(number, 8).field("0.001", 16).integer(1, 8).end();
            break;
        }
    }

    void parts()
    {
        for (Count part = 1; part <= sizes_.parts; ++part) {
            deck_.line("*SECTION_SOLID");
            deck_.integer(part + 100'000, 10).integer(1, 10).end();
            deck_.line("*MAT_ELASTIC");
            deck_.integer(part + 100'000, 10).text(" 7.850e-09  210000.0       0.3").end();
            write_part(part + 100'000, part + 100'000, part + 100'000);
        }
    }

    void curve()
    {
        if (sizes_.curve_points == 0) return;
        deck_.line("*DEFINE_CURVE_TITLE");
        deck_.line("measured force");
        deck_.line("$#    lcid      sidr       sfa       sfo      offa      offo    dattyp");
        deck_.line("   1000000         0       1.0       1.0       0.0       0.0         0");
        for (Count i = 0; i < sizes_.curve_points; ++i)
            deck_.field(fixed_point(static_cast<std::int64_t>(i) * 12'345), 20)
                .field(scientific(random_, random_.below(2) == 0, -2, 6), 20)
                .end();
    }

    void beams()
    {
        if (sizes_.beams == 0) return;
        deck_.line("*ELEMENT_BEAM");
        deck_.line("$#   eid     pid      n1      n2      n3     rt1     rr1     rt2     rr2   local");
        for (Count i = 0; i < sizes_.beams; ++i) {
            deck_.integer(i + 1, 8).integer(1, 8);
            for (Count corner = 0; corner < 3; ++corner) deck_.integer(grid_.corners(i)[corner], 8);
            for (int unused = 0; unused < 4; ++unused) deck_.integer(0, 8);
            deck_.integer(2, 8).end();
        }
    }

    // A cube of bricks whose nodes are all its own, in ten layers of a part each. Nodes are moved by up to a tenth.
    void bricks()
    {
        if (sizes_.bricks == 0) return;
        const auto side = std::max<Count>(1, static_cast<Count>(std::cbrt(static_cast<double>(sizes_.bricks)) + 0.5));
        constexpr Count layers = 10, first_part = 11;
        for (Count layer = 0; layer < layers; ++layer) write_part(first_part + layer, 1, 1);
        const Count row = side + 1;
        blocks("*NODE", node_comment, row * row * row, [&](Count node) {
            deck_.integer(node + 1, 8);
            for (const Count index : {node % row, node / row % row, node / row / row}) {
                const auto moved = static_cast<std::int64_t>(random_.below(2'000'000)) - 1'000'000;
                deck_.field(fixed_point(static_cast<std::int64_t>(index) * 10'000'000 + moved), 16);
            }
            deck_.integer(0, 8).integer(0, 8).end();
        });
        blocks("*ELEMENT_SOLID", element_comment, side * side * side, [&](Count brick) {
            const Count x = brick % side, y = brick / side % side, z = brick / side / side;
            const Count corner = 1 + x + row * (y + row * z), up = row * row;
            deck_.integer(brick + 1, 8).integer(first_part + z * layers / side, 8);
            for (const Count step : {Count{0}, Count{1}, row + 1, row, up, up + 1, up + row + 1, up + row})
                deck_.integer(corner + step, 8);
            deck_.end();
        });
    }

    void write_node(Count node)
    {
        deck_.integer(node + 1, 8);
        for (const Count index : grid_.place(node)) deck_.field(coordinate(random_, index), 16);
        const bool fixed = random_.below(20) == 0;
        deck_.integer(fixed ? 1 + random_.below(7) : 0, 8).integer(fixed ? random_.below(8) : 0, 8).end();
    }

    void nodes()
    {
        blocks("*NODE", node_comment, sizes_.nodes, [&](Count node) { write_node(node); });
    }

    static constexpr std::string_view node_comment =
        "$#   nid               x               y               z      tc      rc";
    static constexpr std::string_view element_comment =
        "$#   eid     pid      n1      n2      n3      n4      n5      n6      n7      n8";

    void write_solid(Count solid)
    {
        deck_.integer(solid + 1, 8).integer(1, 8);
        for (const Count corner : grid_.corners(solid)) deck_.integer(corner, 8);
        deck_.end();
    }

    void solids()
    {
        blocks("*ELEMENT_SOLID", element_comment, sizes_.solids, [&](Count solid) { write_solid(solid); });
    }

    void write_shell(Count shell)
    {
        deck_.integer(sizes_.solids + shell + 1, 8).integer(2, 8);
        const std::array<Count, 8> corners = grid_.corners(shell);
        for (Count corner = 0; corner < 4; ++corner) deck_.integer(corners[corner], 8);
        for (int later = 0; later < 4; ++later) deck_.integer(0, 8);
        deck_.end();
    }

    void shells()
    {
        blocks("*ELEMENT_SHELL", element_comment, sizes_.shells, [&](Count shell) { write_shell(shell); });
    }

    void thick_shells()
    {
        blocks("*ELEMENT_SHELL_THICKNESS", element_comment, sizes_.thick_shells, [&](Count shell) {
            write_shell(sizes_.shells + shell);
            for (int corner = 0; corner < 4; ++corner)
                deck_.field(fixed_point(5'000'000 + static_cast<std::int64_t>(random_.below(45'000'000))), 16);
            deck_.field("0.0", 16).end();
        });
    }

    void particles()
    {
        blocks("*ELEMENT_SPH", "$#   nid     pid            mass", sizes_.particles, [&](Count particle) {
            deck_.integer(particle % grid_.nodes() + 1, 8).integer(3, 8);
            deck_.field(scientific(random_, false, -8, 5), 16).end();
        });
    }

    void sets()
    {
        Count sid = 0;
        const Count elements = std::max<Count>(1, sizes_.solids + sizes_.shells + sizes_.thick_shells);
        for (Count i = 0; i < sizes_.node_sets; ++i) set(++sid, "*SET_NODE_LIST", grid_.nodes(), sizes_.members);
        for (Count i = 0; i < sizes_.part_sets; ++i)
            set(++sid, "*SET_PART_LIST", 3, std::min<Count>(sizes_.members, 20));
        for (Count i = 0; i < sizes_.shell_sets; ++i) set(++sid, "*SET_SHELL_LIST", elements, sizes_.members);
        for (Count i = 0; i < sizes_.solid_sets; ++i) set(++sid, "*SET_SOLID", elements, sizes_.members);
        for (Count i = 0; i < sizes_.segment_sets; ++i) segment_set(++sid);
    }

    // Every second set has a title.
    void set_head(Count sid, std::string_view keyword)
    {
        const bool titled = sid % 2 == 0;
        bulk_keyword(std::string(keyword) + (titled ? "_TITLE" : ""));
        if (titled) deck_.text("set ").integer(sid, 1).end();
        deck_.line("$#     sid       da1       da2       da3       da4    solver");
        deck_.integer(sid, 10).text("       0.0       0.0       0.0       0.0MECH").end();
    }

    // Eight members a card, the last card filled with zeros.
    void set(Count sid, std::string_view keyword, Count limit, Count members)
    {
        set_head(sid, keyword);
        deck_.line("$#    nid1      nid2      nid3      nid4      nid5      nid6      nid7      nid8");
        Count member = random_.below(limit);
        for (Count i = 0; i < members; ++i) {
            deck_.integer(member % limit + 1, 10);
            member += 1 + random_.below(3);
            if (i % 8 == 7) deck_.end();
        }
        if (members % 8 == 0) return;
        for (Count i = members % 8; i < 8; ++i) deck_.integer(0, 10);
        deck_.end();
    }

    void segment_set(Count sid)
    {
        set_head(sid, "*SET_SEGMENT");
        deck_.line("$#      n1        n2        n3        n4        a1        a2        a3        a4");
        const Count first = random_.below(grid_.nodes());
        for (Count i = 0; i < sizes_.members; ++i) {
            const std::array<Count, 8> corners = grid_.corners(first + i);
            for (Count corner = 0; corner < 4; ++corner) deck_.integer(corners[corner], 10);
            deck_.text("       0.0       0.0       0.0       0.0").end();
        }
    }

    Deck& deck_;
    const Sizes& sizes_;
    Grid grid_;
    Random random_;
};

// ---- the control file ----------------------------------------------------------------------------------------------

// Everything is switched on, so that every pass of a run takes place.
bool write_control_file(const char* name, std::string_view deck_name)
{
    constexpr std::string_view flags[] = {"cardflag", "setflag",  "geomflag", "defflag",  "stndflag",
                                          "contflag", "icflag",   "lcflag",   "tranflag", "amrflag",
                                          "sphflag",  "plotflag", "accelflag"};
    Deck file(name);
    file.text("sourcefile : ").line(deck_name.substr(deck_name.rfind('/') + 1));
    for (const std::string_view flag : flags) file.text(flag).text(" : ").line(flag == "stndflag" ? "0" : "1");
    return file.close();
}

// ---- the command line ----------------------------------------------------------------------------------------------

int usage()
{
    std::fputs("Usage: make_deck [--mix MEGABYTES | --mesh] [--SIZE N]... [--input FILE] DECK\n"
               "Writes a keyword deck for measuring.\n"
               "\n"
               "  --mix MEGABYTES  a deck of about this size with all kinds of bulk data\n"
               "  --mesh           a million nodes and a million solids\n"
               "  --input FILE     write a control file for the deck too, with everything switched on\n"
               "\n"
               "Sizes; they change what a preset before them says:\n",
               stderr);
    for (const Option& option : options) std::fprintf(stderr, "  %-16s %s\n", option.name.data(), option.what);
    return 2;
}

bool read_count(std::string_view text, Count& count)
{
    const auto end = std::from_chars(text.data(), text.data() + text.size(), count);
    return end.ec == std::errc{} && end.ptr == text.data() + text.size();
}

int run(const std::vector<std::string>& arguments)
{
    Sizes sizes;
    std::string input;
    std::string deck_name;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!argument.starts_with("--")) {
            if (!deck_name.empty()) return usage();
            deck_name = argument;
            continue;
        }
        if (argument == "--mesh") {
            sizes = mesh();
            continue;
        }
        if (++i == arguments.size()) return usage();
        const std::string& value = arguments[i];
        Count count = 0;
        if (argument == "--input") {
            input = value;
        } else if (!read_count(value, count)) {
            return usage();
        } else if (argument == "--mix") {
            sizes = mix(count);
        } else {
            const auto* const option = std::find_if(std::begin(options), std::end(options),
                                                    [&](const Option& known) { return known.name == argument; });
            if (option == std::end(options)) return usage();
            sizes.*(option->size) = count;
        }
    }
    if (deck_name.empty()) return usage();

    Deck deck(deck_name.c_str());
    Writer(deck, sizes).write();
    if (!deck.close() || (!input.empty() && !write_control_file(input.c_str(), deck_name))) {
        std::fprintf(stderr, "make_deck: %s or %s cannot be written\n", deck_name.c_str(), input.c_str());
        return 1;
    }
    return 0;
}
}  // namespace

int main(int argc, char* argv[])
{
    try {
        return run({argv + 1, argv + argc});
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "make_deck: %s\n", failure.what());
        return 1;
    }
}
