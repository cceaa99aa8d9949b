// The readers of cards, titles, comments and keyword lines on a deck in memory, seen through a window of any size,
// against the same readings of the plain text.
//
// The input's end says what to do, its beginning is the deck.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <bit>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "fuzz.h"
#include "plain_text.h"
#include "reader/card.h"
#include "reader/keyword.h"
#include "reader/run.h"
#include "support/keyword_lines.h"

namespace
{
class PlainReader : public PlainText
{
public:
    using PlainText::PlainText;

    char comments()
    {
        while (at(position) == '$') skip_line();
        return at(position);
    }

    // A field's characters; false when it is empty.
    bool field(std::size_t width, int& open, std::string& characters)
    {
        characters.clear();
        if (open != 1) return false;
        for (std::size_t i = 0; i < width; ++i) {
            const char c = next();
            if (c == '\n') {
                open = 0;
                --position;
                return false;
            }
            characters += c;
        }
        return characters.back() != ' ';
    }

    double number(std::size_t width, int& open)
    {
        std::string characters;
        return field(width, open, characters) ? std::atof(characters.c_str()) : 0.0;
    }

    std::string word(std::size_t width, int& open)
    {
        std::string characters;
        return field(width, open, characters) ? characters : " 0";
    }

    std::string title()
    {
        comments();
        std::string line;
        do line += next();
        while (line.back() != '\n');
        if (line.size() <= 79) {
            line.pop_back();
            return line;
        }
        return line.substr(0, 80);
    }

