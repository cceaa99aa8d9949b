// Findings as text, as JSON and as SARIF.
#include "check/formats.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <set>
#include <sstream>
#include <string>

namespace check
{
namespace
{
Finding at(std::string_view code, std::size_t line, std::size_t column, std::size_t block)
{
    Finding found = finding(code, {"model.k", line, column, column + 3}, "0.5 is read as 0");
    found.keyword = "*NODE";
    found.field = "x";
    found.text = "0.5     ";
    found.read_as = "0";
    found.block = block;
    return found;
}

Result three_findings()
{
    Result result;
    result.deck = "model.k";
    result.settings = {{"cardflag", 1}, {"lcflag", 0}};
    result.findings = {at("MD101", 8, 9, 1), at("MD101", 9, 9, 1), at("MD301", 20, 1, 2)};
    result.not_checked = {{"*RIGIDWALL_PLANAR", 2, "its cards are not known"}};
    return result;
}

std::string as_text(const Result& result, const TextOptions& options = {})
{
    std::ostringstream stream;
    write_text(stream, result, options);
    return stream.str();
}

nlohmann::json parsed(void (*write)(std::ostream&, const Result&), const Result& result)
{
    std::ostringstream stream;
    write(stream, result);
    return nlohmann::json::parse(stream.str());
}
}  // namespace

TEST(FindingsAsText, FoldsACodeThatRepeatsInABlock)
{
    EXPECT_EQ(as_text(three_findings()), "model.k:8:9: error: 0.5 is read as 0 [MD101] (and 1 more in this block)\n"
                                         "model.k:20:1: warning: 0.5 is read as 0 [MD301]\n"
                                         "2 errors, 1 warning, 0 notes; 1 kind of block not checked\n");
}

TEST(FindingsAsText, ErrorIsNotFoldedIntoANote)
{
    Result result;
    result.findings = {at("MD112", 8, 1, 1), at("MD112", 9, 1, 1)};
    result.findings[1].severity = deck::Severity::error;
    EXPECT_EQ(as_text(result), "model.k:8:1: note: 0.5 is read as 0 [MD112]\n"
                               "model.k:9:1: error: 0.5 is read as 0 [MD112]\n"
                               "1 error, 0 warnings, 1 note\n");
}

TEST(FindingsAsText, ShowsEachFindingWhenAsked)
{
    EXPECT_EQ(as_text(three_findings(), {.all = true}), "model.k:8:9: error: 0.5 is read as 0 [MD101]\n"
                                                        "model.k:9:9: error: 0.5 is read as 0 [MD101]\n"
                                                        "model.k:20:1: warning: 0.5 is read as 0 [MD301]\n"
                                                        "2 errors, 1 warning, 0 notes; 1 kind of block not checked\n");
}

TEST(FindingsAsText, CountsFindingsThatWereNotKept)
{
    Result result;
    result.findings = {at("MD101", 8, 9, 1)};
    result.findings[0].others = 586;
    EXPECT_EQ(as_text(result), "model.k:8:9: error: 0.5 is read as 0 [MD101] (and 586 more in this block)\n"
                               "587 errors, 0 warnings, 0 notes\n");
}

TEST(FindingsAsText, ControlCharactersOfTheDeckDoNotReachTheTerminal)
{
    Finding found = at("MD101", 1, 1, 1);
    found.message = "a\033[2Jb\nc\td";
    EXPECT_EQ(text_line(found, 0, false), "model.k:1:1: error: a?[2Jb?c?d [MD101]");
    EXPECT_EQ(text_line(found, 0, true), "model.k:1:1: \033[1;31merror:\033[0m a?[2Jb?c?d [MD101]");
}

TEST(FindingsAsText, FindingOnAFileHasNoLine)
{
    Finding found = at("MD122", 0, 0, 1);
    EXPECT_EQ(text_line(found, 0, false), "model.k: error: 0.5 is read as 0 [MD122]");
}

TEST(FindingsAsJson, HoldEveryPartOfAFinding)
{
    const nlohmann::json json = parsed(write_json, three_findings());
    EXPECT_EQ(json.at("schema"), 1);
    EXPECT_EQ(json.at("tool"), "morvex-deck check");
    EXPECT_EQ(json.at("deck"), "model.k");
    EXPECT_EQ(json.at("settings"), (nlohmann::json{{"cardflag", 1}, {"lcflag", 0}}));
    EXPECT_EQ(json.at("findings").size(), 3U);
    EXPECT_EQ(json.at("findings").at(0), (nlohmann::json{{"file", "model.k"},
                                                         {"line", 8},
                                                         {"column", 9},
                                                         {"end_column", 12},
                                                         {"severity", "error"},
                                                         {"code", "MD101"},
                                                         {"keyword", "*NODE"},
                                                         {"field", "x"},
                                                         {"text", "0.5     "},
                                                         {"read_as", "0"},
                                                         {"message", "0.5 is read as 0"},
                                                         {"mended_by_prepare", true}}));
    EXPECT_EQ(json.at("not_checked").at(0),
              (nlohmann::json{{"keyword", "*RIGIDWALL_PLANAR"}, {"count", 2}, {"reason", "its cards are not known"}}));
    EXPECT_EQ(json.at("totals"), (nlohmann::json{{"errors", 2}, {"warnings", 1}, {"notes", 0}}));
}

TEST(FindingsAsJson, BytesThatAreNoTextAreReplaced)
{
    Result result = three_findings();
    result.findings[0].text = "\xff";
    EXPECT_EQ(parsed(write_json, result).at("findings").at(0).at("text"), "\xEF\xBF\xBD");
}

// What the schema of version 2.1.0 requires of what is written: see the standard's sections on run, tool, result.
TEST(FindingsAsSarif, HaveTheStructureOfVersion210)
{
    const nlohmann::json json = parsed(write_sarif, three_findings());
    EXPECT_EQ(json.at("version"), "2.1.0");
    ASSERT_EQ(json.at("runs").size(), 1U);
    const nlohmann::json& run = json.at("runs").at(0);
    const nlohmann::json& driver = run.at("tool").at("driver");
    EXPECT_EQ(driver.at("name"), "morvex-deck");
    std::set<std::string> ids;
    for (const nlohmann::json& rule : driver.at("rules")) {
        EXPECT_TRUE(ids.insert(rule.at("id")).second);
        EXPECT_FALSE(rule.at("shortDescription").at("text").get<std::string>().empty());
        EXPECT_FALSE(rule.at("fullDescription").at("text").get<std::string>().empty());
        const std::string level = rule.at("defaultConfiguration").at("level");
        EXPECT_TRUE(level == "none" || level == "note" || level == "warning" || level == "error");
    }
    EXPECT_EQ(ids.size(), codes().size());
    ASSERT_EQ(run.at("results").size(), 3U);
    for (const nlohmann::json& result : run.at("results")) {
        const std::size_t index = result.at("ruleIndex");
        EXPECT_EQ(driver.at("rules").at(index).at("id"), result.at("ruleId"));
        EXPECT_TRUE(result.at("message").at("text").is_string());
        const nlohmann::json& place = result.at("locations").at(0).at("physicalLocation");
        EXPECT_EQ(place.at("artifactLocation").at("uri"), "model.k");
        EXPECT_GE(place.at("region").at("startLine"), 1);
        EXPECT_GE(place.at("region").at("startColumn"), 1);
        EXPECT_GT(place.at("region").at("endColumn"), place.at("region").at("startColumn"));
    }
    EXPECT_EQ(run.at("results").at(2).at("level"), "warning");
}

TEST(Explanations, ThereIsOneForEachCode)
{
    for (const Code& code : codes()) {
        const std::string_view text = explanation(code.code);
        EXPECT_TRUE(text.starts_with(code.code)) << code.code;
        EXPECT_NE(text.find("Severity: "), std::string_view::npos) << code.code;
        EXPECT_NE(text.find("Prepare: "), std::string_view::npos) << code.code;
    }
    EXPECT_EQ(explanation("MD999"), "");
}
}  // namespace check
