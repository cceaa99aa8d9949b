#include "report/page_text.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

using report::in_markup;
using report::in_script;
using Json = nlohmann::ordered_json;

TEST(PageText, MarkupOfADeckStaysText)
{
    EXPECT_EQ("&lt;b title=&quot;it&#39;s&quot;&gt;a &amp; b", in_markup("<b title=\"it's\">a & b"));
}

TEST(PageText, WhatNobodyWouldSeeIsNamed)
{
    EXPECT_EQ("a[U+202E]b", in_markup("a\xE2\x80\xAE"
                                      "b"));
    EXPECT_EQ("[U+0000][U+001B][31m[U+0009]", in_markup(std::string_view("\0\x1b[31m\t", 7)));
    EXPECT_EQ("[U+0085][U+200B][U+2066][U+FEFF]", in_markup("\xC2\x85\xE2\x80\x8B\xE2\x81\xA6\xEF\xBB\xBF"));
}

TEST(PageText, OrdinaryLettersOfAnyScriptStay)
{
    EXPECT_EQ("Vögel \xE9\xB3\xA5 \xF0\x9F\x90\xA6", in_markup("Vögel \xE9\xB3\xA5 \xF0\x9F\x90\xA6"));
}

TEST(PageText, BytesThatAreNoUtf8AreReplaced)
{
    const std::string mark = "\xEF\xBF\xBD";
    EXPECT_EQ("a" + mark + "b", in_markup("a\xFF"
                                          "b"));
    EXPECT_EQ(mark + mark, in_markup("\xC0\xAF"));                        // "/" with a byte too many
    EXPECT_EQ(mark + mark + mark, in_markup("\xED\xA0\x80"));             // half of a pair
    EXPECT_EQ(mark + mark + mark + mark, in_markup("\xF4\x90\x80\x80"));  // beyond the last character
    EXPECT_EQ("a" + mark + mark, in_markup("a\xE2\x80"));                 // cut off
}

TEST(PageText, JsonCannotEndItsElement)
{
    const std::string hostile = "</script><!--<script>&\xE2\x80\xA8\xE2\x80\xA9\"\\";
    const std::string text = in_script({{"title", hostile}, {hostile, 1}});
    EXPECT_EQ(std::string::npos, text.find_first_of("<>&"));
    EXPECT_EQ(std::string::npos, text.find("\xE2\x80\xA8"));
    EXPECT_EQ(std::string::npos, text.find("\xE2\x80\xA9"));
    const Json read = Json::parse(text);
    EXPECT_EQ(hostile, read["title"]);
    EXPECT_EQ(1, read[hostile]);
}

TEST(PageText, JsonOfBytesThatAreNoUtf8CanBeRead)
{
    EXPECT_EQ("a\xEF\xBF\xBD", Json::parse(in_script("a\xFF")));
}