    std::string keyword_line()
    {
        to_keyword();
        std::string line;
        for (char c = next(); c != '\n'; c = next())
            line += static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
        return line.substr(0, 49);
    }
};

// A text as C sees it: up to its first null character.
std::string c_text(const std::string& text)
{
    return text.c_str();
}

bool same(double a, double b)
{
    return (a != a && b != b) || std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// One run of readings on infile and on the plain text.
class Readings
{
public:
    Readings(std::string_view deck, std::size_t window, bool indexed) : deck_(deck), plain_(deck), window_(window)
    {
        infile.open_text(deck, window);
        for (const std::uint64_t line : PlainText::keyword_lines(deck)) index_.add(line, deck.substr(line));
        if (indexed) infile.use_index(&index_);
    }
    ~Readings() { infile.close(); }
    Readings(const Readings&) = delete;
    Readings& operator=(const Readings&) = delete;

    void step(unsigned kind, unsigned argument)
    {
        switch (kind) {
        case 0:
            read_number(argument % 40 + 1);
            break;
        case 1:
            read_word(argument % 40 + 1);
            break;
        case 2:
            expect(c_text(readtitle().text) == c_text(plain_.title()), "readtitle");
            break;
        case 3:
            expect(skip_comments() == plain_.comments(), "comments");
            break;
        case 4:
            keyword();
            expect(c_text(cbuffer) == c_text(plain_.keyword_line()), "keyword");
            break;
        case 5:
            next_card();
            break;
        case 6:
            card_.first();
            plain_.comments();
            begin_card();
            break;
        case 7:
            card_.another();
            if (begun_) plain_.skip_line();
            plain_.comments();
            begin_card();
            break;
        case 8:
            expect(same(card_.number(static_cast<int>(argument % 40 + 1)),
                        plain_.number(argument % 40 + 1, plain_card_open_)),
                   "Card::number");
            break;
        case 9:
            expect(c_text(card_.word().text) == c_text(plain_.word(10, plain_card_open_)), "Card::word");
            break;
        case 10:
            expect(infile.next() == plain_.next(), "next");
            if (argument % 2 == 0) break;
            infile.back();
            --plain_.position;
            break;
        case 11:
            plain_.position = argument * 7 % (deck_.size() + 30);
            infile.seek(plain_.position);
            break;
        case 12:
            look_ahead(argument % window_);
            break;
        case 13:
            look_at_line();
            break;
        case 14:
            infile.skip_line();
            plain_.skip_line();
            break;
        case 15:
            to_keyword(argument);
            break;
        case 16:
            take_columns(argument % 80 + 1);
            break;
        default:
            open_ = 1;
            plain_open_ = 1;
            break;
        }
        expect(infile.position() == plain_.position, "position");
        expect(infile.peek() == plain_.at(plain_.position), "peek");
        expect(infile.at_end() == (plain_.position >= deck_.size()), "at_end");
    }

private:
    void read_number(std::size_t width)
    {
        expect(same(fblanks(static_cast<int>(width), &open_), plain_.number(width, plain_open_)), "fblanks");
        expect(open_ == plain_open_, "the line-still-open flag");
    }

    void read_word(std::size_t width)
    {
        const std::string expected = plain_.word(width, plain_open_);
        std::string word(std::max<std::size_t>(width + 1, 3), '?');
        readstring(word.data(), static_cast<int>(width), &open_);
        expect(c_text(word) == c_text(expected), "readstring");
        expect(open_ == plain_open_, "the line-still-open flag");
    }

    void begin_card()
    {
        begun_ = true;
        plain_card_open_ = 1;
    }

    void next_card()
    {
        if (begun_) plain_.skip_line();
        const bool expected = plain_.comments() != '*';
        expect(card_.next() == expected, "Card::next");
        if (expected) begin_card();
    }

    void look_ahead(std::size_t n)
    {
        const std::string_view seen = infile.ahead(n);
        expect(seen.size() == plain_.length(n), "ahead: length");
        for (std::size_t i = 0; i < seen.size(); ++i) expect(seen[i] == plain_.at(plain_.position + i), "ahead");
    }

    // A line may be refused only when it does not fit into the window.
    void look_at_line()
    {
        std::string_view line;
        const bool whole = infile.whole_line(line);
        const std::size_t length = plain_.length(window_);
        if (!whole) {
            expect(length + 1 >= window_, "a line that fits");
            return;
        }
        expect(line.size() == length, "a whole line: its length");
        for (std::size_t i = 0; i < length; ++i) expect(line[i] == plain_.at(plain_.position + i), "a whole line");
    }

    // To a keyword line whose initial is among those that the bits choose, or the text's "*END".
    void to_keyword(unsigned bits)
    {
        Initials wanted;
        wanted.add('E');
        for (unsigned i = 0; i < 8; ++i)
            if ((bits >> i & 1) != 0) wanted.add("NMS*\n_az"[i]);
        if (bits % 3 == 0) wanted = Initials::all();
        const auto is_wanted = [&](std::uint64_t place) { return wanted.has(plain_.at(place + 1)); };
        for (plain_.to_keyword(); !is_wanted(plain_.position); plain_.to_keyword()) plain_.skip_line();
        for (infile.to_keyword(wanted); !is_wanted(infile.position()); infile.to_keyword(wanted)) {
            expect(infile.position() < plain_.position, "to_keyword");
            infile.skip_line();
        }
    }

    void take_columns(std::size_t n)
    {
        const std::size_t length = plain_.length(n + 1);
        const std::string_view columns = card_.columns(n);
        expect(columns.size() == std::min(length, n), "columns: their number");
        for (std::size_t i = 0; i < columns.size(); ++i)
            expect(columns[i] == plain_.at(plain_.position + i), "columns");
        begun_ = length > n;
        plain_.position += columns.size();
        if (!begun_) plain_.skip_line();
    }

    std::string_view deck_;
    PlainReader plain_;
    std::size_t window_;
    KeywordIndex index_;
    Card card_;
    int open_ = 1;
    int plain_open_ = 1;
    int plain_card_open_ = 0;
    bool begun_ = false;
};
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzedDataProvider input(data, size);
    const auto window = input.ConsumeIntegralInRange<std::size_t>(InputStream::smallest_window, 319);
    const bool indexed = input.ConsumeBool();
    const auto steps = input.ConsumeIntegralInRange<std::size_t>(0, 255);
    std::string does;
    for (std::size_t i = 0; i < 2 * steps; ++i) does += static_cast<char>(input.ConsumeIntegral<std::uint8_t>());
    const std::string deck = input.ConsumeRemainingBytesAsString();
    Readings readings(deck, window, indexed);
    for (std::size_t i = 0; i < steps; ++i)
        readings.step(static_cast<unsigned char>(does[2 * i]) % 18U, static_cast<unsigned char>(does[2 * i + 1]));
    return 0;
}
