// What morvex is measured against: the bulk work of a run, done the plain way of standard input and output. Every
// character comes from getc, every number from atof, every row from fprintf, and each pass reads the deck from its
// beginning to its *END.
//
//     baseline mix.k
//
// writes mix.geom, mix.sets and keywords.k into the current folder. The first two are what morvex writes, to the byte,
// for decks that make_deck wrote; keywords without a handler here are passed over, and there is no debug log.
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace
{
std::FILE* deck = nullptr;
std::FILE* copy = nullptr;
std::FILE* geom = nullptr;
std::FILE* sets = nullptr;

char cbuffer[50];  // the current keyword line in upper case

// ---- reading -------------------------------------------------------------------------------------------------------

void skip_line()
{
    int c = std::getc(deck);
    while (c != '\n' && c != EOF) c = std::getc(deck);
}

bool keyword_is(std::string_view prefix)
{
    return std::string_view(cbuffer).starts_with(prefix);
}

// The scanner takes every character that it passes in upper case.
int upper()
{
    return std::toupper(std::getc(deck));
}

// Reads on to the next keyword line; the end of the file counts as *END.
void keyword()
{
    int c = upper();
    while (c != '*' && c != EOF) {
        while (c != '\n' && c != EOF) c = upper();
        c = upper();
    }
    if (c == EOF) {
        std::strcpy(cbuffer, "*END");
        return;
    }
    std::size_t length = 0;
    for (; c != '\n' && c != EOF; c = upper())
        if (length < sizeof cbuffer - 1) cbuffer[length++] = static_cast<char>(c);
    cbuffer[length] = '\0';
}

// The next character behind comment lines, which stays unread.
int next_card()
{
    int c = std::getc(deck);
    while (c == '$') {
        skip_line();
        c = std::getc(deck);
    }
    std::ungetc(c, deck);
    return c;
}

bool another_card()
{
    const int c = next_card();
    return c != '*' && c != EOF;
}

// A field's number. `open` becomes false at the end of the line; from then on the card's fields are empty.
double field(int width, bool& open)
{
    char characters[41];
    if (!open) return 0.0;
    for (int i = 0; i < width; ++i) {
        const int c = std::getc(deck);
        if (c == '\n' || c == EOF) {
            std::ungetc(c, deck);
            open = false;
            return 0.0;
        }
        characters[i] = static_cast<char>(c);
    }
    if (characters[width - 1] == ' ') return 0.0;
    characters[width] = '\0';
    return std::atof(characters);
}

int integer(int width, bool& open)
{
    return static_cast<int>(field(width, open));
}

long long_integer(int width, bool& open)
{
    return static_cast<long>(field(width, open));
}

double real(int width, bool& open)
{
    return static_cast<double>(static_cast<float>(field(width, open)));
}

// ---- the keyword copy ----------------------------------------------------------------------------------------------

void skip_block()
{
    int c = upper();
    while (c != '*' && c != EOF) {
        while (c != '\n' && c != EOF) c = upper();
        c = upper();
    }
    std::ungetc(c, deck);
}

void copy_keywords()
{
    constexpr std::string_view bulk[] = {"*NODE",     "*ELEMENT_SHELL", "*ELEMENT_SPH", "*ELEMENT_SOLID",
                                         "*SET_NODE", "*SET_PART",      "*SET_SEGMENT", "*SET_SHELL"};
    char piece[50];
    while (std::fgets(piece, sizeof piece, deck) != nullptr) {
        const std::string_view line = piece;
        if (line.starts_with("*SET_SOLID")) {  // the only block that goes with its keyword line
            skip_block();
            continue;
        }
        for (const std::string_view prefix : bulk) {
            if (!line.starts_with(prefix)) continue;
            skip_block();
            break;
        }
        std::fputs(piece, copy);
    }
}

// ---- sets ----------------------------------------------------------------------------------------------------------

// The title card, or a blank when the keyword has none.
void title_card(char (&title)[81])
{
    title[0] = ' ';
    title[1] = '\0';
    if (std::strstr(cbuffer, "_TITLE") == nullptr) return;
    next_card();
    std::size_t length = 0;
    for (int c = std::getc(deck); c != '\n' && c != EOF; c = std::getc(deck))
        if (length < sizeof title - 1) title[length++] = static_cast<char>(c);
    title[length] = '\0';
}

void set_header(const char* heading)
{
    char title[81];
    title_card(title);
    next_card();
    bool open = true;
    const int sid = integer(10, open);
    std::fprintf(sets, "\n %s definition %s:%5i%10s %-80s\n", heading, std::strlen(heading) < 11 ? "   " : "", sid, " ",
                 title);
    skip_line();
}

void member_set(const char* heading)
{
    set_header(heading);
    int count = 0;
    while (another_card()) {
        bool open = true;
        for (int i = 0; i < 8; ++i) {
            const int id = integer(10, open);
            if (id == 0) continue;
            std::fprintf(sets, "%10i", id);
            if (++count % 8 == 0) std::fprintf(sets, "\n");
        }
        skip_line();
    }
    if (count % 8 != 0) std::fprintf(sets, "\n");
}

void segment_set()
{
    set_header("Segment set");
    while (another_card()) {
        bool open = true;
        const int n1 = integer(10, open);
        const int n2 = integer(10, open);
        const int n3 = integer(10, open);
        const int n4 = integer(10, open);
        std::fprintf(sets, "%10i%10i%10i%10i\n", n1, n2, n3, n4);
        skip_line();
    }
}

// ---- nodes and elements --------------------------------------------------------------------------------------------

void nodes(bool& first)
{
    if (first) {
        std::fprintf(geom, "\nNode Definition:\n");
        std::fprintf(geom, "!--- nid %20s %20s %20s %5s %5s\n", "x", "y", "z", "tc", "rc");
    }
    while (another_card()) {
        first = false;
        bool open = true;
        const long nid = long_integer(8, open);
        const double x = real(16, open);
        const double y = real(16, open);
        const double z = real(16, open);
        const int tc = integer(8, open);
        const int rc = integer(8, open);
        std::fprintf(geom, "%8li %20.13e %20.13e %20.13e %5i %5i\n", nid, x, y, z, tc, rc);
        skip_line();
    }
}

void shells(bool& first, bool thickness)
{
    if (first) {
        std::fprintf(geom, "\n Shell Element Definition:\n");
        std::fprintf(geom, "!--- eid %8s %10s %10s %10s %10s\n", "pid", "n1", "n2", "n3", "n4");
        std::fprintf(geom, "!------------- t1 %10s %10s %10s %10s\n", "t2", "t3", "t4", "beta");
    }
    while (another_card()) {
        first = false;
        long v[10];
        bool open = true;
        for (long& value : v) value = long_integer(8, open);
        std::fprintf(geom, "%8li %8li %10li %10li %10li %10li\n", v[0], v[1], v[2], v[3], v[4], v[5]);
        skip_line();
        double t[5] = {};
        if (thickness) {
            next_card();
            open = true;
            for (double& value : t) value = real(16, open);
            skip_line();
        }
        std::fprintf(geom, "%6s %10.3e %10.3e %10.3e %10.3e %10.3e\n", " ", t[0], t[1], t[2], t[3], t[4]);
    }
}

void solids(bool& first)
{
    if (first) {
        std::fprintf(geom, "\n Solid Element Definition:\n");
        std::fprintf(geom, "!--- eid %8s %8s %8s %8s %8s %8s %8s %8s %8s\n", "pid", "n1", "n2", "n3", "n4", "n5", "n6",
                     "n7", "n8");
    }
    while (another_card()) {
        first = false;
        long v[10];
        bool open = true;
        for (long& value : v) value = long_integer(8, open);
        std::fprintf(geom, "%8li %8li %8li %8li %8li %8li %8li %8li %8li %8li\n", v[0], v[1], v[2], v[3], v[4], v[5],
                     v[6], v[7], v[8], v[9]);
        skip_line();
    }
}

void particles(bool& first)
{
    if (first) {
        std::fprintf(geom, "\n SPH Element Definition:\n");
        std::fprintf(geom, "!--- nid %8s %16s\n", "pid", "mass");
    }
    while (another_card()) {
        first = false;
        bool open = true;
        const int nid = integer(8, open);
        const int pid = integer(8, open);
        const double mass = real(16, open);
        std::fprintf(geom, "%8i %8i %16.8e\n", nid, pid, mass);
        skip_line();
    }
}

// ---- passes --------------------------------------------------------------------------------------------------------

void heading(std::FILE* file, const char* title)
{
    constexpr char rule[] = "!------------------------------------------------\n";
    std::fprintf(file, "%s! %s\n%s", rule, title, rule);
}

void set_pass()
{
    heading(sets, "Set Definitions");
    std::rewind(deck);
    for (keyword(); !keyword_is("*END"); keyword()) {
        if (keyword_is("*SET_NODE")) member_set("Node set");
        if (keyword_is("*SET_PART")) member_set("Part set");
        if (keyword_is("*SET_SHELL")) member_set("Element set");
        if (keyword_is("*SET_SOLID")) member_set("Element set");
        if (keyword_is("*SET_SEGMENT")) segment_set();
    }
    std::fprintf(sets, "\n\n");
}

void geometry_passes()
{
    heading(geom, "Geometry Definitions");
    bool first = true;
    std::rewind(deck);
    for (keyword(); !keyword_is("*END"); keyword())
        if (keyword_is("*NODE")) nodes(first);
    first = true;
    std::rewind(deck);
    for (keyword(); !keyword_is("*END"); keyword())
        if (keyword_is("*ELEMENT_SHELL")) shells(first, keyword_is("*ELEMENT_SHELL_THICKNESS"));
    first = true;
    std::rewind(deck);
    for (keyword(); !keyword_is("*END"); keyword())
        if (keyword_is("*ELEMENT_SOLID")) solids(first);
    first = true;
    std::rewind(deck);
    for (keyword(); !keyword_is("*END"); keyword())
        if (keyword_is("*ELEMENT_SPH")) particles(first);
    std::fprintf(geom, "\n\n");
}
}  // namespace

int main(int argc, char* argv[])
{
    if (argc != 2) {
        std::fputs("Usage: baseline DECK\n", stderr);
        return 2;
    }
    const std::string name = argv[1];
    const std::string base = name.substr(0, name.rfind('.') + 1);
    deck = std::fopen(name.c_str(), "r");
    copy = std::fopen("keywords.k", "w");
    geom = std::fopen((base + "geom").c_str(), "w");
    sets = std::fopen((base + "sets").c_str(), "w");
    if (deck == nullptr || copy == nullptr || geom == nullptr || sets == nullptr) {
        std::perror("baseline");
        return 1;
    }
    copy_keywords();
    set_pass();
    geometry_passes();
    bool written = true;
    for (std::FILE* file : {copy, geom, sets}) written = std::fclose(file) == 0 && written;
    std::fclose(deck);
    return written ? 0 : 1;
}
