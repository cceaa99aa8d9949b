#include "report/page.h"

#include <array>
#include <ostream>
#include <stdexcept>
#include <streambuf>
#include <string>
#include <string_view>

#include "reader/run.h"
#include "report/mesh_data.h"
#include "report/page_data.h"
#include "report/page_text.h"
#include "report/sha256.h"

extern const std::string_view report_page;  // page/page.html
extern const std::string_view report_style;
extern const std::string_view page_data_script;
extern const std::string_view page_elements_script;
extern const std::string_view page_losses_script;
extern const std::string_view page_numbers_script;
extern const std::string_view page_curves_script;
extern const std::string_view page_blocks_script;
extern const std::string_view page_script;
extern const std::string_view view_style;
extern const std::string_view view_mesh_script;
extern const std::string_view view_camera_script;
extern const std::string_view view_scene_script;
extern const std::string_view view_elements_script;
extern const std::string_view view_script;
extern const std::string_view three_script;  // three.min.js

namespace report
{
namespace
{
// What the page's source names and the page holds, in the order of the source.
struct Embedded {
    std::string_view file;
    const std::string_view& text;
};
const Embedded styles[] = {{"style.css", report_style}, {"view.css", view_style}};
const Embedded scripts[] = {{"three.min.js", three_script},
                            {"view_mesh.js", view_mesh_script},
                            {"view_camera.js", view_camera_script},
                            {"view_scene.js", view_scene_script},
                            {"view_elements.js", view_elements_script},
                            {"view.js", view_script},
                            {"page_data.js", page_data_script},
                            {"page_elements.js", page_elements_script},
                            {"page_losses.js", page_losses_script},
                            {"page_numbers.js", page_numbers_script},
                            {"page_curves.js", page_curves_script},
                            {"page_blocks.js", page_blocks_script},
                            {"page.js", page_script}};

// What the page may have in bytes before its scripts, so that the whole stays below 25 million.
constexpr std::size_t most_data = 23'900'000;

std::string_view words(Verdict found)
{
    switch (found) {
    case Verdict::whole:
        return "converted whole";
    case Verdict::with_losses:
        return "converted with losses";
    case Verdict::not_usable:
        break;
    }
    return "not usable";
}

std::string version()
{
    char text[16];
    std::snprintf(text, sizeof text, "%5.3f", morvex_version);
    return text;
}

// A digest as the policy of a page names it: its bytes in base64.
std::string digest_in_base64(std::string_view text)
{
    constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    const std::string hexadecimal = sha256_of(text) + "00";  // 32 bytes, and one to fill up the last three
    std::string base64;
    for (std::size_t at = 0; at < hexadecimal.size(); at += 6) {
        const unsigned long group = std::stoul(hexadecimal.substr(at, 6), nullptr, 16);
        for (unsigned shift = 24; shift > 0; shift -= 6) base64 += digits[group >> (shift - 6) & 63U];
    }
    base64.pop_back();  // nothing but filling
    return base64 + "=";
}

// An element's text: on lines of its own.
std::string element_text(const Embedded& embedded)
{
    return std::string("\n").append(embedded.text);
}

// Nothing is loaded, and no script runs but those that the program has put in.
std::string policy()
{
    std::string text =
        "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; img-src data: blob:; "
        "base-uri 'none'; form-action 'none'; style-src";
    for (const Embedded& style : styles) text += " 'sha256-" + digest_in_base64(element_text(style)) + "'";
    text += "; script-src";
    for (const Embedded& script : scripts) text += " 'sha256-" + digest_in_base64(element_text(script)) + "'";
    return text + "\">";
}

// Hands on what is written to it, and counts.
class CountingBuffer : public std::streambuf
{
public:
    explicit CountingBuffer(std::streambuf& to) : to_(to) {}
    [[nodiscard]] std::size_t written() const { return written_; }

protected:
    int overflow(int c) override
    {
        ++written_;
        return to_.sputc(static_cast<char>(c));
    }
    std::streamsize xsputn(const char* text, std::streamsize size) override
    {
        written_ += static_cast<std::size_t>(size);
        return to_.sputn(text, size);
    }

private:
    std::streambuf& to_;
    std::size_t written_ = 0;
};

// The page's source goes on from mark to mark: what stands before the next mark is written as it is, and the mark, to
// its end, is replaced by what the caller writes.
class Source
{
public:
    Source(std::ostream& stream, std::string_view text) : stream_(stream), rest_(text) {}

    void until(std::string_view mark_begin, std::string_view mark_end)
    {
        const std::size_t begin = rest_.find(mark_begin);
        const std::size_t end =
            rest_.find(mark_end, begin == std::string_view::npos ? begin : begin + mark_begin.size());
        if (begin == std::string_view::npos || end == std::string_view::npos)
            throw std::logic_error("the page's source has no " + std::string(mark_begin));
        stream_ << rest_.substr(0, begin);
        rest_.remove_prefix(end + mark_end.size());
    }
    void until(std::string_view mark) { until(mark, ""); }
    void finish() { stream_ << rest_; }

private:
    std::ostream& stream_;
    std::string_view rest_;
};

template <class Write>
void write_json_element(std::ostream& stream, std::string_view id, const Write& write)
{
    stream << R"(<script type="application/json" id=")" << id << R"(">)";
    write();
    stream << "</script>\n";
}
}  // namespace

void write_page(std::ostream& to, const Ledger& ledger, const Surface& surface, const std::filesystem::path& folder)
{
    CountingBuffer counting(*to.rdbuf());
    std::ostream stream(&counting);
    const std::string said(words(verdict(ledger)));
    const std::string deck = in_markup(ledger.deck);
    Source page(stream, report_page);
    page.until("<!-- policy -->");
    stream << policy();
    page.until("<title>", "</title>");
    stream << "<title>" << deck << ": " << said << "</title>";
    for (const Embedded& style : styles) {
        page.until(R"(<link rel="stylesheet" href=")" + std::string(style.file) + R"(">)");
        stream << "<style>" << element_text(style) << "</style>";
    }
    page.until("<h1>", "</h1>");
    stream << "<h1>" << deck << R"(: <span class="verdict-words">)" << said << "</span></h1>";
    page.until("<!-- version -->", "<!-- end of version -->");
    stream << version();
    page.until("<!-- data -->", "<!-- end of data -->");
    write_mesh_data(stream, surface);
    const PageLimits limits = limits_within(counting.written() < most_data ? most_data - counting.written() : 0);
    write_json_element(stream, "ledger", [&] { write_ledger_data(stream, ledger, limits); });
    write_json_element(stream, "details", [&] { write_details_data(stream, ledger, folder, limits); });
    for (const Embedded& script : scripts) {
        page.until(R"(<script src=")" + std::string(script.file) + R"("></script>)");
        stream << "<script>" << element_text(script) << "</script>";
    }
    page.finish();
    if (!stream) to.setstate(std::ios::badbit);
}
}  // namespace report
