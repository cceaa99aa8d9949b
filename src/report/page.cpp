#include "report/page.h"

#include <array>
#include <ostream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "reader/run.h"
#include "report/mesh_data.h"
#include "report/page_data.h"
#include "report/page_text.h"

extern const std::string_view report_page;  // page/page.html
extern const std::string_view report_style;
extern const std::string_view report_script;
extern const std::string_view view_style;
extern const std::string_view view_mesh_script;
extern const std::string_view view_camera_script;
extern const std::string_view view_scene_script;
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
const Embedded scripts[] = {
    {"three.min.js", three_script},       {"view_mesh.js", view_mesh_script}, {"view_camera.js", view_camera_script},
    {"view_scene.js", view_scene_script}, {"view.js", view_script},           {"page.js", report_script}};

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
    stream << "<script type=\"application/json\" id=\"" << id << "\">";
    write();
    stream << "</script>\n";
}
}  // namespace

void write_page(std::ostream& stream, const Ledger& ledger, const Surface& surface, const std::filesystem::path& folder)
{
    const std::string said(words(verdict(ledger)));
    const std::string deck = in_markup(ledger.deck);
    const PageLimits limits;
    Source page(stream, report_page);
    page.until("<title>", "</title>");
    stream << "<title>" << deck << ": " << said << "</title>";
    for (const Embedded& style : styles) {
        page.until("<link rel=\"stylesheet\" href=\"" + std::string(style.file) + "\">");
        stream << "<style>\n" << style.text << "</style>";
    }
    page.until("<h1>", "</h1>");
    stream << "<h1>" << deck << ": <span class=\"verdict-words\">" << said << "</span></h1>";
    page.until("<!-- version -->", "<!-- end of version -->");
    stream << version();
    page.until("<!-- data -->", "<!-- end of data -->");
    write_json_element(stream, "ledger", [&] { write_ledger_data(stream, ledger, limits); });
    write_json_element(stream, "details", [&] { write_details_data(stream, ledger, folder, limits); });
    write_mesh_data(stream, surface);
    for (const Embedded& script : scripts) {
        page.until("<script src=\"" + std::string(script.file) + "\"></script>");
        stream << "<script>\n" << script.text << "</script>";
    }
    page.finish();
}
}  // namespace report
